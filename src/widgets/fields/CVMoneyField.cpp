#include "widgets/fields/CVMoneyField.h"

#include "widgets/fields/CVCellAlignment.h"

#include <QFocusEvent>

namespace {

constexpr double kExample = 1234.5;
constexpr double kUsualAmount = 99'999.99;

} // namespace

CVMoneyField::CVMoneyField(QWidget* parent) : CVFormattedField(parent) {
    CVAlignNumber(*this);
    connect(this, &QLineEdit::textEdited, this, &CVMoneyField::previewResult);
    showValue();
}

void CVMoneyField::setDoubleValue(double value) {
    mValue = value;
    showValue();
}

void CVMoneyField::clearValue() {
    setDoubleValue(0);
    // Not clear(), which would count as an edit.
    showText({});
}

QString CVMoneyField::expectation() const {
    return tr("Type an amount like %1.").arg(mFormatter.string(kExample));
}

bool CVMoneyField::takeValue(const QString& text) {
    const std::optional<double> value = text.trimmed().isEmpty() ? 0.0 : mFormatter.parse(text);
    if (value)
        mValue = *value;
    return value.has_value();
}

QString CVMoneyField::usualText() const {
    return mFormatter.string(kUsualAmount);
}

void CVMoneyField::readLocale() {
    mFormatter = QBCalculateMoneyFormatter();
}

QString CVMoneyField::valueText() const {
    return mFormatter.string(mValue);
}

void CVMoneyField::changeEvent(QEvent* event) {
    CVFormattedField::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        CVAlignNumber(*this);
}

void CVMoneyField::focusInEvent(QFocusEvent* event) {
    CVFormattedField::focusInEvent(event);
    mClickedInto = event->reason() == Qt::MouseFocusReason;
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        selectAll();
}

void CVMoneyField::mouseReleaseEvent(QMouseEvent* event) {
    CVFormattedField::mouseReleaseEvent(event);
    // The click that gave the focus has only moved the cursor; a drag has selected a part on purpose.
    if (mClickedInto && !hasSelectedText())
        selectAll();
    mClickedInto = false;
}

void CVMoneyField::previewResult(const QString& text) {
    const auto result = mFormatter.result(text);
    showNote(result ? tr("= %1").arg(mFormatter.string(*result)) : QString());
}
