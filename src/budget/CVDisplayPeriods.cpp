#include "budget/CVDisplayPeriods.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "budget/CVDateFormatWithoutYear.h"
#include "format/QBDateFormatter.h"

#include <array>

namespace {

constexpr int kDaysPerWeek = 7;

struct Amount {
    int months;
    int days;

    [[nodiscard]] QBDate from(const QBDate& date, qint64 times = 1) const {
        return date.dateByAddingYears(0, times * months, times * days);
    }
};

/// The day, counted back from today, with which a period begins.
enum class Anchor : quint8 { StartDayOfWeek, Sunday, FirstOfMonth };

struct PeriodType {
    int columns;
    /// The time from one column to the next.
    Amount step;
    /// By how much `next` and `previous` move the first column.
    Amount page;
    /// The first column begins at the anchor, less `lead`, less `before` for each period that is shown before today's.
    Anchor anchor;
    Amount lead;
    Amount before;
};

/// Weeks begin on Sunday whatever the start day, and the two-week view begins a week before today's week, deliberately.
constexpr std::array<PeriodType, CVDisplayPeriods::kTypes> kPeriodTypes{{
    {7, {0, 1}, {0, 7}, Anchor::StartDayOfWeek, {0, 0}, {0, 0}},
    {4, {0, 7}, {0, 7}, Anchor::Sunday, {0, 0}, {0, 7}},
    {4, {0, 14}, {0, 14}, Anchor::Sunday, {0, 7}, {0, 14}},
    {4, {1, 0}, {1, 0}, Anchor::FirstOfMonth, {0, 0}, {1, 0}},
}};

const PeriodType& typeOf(int periodType) {
    return kPeriodTypes[static_cast<std::size_t>(periodType)];
}

int known(int periodType) {
    return periodType >= 0 && periodType < CVDisplayPeriods::kTypes ? periodType : CVDisplayPeriods::Day;
}

int weekdayModulo(qint64 day) {
    return static_cast<int>((day % kDaysPerWeek + kDaysPerWeek) % kDaysPerWeek);
}

QBDate anchorOf(Anchor anchor, const QBDate& today, int startDayOfWeek) {
    switch (anchor) {
    case Anchor::FirstOfMonth:
        return today.dateByAddingYears(0, 0, 1 - today.dayOfMonth());
    case Anchor::Sunday:
        return today.dateByAddingYears(0, 0, -today.dayOfWeek());
    case Anchor::StartDayOfWeek:
        break;
    }
    return today.dateByAddingYears(0, 0, -weekdayModulo(today.dayOfWeek() - startDayOfWeek));
}

} // namespace

CVDisplayPeriods::Placement CVDisplayPeriods::Placement::fromDefaults(const QBUserDefaults& defaults) {
    return {defaults.integerForKey(CVDefaultsKeys::kStartDayOfWeek),
            defaults.integerForKey(CVDefaultsKeys::kTodayColumn)};
}

CVDisplayPeriods::CVDisplayPeriods(int periodType, const QBDate& today, Placement placement)
    : mPeriodType(known(periodType))
    , mToday(today)
    , mFirstColumnStartingDate(today) {
    initializeFirstColumnStartingDate(placement);
}

int CVDisplayPeriods::numberOfColumnsForDisplayPeriod() const {
    return typeOf(mPeriodType).columns;
}

void CVDisplayPeriods::initializeFirstColumnStartingDate(Placement placement) {
    mStartDayOfWeek = weekdayModulo(placement.startDayOfWeek);
    const PeriodType& type = typeOf(mPeriodType);
    const QBDate anchor = anchorOf(type.anchor, mToday, mStartDayOfWeek);
    mFirstColumnStartingDate = type.before.from(type.lead.from(anchor, -1), -qint64(placement.todayColumn));
}

void CVDisplayPeriods::setTimePeriod(int periodType, Placement placement) {
    mPeriodType = known(periodType);
    initializeFirstColumnStartingDate(placement);
}

void CVDisplayPeriods::next() {
    mFirstColumnStartingDate = typeOf(mPeriodType).page.from(mFirstColumnStartingDate);
}

void CVDisplayPeriods::previous() {
    mFirstColumnStartingDate = typeOf(mPeriodType).page.from(mFirstColumnStartingDate, -1);
}

void CVDisplayPeriods::goToDay(const QBDate& day) {
    const Amount page = typeOf(mPeriodType).page;
    if (page.months != 0) {
        mFirstColumnStartingDate = anchorOf(Anchor::FirstOfMonth, day, mStartDayOfWeek);
        return;
    }
    qint64 days = 0;
    day.yearsMonthsDaysSinceDate(nullptr, nullptr, &days, mFirstColumnStartingDate);
    const qint64 pages = days >= 0 ? days / page.days : -((page.days - 1 - days) / page.days);
    mFirstColumnStartingDate = page.from(mFirstColumnStartingDate, pages);
}

QBDate CVDisplayPeriods::computeColumnStartDateForColumn(int n) const {
    return typeOf(mPeriodType).step.from(mFirstColumnStartingDate, n - 1);
}

QBDate CVDisplayPeriods::computeColumnEndDateForColumn(int n) const {
    return computeColumnStartDateForColumn(n + 1).dateByAddingYears(0, 0, -1);
}

CVDayRange CVDisplayPeriods::column(int n) const {
    return {computeColumnStartDateForColumn(n), computeColumnEndDateForColumn(n)};
}

CVDayRange CVDisplayPeriods::displayRange() const {
    return {mFirstColumnStartingDate, computeColumnEndDateForColumn(numberOfColumnsForDisplayPeriod())};
}

CVDisplayPeriods::Header CVDisplayPeriods::header(int n) const {
    switch (mPeriodType) {
    case Week:
    case TwoWeeks:
        return weeksHeader(n);
    case Month:
        return monthHeader(n);
    default:
        return dayHeader(n);
    }
}

QString CVDisplayPeriods::displayRangeText() const {
    const QBDateFormatter formatter;
    const CVDayRange range = displayRange();
    return tr("%1 thru %2").arg(formatter.string(range.start), formatter.string(range.end));
}

CVDisplayPeriods::Header CVDisplayPeriods::dayHeader(int n) const {
    const int weekday = weekdayModulo(mStartDayOfWeek + n - 1);
    // The locale numbers its days from 1 = Monday to 7 = Sunday.
    const QString name = QBDateLocaleInForce().standaloneDayName(weekday == 0 ? kDaysPerWeek : weekday);
    return {name, weekday == mToday.dayOfWeek() && displayRange().contains(mToday)};
}

CVDisplayPeriods::Header CVDisplayPeriods::weeksHeader(int n) const {
    const QBDateFormatter formatter(CVDateFormatWithoutYear(QBDateFormatter::shortDateFormat()));
    const CVDayRange range = column(n);
    return {tr("%1 - %2").arg(formatter.string(range.start), formatter.string(range.end)), range.contains(mToday)};
}

CVDisplayPeriods::Header CVDisplayPeriods::monthHeader(int n) const {
    const QBDate start = computeColumnStartDateForColumn(n);
    const CVDayRange range = displayRange();
    const QString name = QBDateLocaleInForce().standaloneMonthName(start.monthOfYear());
    const bool yearIsShown = mToday.yearOfCommonEra() >= range.start.yearOfCommonEra() &&
                             mToday.yearOfCommonEra() <= range.end.yearOfCommonEra();
    return {tr("%1 %2").arg(name, QString::number(start.yearOfCommonEra())),
            start.monthOfYear() == mToday.monthOfYear() && yearIsShown};
}
