#include "shared/widgets/CVFormattedField.h"

#include <QAccessible>
#include <QAction>
#include <QStyle>

CVFormattedField::CVFormattedField(QWidget* parent)
    : QLineEdit(parent)
    , mMark(addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::LeadingPosition)) {
    mMark->setVisible(false);
    connect(this, &QLineEdit::editingFinished, this, &CVFormattedField::endEditing);
}

void CVFormattedField::endEditing() {
    // A text that could not be read is looked at again, however it came back to what it was.
    if (!isModified() && mReadable)
        return;
    if (takeValue(text()))
        showValue();
    else
        setReadable(false);
}

QSize CVFormattedField::sizeHint() const {
    // One more for the mark of an unreadable text.
    return sizeWithButtons(buttons() + 1);
}

QSize CVFormattedField::minimumSizeHint() const {
    return sizeWithButtons(buttons());
}

void CVFormattedField::showValue() {
    setText(valueText());
    setReadable(true);
}

void CVFormattedField::setReadable(bool readable) {
    if (mReadable == readable)
        return;
    mReadable = readable;
    mMark->setVisible(!readable);
    const QString reason = readable ? QString() : expectation();
    mMark->setToolTip(reason);
    setToolTip(reason);
    setAccessibleDescription(reason);
    if (!readable) {
        QAccessibleEvent announcement(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&announcement);
    }
}

QSize CVFormattedField::sizeWithButtons(int count) const {
    const int height = QLineEdit::sizeHint().height();
    // A button is as wide as the field is high; frame, margins and cursor take little more than half of that.
    return {fontMetrics().horizontalAdvance(usualText()) + count * height + height * 2 / 3, height};
}
