#include "shared/widgets/CVDateField.h"

#include "shared/widgets/CVGlyph.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFocusEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QScreen>
#include <QTextCharFormat>
#include <QVBoxLayout>

namespace {

QDate toQDate(const QBDate& date) {
    return date.nsCalendarDate().date();
}

QBDate fromQDate(const QDate& date) {
    return QBDate::dateWithYear(date.year(), date.month(), date.day());
}

/// Below the field, or above it where the screen ends.
QPoint popupPosition(const QWidget& field, const QSize& size) {
    const QPoint below = field.mapToGlobal(QPoint(0, field.height()));
    const QRect screen = field.screen()->availableGeometry();
    const int x = qBound(screen.left(), below.x(), qMax(screen.left(), screen.right() - size.width()));
    if (below.y() + size.height() <= screen.bottom())
        return {x, below.y()};
    return {x, qMax(screen.top(), below.y() - field.height() - size.height())};
}

} // namespace

CVDateField::CVDateField(QWidget* parent) : CVFormattedField(parent), mDate(QBDate::date()) {
    QAction* const open = addAction(CVGlyph::icon(CVGlyph::Shape::Calendar), QLineEdit::TrailingPosition);
    open->setText(tr("Show Calendar"));
    open->setToolTip(tr("Show a calendar (Alt+Down)"));
    connect(open, &QAction::triggered, this, &CVDateField::showCalendar);
    showValue();
}

void CVDateField::setQBDateValue(const QBDate& date) {
    mDate = date;
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
    calendar->setLocale(QBLocaleInForce());
    calendar->setFirstDayOfWeek(QBLocaleInForce().firstDayOfWeek());
    // Weekends in the palette's colour: red means something else in this program, and is hard to read on dark.
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        calendar->setWeekdayTextFormat(day, QTextCharFormat());
    calendar->setSelectedDate(toQDate(mDate));
    auto* const layout = new QVBoxLayout(popup);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar);

    const auto choose = [this, popup](const QDate& date) {
        setQBDateValue(fromQDate(date));
        selectAll();
        popup->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::activated, this, choose);
    popup->move(popupPosition(*this, popup->sizeHint()));
    popup->show();
    calendar->setFocus();
}

bool CVDateField::takeValue(const QString& text) {
    const auto date = mFormatter.parse(text);
    if (date)
        mDate = *date;
    return date.has_value();
}

QString CVDateField::usualText() const {
    return mFormatter.string(QBDate::dateWithYear(2028, 12, 28));
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
    endEditing();
    if (isReadable())
        setQBDateValue(mDate.dateByAddingYears(0, 0, days));
    selectAll();
}
