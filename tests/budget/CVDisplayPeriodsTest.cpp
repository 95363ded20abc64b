#include "budget/CVDisplayPeriods.h"

#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace {

constexpr std::array kAllTypes{CVDisplayPeriods::Day, CVDisplayPeriods::Week, CVDisplayPeriods::TwoWeeks,
                               CVDisplayPeriods::Month};

/// The last day up to and including `date` that is this day of the week.
QBDate lastWeekday(QBDate date, int dayOfWeek) {
    while (date.dayOfWeek() != dayOfWeek)
        date = daysLater(date, -1);
    return date;
}

QBDate firstOfMonth(QBDate date) {
    while (date.dayOfMonth() != 1)
        date = daysLater(date, -1);
    return date;
}

/// The first day of the month `months` months earlier, found one month at a time.
QBDate firstOfMonthsBack(const QBDate& date, int months) {
    QBDate first = firstOfMonth(date);
    for (; months > 0; --months)
        first = firstOfMonth(daysLater(first, -1));
    for (; months < 0; ++months)
        first = firstOfMonth(daysLater(first, 31));
    return first;
}

/// The first column, found by going back from today day by day.
QBDate firstColumn(int periodType, const QBDate& today, const CVDisplayPeriods::Placement& placement) {
    switch (periodType) {
    case CVDisplayPeriods::Day:
        return lastWeekday(today, ((placement.startDayOfWeek % 7) + 7) % 7);
    case CVDisplayPeriods::Week:
        return daysLater(lastWeekday(today, 0), -7 * placement.todayColumn);
    case CVDisplayPeriods::TwoWeeks:
        return daysLater(lastWeekday(today, 0), -7 - 14 * placement.todayColumn);
    default:
        return firstOfMonthsBack(today, placement.todayColumn);
    }
}

QBDate stepLater(int periodType, const QBDate& date) {
    constexpr std::array kDays{1, 7, 14};
    return periodType == CVDisplayPeriods::Month ? date.dateByAddingYears(0, 1, 0)
                                                 : daysLater(date, kDays[static_cast<std::size_t>(periodType)]);
}

TEST(CVDisplayPeriods, BeginWhereTheTypeTheWeekdayAndThePreferencesPlaceThem) {
    // Three weeks around a leap day, so that each weekday occurs in each part of a month.
    for (int daysOn = 0; daysOn < 21; ++daysOn) {
        const QBDate today = daysLater(day(2024, 2, 20), daysOn);
        for (const int type : kAllTypes) {
            for (int startDay = -8; startDay <= 14; ++startDay) {
                for (int todayColumn = -3; todayColumn <= 26; ++todayColumn) {
                    const CVDisplayPeriods::Placement placement{startDay, todayColumn};
                    const CVDisplayPeriods periods(type, today, placement);
                    ASSERT_EQ(periods.firstColumnStartingDate(), firstColumn(type, today, placement))
                        << "type " << type << ", start day " << startDay << ", today in column " << todayColumn;
                }
            }
        }
    }
}

TEST(CVDisplayPeriods, OfDaysBeginOnTheLastStartDay) {
    const QBDate wednesday = day(2014, 3, 5);
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Day, wednesday, {1, 0}).firstColumnStartingDate(), day(2014, 3, 3));
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Day, wednesday, {4, 0}).firstColumnStartingDate(), day(2014, 2, 27));
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Day, wednesday, {3, 5}).firstColumnStartingDate(), wednesday);
}

TEST(CVDisplayPeriods, OfWeeksBeginTodayOnASundayWhateverTheStartDay) {
    const QBDate sunday = day(2014, 3, 2);
    for (int startDay = 0; startDay < 7; ++startDay)
        EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Week, sunday, {startDay, 0}).firstColumnStartingDate(), sunday);
}

TEST(CVDisplayPeriods, OfTwoWeeksHoldTodayInTheSecondWeekOfTheFirstColumn) {
    const CVDisplayPeriods periods(CVDisplayPeriods::TwoWeeks, day(2014, 3, 5), {});
    EXPECT_EQ(periods.column(1), (CVDayRange{day(2014, 2, 23), day(2014, 3, 8)}));
}

TEST(CVDisplayPeriods, OfMonthsWithOneBeforeTodayOn15MarchAreFebruaryToMay) {
    const CVDisplayPeriods periods(CVDisplayPeriods::Month, day(2014, 3, 15), {0, 1});
    EXPECT_EQ(periods.column(1), (CVDayRange{day(2014, 2, 1), day(2014, 2, 28)}));
    EXPECT_EQ(periods.column(2), (CVDayRange{day(2014, 3, 1), day(2014, 3, 31)}));
    EXPECT_EQ(periods.column(3), (CVDayRange{day(2014, 4, 1), day(2014, 4, 30)}));
    EXPECT_EQ(periods.column(4), (CVDayRange{day(2014, 5, 1), day(2014, 5, 31)}));
    EXPECT_EQ(periods.displayRange(), (CVDayRange{day(2014, 2, 1), day(2014, 5, 31)}));
}

