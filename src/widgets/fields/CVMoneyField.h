#pragma once

#include "format/QBCalculateMoneyFormatter.h"
#include "widgets/fields/CVFormattedField.h"

/// An amount of money, or arithmetic that makes one: its result shows below the field while it is typed and takes its
/// place when editing ends. Selects itself when it gets the focus; an empty text stands for zero.
class CVMoneyField final : public CVFormattedField {
    Q_OBJECT

public:
    explicit CVMoneyField(QWidget* parent = nullptr);

    /// In currency units, not rounded.
    [[nodiscard]] double doubleValue() const { return mValue; }
    void setDoubleValue(double value);
    /// An empty text, and zero.
    void clearValue();

    [[nodiscard]] QString expectation() const override;

protected:
    bool takeValue(const QString& text) override;
    [[nodiscard]] QString valueText() const override;
    void readLocale() override;
    [[nodiscard]] QString usualText() const override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void previewResult(const QString& text);

    QBCalculateMoneyFormatter mFormatter;
    double mValue = 0;
    bool mClickedInto = false;
};
