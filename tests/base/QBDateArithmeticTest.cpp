#include "base/QBDate.h"
#include "kit/Day.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>

namespace {

/// A plain calendar that counts single days.
struct SlowDate {
    qint64 year;
    int month;
    int dayOfMonth;

    [[nodiscard]] int lengthOfMonth() const {
        switch (month) {
        case 2:
            return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0) ? 29 : 28;
        case 4:
        case 6:
        case 9:
        case 11:
            return 30;
        default:
            return 31;
        }
    }

    void stepMonth(int direction) {
        month += direction;
        if (month == 13) {
            month = 1;
            ++year;
        } else if (month == 0) {
            month = 12;
            --year;
        }
    }

    void stepDay(int direction) {
        dayOfMonth += direction;
        if (dayOfMonth > lengthOfMonth()) {
            dayOfMonth = 1;
            stepMonth(1);
        } else if (dayOfMonth == 0) {
            stepMonth(-1);
            dayOfMonth = lengthOfMonth();
        }
    }

    bool operator==(const SlowDate&) const = default;
};

SlowDate slow(const QBDate& date) {
    return {date.yearOfCommonEra(), date.monthOfYear(), date.dayOfMonth()};
}

SlowDate slowSum(const QBDate& date, qint64 years, qint64 months, qint64 days) {
    SlowDate sum = slow(date);
    sum.year += years;
    for (; months > 0; --months)
        sum.stepMonth(1);
    for (; months < 0; ++months)
        sum.stepMonth(-1);
    // The days are counted from the first of the month, because the reached month may be shorter.
    days += sum.dayOfMonth - 1;
    sum.dayOfMonth = 1;
    for (; days > 0; --days)
        sum.stepDay(1);
    for (; days < 0; ++days)
        sum.stepDay(-1);
    return sum;
}

struct SumRow {
    QBDate date;
    qint64 years;
    qint64 months;
    qint64 days;
    QBDate sum;
};

TEST(QBDateAddition, NormalisesOnce) {
    const SumRow rows[]{
        {day(2014, 3, 31), 0, -1, 1 - 31, day(2014, 2, 1)},
        {day(2014, 1, 1), 0, 0, -1, day(2013, 12, 31)},
        {day(2014, 3, 7), 0, 0, 0, day(2014, 3, 7)},
        // the last day of the month, from its first
        {day(2014, 2, 1), 0, 1, -1, day(2014, 2, 28)},
        {day(2012, 2, 1), 0, 1, -1, day(2012, 2, 29)},
        {day(2014, 12, 1), 0, 1, -1, day(2014, 12, 31)},
        // the day before the same date one or two years on
        {day(2014, 3, 7), 1, 0, -1, day(2015, 3, 6)},
        {day(2014, 1, 1), 2, 0, -1, day(2015, 12, 31)},
        {day(2012, 2, 29), 1, 0, -1, day(2013, 2, 28)},
        {day(2012, 2, 29), 1, 0, 0, day(2013, 3, 1)},
        {day(2012, 2, 29), 4, 0, 0, day(2016, 2, 29)},
        // the end of a week and of two
        {day(2014, 2, 24), 0, 0, 6, day(2014, 3, 2)},
        {day(2014, 12, 22), 0, 0, 13, day(2015, 1, 4)},
        // a day that the month does not have counts on
        {day(2014, 3, 31), 0, -1, 0, day(2014, 3, 3)},
        {day(2012, 3, 31), 0, -1, 0, day(2012, 3, 2)},
        {day(2014, 10, 31), 0, 1, 0, day(2014, 12, 1)},
        // months carry into years, backwards too, before the days are counted
        {day(2014, 1, 15), 0, -1, 0, day(2013, 12, 15)},
        {day(2014, 1, 15), 0, -25, 0, day(2011, 12, 15)},
        {day(2014, 12, 15), 0, 13, 0, day(2016, 1, 15)},
        {day(2014, 3, 7), -1, 12, 0, day(2014, 3, 7)},
        {day(2014, 1, 1), 0, 0, 365, day(2015, 1, 1)},
        {day(2014, 1, 1), 0, 0, 146097, day(2414, 1, 1)},
        // through the year 0
        {day(1, 1, 1), 0, 0, -1, day(0, 12, 31)},
        {day(0, 1, 1), 0, 0, -1, day(-1, 12, 31)},
        {day(0, 2, 28), 0, 0, 1, day(0, 2, 29)},
        {day(1, 1, 15), 0, -13, 0, day(-1, 12, 15)},
        {day(9999, 12, 31), 0, 0, 1, day(10000, 1, 1)},
    };
    for (const SumRow& row : rows) {
        SCOPED_TRACE(testing::Message() << testing::PrintToString(row.date) << " + " << row.years << ", " << row.months
                                        << ", " << row.days);
        EXPECT_EQ(row.date.dateByAddingYears(row.years, row.months, row.days), row.sum);
    }
}

TEST(QBDateAddition, FindsTheFirstOfAnEarlierMonthFromAnyDay) {
    for (QBDate date = day(2011, 12, 1); date.comesBefore(day(2014, 2, 1)); date = date.dateByAddingYears(0, 0, 1)) {
        SlowDate first = slow(date);
        first.dayOfMonth = 1;
        for (int months = 0; months < 30; ++months, first.stepMonth(-1))
            ASSERT_EQ(slow(date.dateByAddingYears(0, -months, 1 - date.dayOfMonth())), first);
    }
}

