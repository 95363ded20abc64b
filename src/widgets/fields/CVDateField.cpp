#include "widgets/fields/CVDateField.h"

#include "widgets/CVGlyph.h"
#include "widgets/CVPositionOfPopup.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QFocusEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QTextCharFormat>
#include <QVBoxLayout>

namespace {

QDate toQDate(const QBDate& date) {
    return date.nsCalendarDate().date();
}

QBDate fromQDate(const QDate& date) {
    return QBDate::dateWithYear(date.year(), date.month(), date.day());
}

} // namespace

CVDateField::CVDateField(QWidget* parent) : CVFormattedField(parent), mDate(QBDate::date()), mKnownDate(mDate) {
    QAction* const open = addAction(CVGlyph::icon(CVGlyph::Shape::Calendar), QLineEdit::TrailingPosition);
    open->setText(tr("Show Calendar"));
    open->setToolTip(tr("Show a calendar (Alt+Down)"));
    connect(open, &QAction::triggered, this, &CVDateField::showCalendar);
    // For a change by the user textEdited comes before textChanged, so checkTyped() still sees the former count in
    // mForeignCharacters.
    connect(this, &QLineEdit::textEdited, this, &CVDateField::checkTyped);
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString& text) { mForeignCharacters = mFormatter.countForeignCharacters(text); });
    showValue();
}

void CVDateField::setQBDateValue(const QBDate& date) {
    mDate = date;
    mKnownDate = date;
    showValue();
}

QString CVDateField::expectation() const {
    return tr("Type a date like %1, with “%2” between its parts.")
        .arg(mFormatter.string(QBDate::date()), mFormatter.dateSeparator());
}

void CVDateField::showCalendar() {
    endEditing();
    auto* const popup = new QFrame(this, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameStyle(QFrame::StyledPanel);
    auto* const calendar = new QCalendarWidget(popup);
    calendar->setAccessibleName(tr("Calendar"));
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setLocale(QBDateLocaleInForce());
    calendar->setFirstDayOfWeek(QBDateLocaleInForce().firstDayOfWeek());
    // Weekends are painted like other days: the toolkit's red marks errors in this program and is hard to read on a
    // dark background.
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        calendar->setWeekdayTextFormat(day, QTextCharFormat());
    calendar->setSelectedDate(toQDate(mDate));
    auto* const layout = new QVBoxLayout(popup);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar);

    const auto chooseAndClose = [this, popup](const QDate& date) {
        popup->close();
        choose(fromQDate(date));
    };
    connect(calendar, &QCalendarWidget::clicked, this, chooseAndClose);
    connect(calendar, &QCalendarWidget::activated, this, chooseAndClose);
    popup->move(CVPositionOfPopup(*this, popup->sizeHint()));
    popup->show();
    calendar->setFocus();
}

bool CVDateField::takeValue(const QString& text) {
    const auto date = mFormatter.parse(text);
    if (date)
        mDate = *date;
    return date.has_value();
}

void CVDateField::valueTaken() {
    if (mDate == mKnownDate && !wasTyped())
        return;
    const QBDate entered = mDate;
    mKnownDate = entered;
    emit dateEntered(entered);
}

QString CVDateField::usualText() const {
    return mFormatter.string(QBDate::dateWithYear(2028, 12, 28));
}

void CVDateField::readLocale() {
    mFormatter = QBDateFormatter();
}

QString CVDateField::valueText() const {
    return mFormatter.string(mDate);
}

void CVDateField::keyPressEvent(QKeyEvent* event) {
    const bool isUp = event->key() == Qt::Key_Up;
    const bool isDown = event->key() == Qt::Key_Down;
    if (isDown && event->modifiers().testFlag(Qt::AltModifier))
        showCalendar();
    else if (isUp || isDown)
        step(isUp ? 1 : -1);
    else
        CVFormattedField::keyPressEvent(event);
}

void CVDateField::focusInEvent(QFocusEvent* event) {
    CVFormattedField::focusInEvent(event);
    if (event->reason() == Qt::OtherFocusReason)
        selectAll();
}

void CVDateField::step(int days) {
    // The typed date is only the start of the step, so it is not announced.
    if (readText())
        choose(mDate.dateByAddingYears(0, 0, days));
    else
        selectAll();
}

void CVDateField::choose(const QBDate& date) {
    mDate = date;
    showValue();
    selectAll();
    valueTaken();
}

void CVDateField::checkTyped(const QString& text) {
    const auto foreign = mFormatter.countForeignCharacters(text);
    if (foreign > mForeignCharacters)
        QApplication::beep();
    showNote(foreign > 0 ? expectation() : QString());
}
