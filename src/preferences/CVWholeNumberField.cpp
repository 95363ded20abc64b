#include "preferences/CVWholeNumberField.h"

#include "format/QBLocale.h"
#include "widgets/fields/CVCellAlignment.h"

#include <QEvent>

CVWholeNumberField::CVWholeNumberField(QWidget* parent, int smallest, int largest)
    : CVFormattedField(parent)
    , mSmallest(smallest)
    , mLargest(largest) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    CVAlignNumber(*this);
    showValue();
}

void CVWholeNumberField::setIntegerValue(int value) {
    mValue = value;
    showValue();
}

QString CVWholeNumberField::expectation() const {
    return tr("Type a whole number from %1 to %2.").arg(mSmallest).arg(mLargest);
}

bool CVWholeNumberField::takeValue(const QString& text) {
    bool isNumber = false;
    const int value = QBLocaleInForce().toInt(text.trimmed(), &isNumber);
    if (!isNumber || value < mSmallest || value > mLargest)
        return false;
    mValue = value;
    return true;
}

QString CVWholeNumberField::valueText() const {
    return QBLocaleInForce().toString(mValue);
}

QString CVWholeNumberField::usualText() const {
    return QBLocaleInForce().toString(mLargest);
}

void CVWholeNumberField::changeEvent(QEvent* event) {
    CVFormattedField::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        CVAlignNumber(*this);
}
