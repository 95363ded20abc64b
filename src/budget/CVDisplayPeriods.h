#pragma once

#include "budget/CVDayRange.h"

#include <QCoreApplication>

class QBUserDefaults;

/// The consecutive periods that the budget grid shows, one per column: their type, their start and their number.
/// Columns are numbered from 1. `today` stays the day given to the constructor, however long the window is open.
class CVDisplayPeriods final {
    Q_DECLARE_TR_FUNCTIONS(CVDisplayPeriods)

public:
    enum Type : int { Day, Week, TwoWeeks, Month };
    static constexpr int kTypes = 4;

    /// The two preferences that decide where the first column begins.
    struct Placement {
        /// The weekday on which a day view begins, 0 = Sunday.
        int startDayOfWeek = 0;
        /// The number of periods shown before the one that holds today.
        int todayColumn = 0;

        [[nodiscard]] static Placement fromDefaults(const QBUserDefaults& defaults);
    };

    /// A type outside 0 to 3 counts as 0.
    CVDisplayPeriods(int periodType, const QBDate& today, Placement placement);

    [[nodiscard]] int periodType() const { return mPeriodType; }
    [[nodiscard]] const QBDate& today() const { return mToday; }
    [[nodiscard]] const QBDate& firstColumnStartingDate() const { return mFirstColumnStartingDate; }
    /// 7 for days, else 4.
    [[nodiscard]] int numberOfColumnsForDisplayPeriod() const;

    void initializeFirstColumnStartingDate(Placement placement);
    void setTimePeriod(int periodType, Placement placement);
    void next();
    void previous();
    /// Makes the period that holds the day the first one, without changing where periods begin: days start with the
    /// first of that week, and two weeks stay in step with today's two weeks.
    void goToDay(const QBDate& day);
    void goToToday(Placement placement) { initializeFirstColumnStartingDate(placement); }

    /// The first day of column n, which may be outside the shown columns.
    [[nodiscard]] QBDate computeColumnStartDateForColumn(int n) const;
    [[nodiscard]] QBDate computeColumnEndDateForColumn(int n) const;
    [[nodiscard]] CVDayRange column(int n) const;
    /// From the first column's start to the last shown column's end.
    [[nodiscard]] CVDayRange displayRange() const;

    struct Header {
        QString text;
        /// Whether the column is marked as the one that holds today.
        bool holdsToday = false;
    };
    [[nodiscard]] Header header(int n) const;
    /// "start thru end" in the user's short date format.
    [[nodiscard]] QString displayRangeText() const;

private:
    [[nodiscard]] Header dayHeader(int n) const;
    [[nodiscard]] Header weeksHeader(int n) const;
    [[nodiscard]] Header monthHeader(int n) const;

    int mPeriodType;
    QBDate mToday;
    int mStartDayOfWeek = 0;
    QBDate mFirstColumnStartingDate;
};
