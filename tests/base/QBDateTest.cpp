#include "base/QBDate.h"

#include "kit/Day.h"
#include "kit/Printers.h"

#include <QDate>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

TEST(QBDate, HasTheFieldsItWasMadeWith) {
    const QBDate date = day(2014, 3, 7);
    EXPECT_EQ(date.yearOfCommonEra(), 2014);
    EXPECT_EQ(date.monthOfYear(), 3);
    EXPECT_EQ(date.dayOfMonth(), 7);
}

TEST(QBDate, OfTheSameDayIsNeitherBeforeNorAfter) {
    const QBDate one = day(2014, 3, 7);
    const QBDate other = day(2014, 2, 35);
    EXPECT_FALSE(one.comesBefore(other));
    EXPECT_FALSE(one.comesAfter(other));
    EXPECT_TRUE(one.isSameDayAs(other));
    EXPECT_EQ(one, other);
    const QBDate copy = one;
    EXPECT_TRUE(copy.isSameDayAs(one));
}

TEST(QBDate, IsOrderedByYearThenMonthThenDay) {
    const std::vector<QBDate> rising{day(-10000, 12, 31), day(-1, 1, 1),     day(0, 1, 1),      day(0, 12, 31),
                                     day(1, 1, 1),        day(2013, 12, 31), day(2014, 1, 31),  day(2014, 2, 1),
                                     day(2014, 2, 2),     day(2014, 10, 1),  day(9999, 12, 31), day(10000, 1, 1)};
    for (std::size_t a = 0; a < rising.size(); ++a) {
        for (std::size_t b = 0; b < rising.size(); ++b) {
            SCOPED_TRACE(testing::PrintToString(rising[a]) + " and " + testing::PrintToString(rising[b]));
            EXPECT_EQ(rising[a].comesBefore(rising[b]), a < b);
            EXPECT_EQ(rising[a].comesAfter(rising[b]), a > b);
            EXPECT_EQ(rising[a].isSameDayAs(rising[b]), a == b);
        }
    }
}

struct FieldsRow {
    qint64 year;
    int month;
    int dayOfMonth;
    QBDate date;
};

TEST(QBDate, NormalisesMonthsAndDaysBeyondTheirRange) {
    const FieldsRow rows[]{
        {2014, 0, 1, day(2013, 12, 1)},   {2014, -1, 1, day(2013, 11, 1)},  {2014, 13, 1, day(2015, 1, 1)},
        {2014, -12, 1, day(2012, 12, 1)}, {2014, 25, 1, day(2016, 1, 1)},   {2014, 3, 0, day(2014, 2, 28)},
        {2012, 3, 0, day(2012, 2, 29)},   {2014, 1, -1, day(2013, 12, 30)}, {2014, 2, 29, day(2014, 3, 1)},
        {2014, 0, 32, day(2014, 1, 1)},   {0, 0, 1, day(-1, 12, 1)},        {1, 1, 0, day(0, 12, 31)},
    };
    for (const FieldsRow& row : rows)
        EXPECT_EQ(QBDate::dateWithYear(row.year, row.month, row.dayOfMonth), row.date);
}

/// The same day as a QDate, in which the year before 1 is -1.
QDate asQDate(const QBDate& date) {
    const qint64 year = date.yearOfCommonEra();
    return {static_cast<int>(year > 0 ? year : year - 1), date.monthOfYear(), date.dayOfMonth()};
}

struct Span {
    qint64 firstYear;
    qint64 lastYear;
};

// The spans contain common and leap years, centuries that are leap years and that are not, the year 0, and the ends of
// four-digit years.
constexpr Span kSpans[]{{1890, 2110}, {-405, 405}, {9996, 10005}, {-10005, -9996}};

TEST(QBDate, CountsDayByDayThroughLeapCommonAndCenturyYears) {
    for (const Span& span : kSpans) {
        QBDate date = day(span.firstYear, 1, 1);
        QDate expected = asQDate(date);
        for (; date.yearOfCommonEra() <= span.lastYear; expected = expected.addDays(1)) {
            ASSERT_EQ(asQDate(date), expected) << testing::PrintToString(date);
            ASSERT_EQ(date.dayOfWeek(), expected.dayOfWeek() % 7) << testing::PrintToString(date);
            const QBDate next = date.dateByAddingYears(0, 0, 1);
            ASSERT_TRUE(next.comesAfter(date));
            ASSERT_EQ(next.dateByAddingYears(0, 0, -1), date);
            date = next;
        }
    }
}

TEST(QBDate, NumbersWeekdaysFromSunday) {
    const int expected[]{6, 0, 1, 2, 3, 4, 5, 6, 0};
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(day(2014, 3, 1 + i).dayOfWeek(), expected[i]);
    EXPECT_EQ(day(1969, 12, 31).dayOfWeek(), 3);
    EXPECT_EQ(day(0, 3, 1).dayOfWeek(), 3);
}

} // namespace