TEST(CVDisplayPeriods, AreSevenDaysOrFourOfAnyOtherType) {
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Day, day(2014, 3, 5), {}).numberOfColumnsForDisplayPeriod(), 7);
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Week, day(2014, 3, 5), {}).numberOfColumnsForDisplayPeriod(), 4);
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::TwoWeeks, day(2014, 3, 5), {}).numberOfColumnsForDisplayPeriod(), 4);
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Month, day(2014, 3, 5), {}).numberOfColumnsForDisplayPeriod(), 4);
}

TEST(CVDisplayPeriods, HaveColumnsThatAdjoinOneStepAfterTheOther) {
    for (const int type : kAllTypes) {
        SCOPED_TRACE(type);
        const CVDisplayPeriods periods(type, day(2023, 12, 6), {1, 0});
        QBDate start = periods.firstColumnStartingDate();
        // These columns lie beyond the visible ones, across a new year and a leap day.
        for (int n = 1; n <= 100; ++n) {
            ASSERT_EQ(periods.computeColumnStartDateForColumn(n), start) << n;
            start = stepLater(type, start);
            ASSERT_EQ(periods.computeColumnEndDateForColumn(n), daysLater(start, -1)) << n;
        }
        EXPECT_EQ(periods.computeColumnEndDateForColumn(0), daysLater(periods.firstColumnStartingDate(), -1));
        EXPECT_EQ(stepLater(type, periods.computeColumnStartDateForColumn(-4)),
                  periods.computeColumnStartDateForColumn(-3));
    }
}

TEST(CVDisplayPeriods, MoveByAWeekTwoWeeksOrAMonth) {
    struct Row {
        int type;
        QBDate next;
        QBDate previous;
    };
    // Days begin on Wednesday 5 March, weeks on Sunday 2 March, two weeks on 23 February, months on 1 March.
    const std::array rows{Row{CVDisplayPeriods::Day, day(2014, 3, 12), day(2014, 2, 26)},
                          Row{CVDisplayPeriods::Week, day(2014, 3, 9), day(2014, 2, 23)},
                          Row{CVDisplayPeriods::TwoWeeks, day(2014, 3, 9), day(2014, 2, 9)},
                          Row{CVDisplayPeriods::Month, day(2014, 4, 1), day(2014, 2, 1)}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        CVDisplayPeriods next(row.type, day(2014, 3, 5), {3, 0});
        next.next();
        EXPECT_EQ(next.firstColumnStartingDate(), row.next);
        CVDisplayPeriods previous(row.type, day(2014, 3, 5), {3, 0});
        previous.previous();
        EXPECT_EQ(previous.firstColumnStartingDate(), row.previous);
    }
}

TEST(CVDisplayPeriods, ReturnToTheSameFirstColumnAfterPreviousAndNext) {
    for (const int type : kAllTypes) {
        for (int daysOn = 0; daysOn < 366; ++daysOn) {
            CVDisplayPeriods periods(type, daysLater(day(2024, 1, 1), daysOn), {2, 1});
            const QBDate first = periods.firstColumnStartingDate();
            periods.previous();
            ASSERT_NE(periods.firstColumnStartingDate(), first);
            periods.next();
            ASSERT_EQ(periods.firstColumnStartingDate(), first) << "type " << type;
            periods.next();
            periods.previous();
            ASSERT_EQ(periods.firstColumnStartingDate(), first) << "type " << type;
        }
    }
}

TEST(CVDisplayPeriods, GoBackToTheDayOnWhichTheyWereMade) {
    const QBDate today = day(2014, 3, 5);
    for (const int type : kAllTypes) {
        CVDisplayPeriods periods(type, today, {1, 1});
        const QBDate first = periods.firstColumnStartingDate();
        for (int i = 0; i < 30; ++i)
            periods.next();
        const FixedToday later(day(2015, 1, 1));
        periods.goToToday({1, 1});
        EXPECT_EQ(periods.firstColumnStartingDate(), first) << type;
        EXPECT_EQ(periods.today(), today);
    }
}

