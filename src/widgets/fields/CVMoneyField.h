#pragma once

#include "format/QBCalculateMoneyFormatter.h"
#include "widgets/fields/CVFormattedField.h"

/// A field for an amount of money or for arithmetic. The result of arithmetic shows below the field while the user
/// types and replaces the text when editing ends. The text is selected when the field gets the focus; an empty text
/// stands for zero.
class CVMoneyField final : public CVFormattedField {
    Q_OBJECT

public:
    explicit CVMoneyField(QWidget* parent = nullptr);

    /// The value in currency units, not rounded.
    [[nodiscard]] double doubleValue() const { return mValue; }
    void setDoubleValue(double value);
    /// Sets the value to zero and shows an empty text.
    void clearValue();

    [[nodiscard]] QString expectation() const override;

protected:
    bool takeValue(const QString& text) override;
    [[nodiscard]] QString valueText() const override;
    void readLocale() override;
    [[nodiscard]] QString usualText() const override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void previewResult(const QString& text);

    QBCalculateMoneyFormatter mFormatter;
    double mValue = 0;
    bool mClickedInto = false;
};
