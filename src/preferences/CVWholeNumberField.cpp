#include "preferences/CVWholeNumberField.h"

#include "format/QBLocale.h"
#include "widgets/fields/CVCellAlignment.h"

#include <QEvent>

namespace {

constexpr int kLargest = 999;

} // namespace

CVWholeNumberField::CVWholeNumberField(QWidget* parent) : CVFormattedField(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    CVAlignNumber(*this);
    showValue();
}

void CVWholeNumberField::setIntegerValue(int value) {
    mValue = value;
    showValue();
}

QString CVWholeNumberField::expectation() const {
    return tr("Type a whole number from 0 to %1.").arg(kLargest);
}

bool CVWholeNumberField::takeValue(const QString& text) {
    bool isNumber = false;
    const int value = QBLocaleInForce().toInt(text.trimmed(), &isNumber);
    if (!isNumber || value < 0 || value > kLargest)
        return false;
    mValue = value;
    return true;
}

QString CVWholeNumberField::valueText() const {
    return QBLocaleInForce().toString(mValue);
}

QString CVWholeNumberField::usualText() const {
    return QBLocaleInForce().toString(kLargest);
}

void CVWholeNumberField::changeEvent(QEvent* event) {
    CVFormattedField::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        CVAlignNumber(*this);
}