/// The result must equal paging to the day from the initial placement without earlier periods.
TEST(CVDisplayPeriods, GoToADayInStepWithToday) {
    const QBDate today = day(2014, 3, 5);
    for (const int type : kAllTypes) {
        for (const int before : {0, 1, 2}) {
            for (int offset = -800; offset <= 800; offset += 3) {
                const QBDate wanted = today.dateByAddingYears(0, 0, offset);
                CVDisplayPeriods walked(type, today, {1, before});
                while (wanted.comesBefore(walked.firstColumnStartingDate()))
                    walked.previous();
                for (CVDisplayPeriods ahead = walked;; walked = ahead) {
                    ahead.next();
                    if (wanted.comesBefore(ahead.firstColumnStartingDate()))
                        break;
                }
                CVDisplayPeriods periods(type, today, {1, before});
                periods.goToDay(wanted);
                ASSERT_EQ(periods.firstColumnStartingDate(), walked.firstColumnStartingDate())
                    << "type " << type << ", before " << before << ", offset " << offset;
            }
        }
    }
}

TEST(CVDisplayPeriods, GoToADayFarAwayAtOnce) {
    for (const int type : kAllTypes) {
        CVDisplayPeriods periods(type, day(2014, 3, 5), {});
        periods.goToDay(day(900'000'000, 1, 1));
        EXPECT_TRUE(periods.displayRange().contains(day(900'000'000, 1, 1))) << type;
        periods.goToDay(day(-900'000'000, 1, 1));
        EXPECT_TRUE(periods.displayRange().contains(day(-900'000'000, 1, 1))) << type;
    }
}

TEST(CVDisplayPeriods, OfAnotherTypeBeginAnewFromToday) {
    CVDisplayPeriods periods(CVDisplayPeriods::Day, day(2014, 3, 5), {1, 0});
    periods.next();
    periods.setTimePeriod(CVDisplayPeriods::Month, {1, 2});
    EXPECT_EQ(periods.periodType(), CVDisplayPeriods::Month);
    EXPECT_EQ(periods.firstColumnStartingDate(), day(2014, 1, 1));
    EXPECT_EQ(periods.numberOfColumnsForDisplayPeriod(), 4);
    periods.setTimePeriod(CVDisplayPeriods::Day, {1, 2});
    EXPECT_EQ(periods.firstColumnStartingDate(), day(2014, 3, 3));
    EXPECT_EQ(periods.numberOfColumnsForDisplayPeriod(), 7);
}

TEST(CVDisplayPeriods, OfAnUnknownTypeAreDays) {
    for (const int type : {-1, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        CVDisplayPeriods periods(type, day(2014, 3, 5), {});
        EXPECT_EQ(periods.periodType(), CVDisplayPeriods::Day) << type;
        periods.setTimePeriod(CVDisplayPeriods::Month, {});
        periods.setTimePeriod(type, {});
        EXPECT_EQ(periods.periodType(), CVDisplayPeriods::Day) << type;
    }
}

TEST(CVDisplayPeriods, TakeHugePreferencesAsTheyAre) {
    const QBDate today = day(2014, 3, 5);
    for (const int huge : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        SCOPED_TRACE(huge);
        const CVDisplayPeriods::Placement placement{huge, huge};
        const auto daysBack = [&](int type) {
            qint64 days = 0;
            const QBDate first = CVDisplayPeriods(type, today, placement).firstColumnStartingDate();
            today.yearsMonthsDaysSinceDate(nullptr, nullptr, &days, first);
            return days;
        };
        EXPECT_EQ(daysBack(CVDisplayPeriods::Week), 3 + 7 * qint64(huge));
        EXPECT_EQ(daysBack(CVDisplayPeriods::TwoWeeks), 3 + 7 + 14 * qint64(huge));
        EXPECT_LT(daysBack(CVDisplayPeriods::Day), 7);
        const QBDate month = CVDisplayPeriods(CVDisplayPeriods::Month, today, placement).firstColumnStartingDate();
        EXPECT_EQ(month.dayOfMonth(), 1);
        EXPECT_EQ((2014 - month.yearOfCommonEra()) * 12 + 3 - month.monthOfYear(), qint64(huge));
    }
}

TEST(CVDisplayPeriods, ReadTheirPlacementFromThePreferences) {
    BudgetBuilder budget;
    EXPECT_EQ(CVDisplayPeriods::Placement::fromDefaults(budget.userDefaults()).startDayOfWeek, 0);
    EXPECT_EQ(CVDisplayPeriods::Placement::fromDefaults(budget.userDefaults()).todayColumn, 0);
    budget.userDefaults().setInteger("CVSetStartDayfWeek", 4);
    budget.userDefaults().setInteger("CVSetTodayColumn", 2);
    EXPECT_EQ(CVDisplayPeriods::Placement::fromDefaults(budget.userDefaults()).startDayOfWeek, 4);
    EXPECT_EQ(CVDisplayPeriods::Placement::fromDefaults(budget.userDefaults()).todayColumn, 2);
}

} // namespace