/// Dates of all ages and amounts of all sizes that a walk of single days can follow.
class RandomDates {
public:
    qint64 within(qint64 least, qint64 most) { return std::uniform_int_distribution<qint64>(least, most)(mEngine); }
    QBDate date() {
        const qint64 year = within(0, 3) ? within(1990, 2030) : within(-12000, 12000);
        return day(year, 1, 1).dateByAddingYears(0, 0, within(0, 365));
    }

private:
    std::mt19937_64 mEngine{5};
};

TEST(QBDateAddition, AgreesWithSingleSteps) {
    RandomDates random;
    for (int i = 0; i < 20'000; ++i) {
        const QBDate date = random.date();
        const qint64 years = random.within(-3, 3);
        const qint64 months = random.within(-30, 30);
        const qint64 days = random.within(-900, 900);
        ASSERT_EQ(slow(date.dateByAddingYears(years, months, days)), slowSum(date, years, months, days))
            << testing::PrintToString(date) << " + " << years << ", " << months << ", " << days;
    }
}

TEST(QBDateAddition, OfDaysIsUndoneByTheirDifference) {
    RandomDates random;
    for (int i = 0; i < 50'000; ++i) {
        const QBDate date = random.date();
        const qint64 days = random.within(-300'000'000'000, 300'000'000'000);
        qint64 difference = 0;
        date.dateByAddingYears(0, 0, days).yearsMonthsDaysSinceDate(nullptr, nullptr, &difference, date);
        ASSERT_EQ(difference, days) << testing::PrintToString(date);
    }
}

struct Difference {
    qint64 months;
    qint64 days;
    qint64 allDays;
};

/// Walks from the earlier to the later day. A month is complete at the same day of the month, or at the start of the
/// next month where the month is too short. The rest is counted in days.
Difference slowDifference(const SlowDate& earlier, const SlowDate& later) {
    Difference difference{0, 0, 0};
    SlowDate date = earlier;
    while (date != later) {
        const int previousDay = date.dayOfMonth;
        date.stepDay(1);
        ++difference.allDays;
        ++difference.days;
        if (date.dayOfMonth == 1 && previousDay < earlier.dayOfMonth) {
            ++difference.months;
            difference.days = 1;
        }
        if (date.dayOfMonth == earlier.dayOfMonth) {
            ++difference.months;
            difference.days = 0;
        }
    }
    return difference;
}

/// Checks every function that computes the difference.
void expectDifference(const QBDate& later, const QBDate& earlier, const Difference& expected, int sign) {
    const auto [months, days, allDays] = expected;
    qint64 y = -99;
    qint64 m = -99;
    qint64 d = -99;
    later.yearsMonthsDaysSinceDate(nullptr, nullptr, &d, earlier);
    ASSERT_EQ(d, sign * allDays);
    later.yearsMonthsDaysSinceDate(nullptr, &m, nullptr, earlier);
    ASSERT_EQ(m, sign * months);
    later.yearsMonthsDaysSinceDate(&y, nullptr, nullptr, earlier);
    ASSERT_EQ(y, sign * (months / 12));
    later.yearsMonthsDaysSinceDate(nullptr, &m, &d, earlier);
    ASSERT_EQ(m, sign * months);
    ASSERT_EQ(d, sign * days);
    later.yearsMonthsDaysSinceDate(&y, &m, &d, earlier);
    ASSERT_EQ(y, sign * (months / 12));
    ASSERT_EQ(m, sign * (months % 12));
    ASSERT_EQ(d, sign * days);
    later.yearsMonthsDaysSinceDate(nullptr, nullptr, nullptr, earlier);
}

struct DifferenceRow {
    QBDate later;
    QBDate earlier;
    Difference difference;
};

TEST(QBDateDifference, CountsLargerUnitsFirst) {
    const DifferenceRow rows[]{
        {day(2014, 3, 2), day(2014, 1, 1), {2, 1, 60}},      {day(2014, 3, 7), day(2014, 3, 7), {0, 0, 0}},
        {day(2014, 2, 28), day(2014, 1, 31), {0, 28, 28}},   {day(2014, 3, 1), day(2014, 1, 31), {1, 1, 29}},
        {day(2014, 3, 31), day(2014, 1, 31), {2, 0, 59}},    {day(2015, 1, 1), day(2014, 1, 1), {12, 0, 365}},
        {day(2014, 12, 31), day(2014, 1, 1), {11, 30, 364}}, {day(2016, 2, 29), day(2012, 2, 29), {48, 0, 1461}},
        {day(2013, 2, 28), day(2012, 2, 29), {11, 30, 365}}, {day(1, 1, 1), day(-1, 12, 31), {12, 1, 367}},
    };
    for (const DifferenceRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.later) + " since " + testing::PrintToString(row.earlier));
        expectDifference(row.later, row.earlier, row.difference, 1);
        expectDifference(row.earlier, row.later, row.difference, -1);
    }
}

TEST(QBDateDifference, AgreesWithAWalkOfSingleDays) {
    RandomDates random;
    for (int i = 0; i < 3'000; ++i) {
        const QBDate earlier = random.date();
        const QBDate later =
            earlier.dateByAddingYears(0, 0, random.within(0, 3) ? random.within(0, 70) : random.within(0, 3000));
        SCOPED_TRACE(testing::PrintToString(later) + " since " + testing::PrintToString(earlier));
        const Difference difference = slowDifference(slow(earlier), slow(later));
        ASSERT_NO_FATAL_FAILURE(expectDifference(later, earlier, difference, 1));
        ASSERT_NO_FATAL_FAILURE(expectDifference(earlier, later, difference, -1));
    }
}

} // namespace
