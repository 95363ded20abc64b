#include "widgets/fields/CVFormattedField.h"

#include "widgets/fields/CVFieldNote.h"

#include <QAccessible>
#include <QAction>
#include <QFocusEvent>
#include <QIcon>
#include <QStyle>

namespace {

bool isLeftByUser(Qt::FocusReason reason) {
    return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
}

} // namespace

CVFormattedField::CVFormattedField(QWidget* parent)
    : QLineEdit(parent)
    , mMark(addAction(QIcon(), QLineEdit::LeadingPosition))
    , mNote(new CVFieldNote(*this)) {
    mMark->setVisible(false);
    connect(this, &QLineEdit::editingFinished, this, &CVFormattedField::endEditing);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!hasFocus() && text != mShownText)
            endEditing();
    });
    // What is typed now has not been read yet.
    connect(this, &QLineEdit::textEdited, this, [this] {
        mMark->setVisible(false);
        explain();
        update();
    });
}

void CVFormattedField::endEditing() {
    mWasTyped = isModified();
    if (readText())
        valueTaken();
    mWasTyped = false;
}

void CVFormattedField::tellUnreadable() {
    showNote(expectation());
}

void CVFormattedField::localeChanged() {
    endEditing();
    readLocale();
    if (mReadable && !text().isEmpty())
        showValue();
    explain();
    updateGeometry();
}

QSize CVFormattedField::sizeHint() const {
    // One more button than usual: the mark of an unreadable text.
    return sizeWithButtons(buttons() + 1);
}

QSize CVFormattedField::minimumSizeHint() const {
    return sizeWithButtons(buttons());
}

bool CVFormattedField::readText() {
    // A text that could not be read is read again, even when it is back at the text that was shown.
    if (!isModified() && text() == mShownText && mReadable)
        return true;
    if (takeValue(text()))
        showValue();
    else
        setReadable(false);
    return mReadable;
}

void CVFormattedField::showValue() {
    showText(valueText());
    setReadable(true);
}

void CVFormattedField::showText(const QString& text) {
    mShownText = text;
    setText(text);
}

void CVFormattedField::showNote(const QString& note) {
    mNote->say(note);
    explain();
}

void CVFormattedField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        localeChanged();
}

void CVFormattedField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    showNote({});
    if (!mReadable && isLeftByUser(event->reason()))
        emit leftUnreadable();
}

void CVFormattedField::setReadable(bool readable) {
    const bool isNews = !readable && mReadable;
    mReadable = readable;
    // The look-up of the icon in the theme takes several milliseconds, so that the start leaves it out.
    if (!readable && mMark->icon().isNull())
        mMark->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
    mMark->setVisible(!readable);
    // The toolkit shifts the text to make room for the mark, but repaints only the mark's area.
    update();
    showNote({});
    if (isNews) {
        QAccessibleEvent announcement(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&announcement);
    }
}

void CVFormattedField::explain() {
    const QString reason = mMark->isVisible() ? expectation() : QString();
    mMark->setToolTip(reason);
    setToolTip(reason);
    setAccessibleDescription(mNote->text().isEmpty() ? reason : mNote->text());
}

QSize CVFormattedField::sizeWithButtons(int count) const {
    const int height = QLineEdit::sizeHint().height();
    // A button is as wide as the field is high. Frame, margins and cursor take a little more than half of that.
    return {fontMetrics().horizontalAdvance(usualText()) + count * height + height * 2 / 3, height};
}
