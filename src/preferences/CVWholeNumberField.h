#pragma once

#include "widgets/fields/CVFormattedField.h"

/// A field for a whole number of at least 0, in the digits of the locale.
class CVWholeNumberField final : public CVFormattedField {
    Q_OBJECT

public:
    /// `largest` has at most nine digits.
    explicit CVWholeNumberField(QWidget* parent = nullptr, int smallest = 0, int largest = 999);

    [[nodiscard]] int integerValue() const { return mValue; }
    void setIntegerValue(int value);

    [[nodiscard]] QString expectation() const override;

signals:
    /// Editing has ended with a readable number, changed or not.
    void entered(int value);

protected:
    bool takeValue(const QString& text) override;
    void valueTaken() override { emit entered(mValue); }
    [[nodiscard]] QString valueText() const override;
    void readLocale() override {}
    [[nodiscard]] QString usualText() const override;
    void changeEvent(QEvent* event) override;

private:
    int mSmallest;
    int mLargest;
    int mValue = 0;
};
