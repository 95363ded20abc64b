#include "budget/CVDayRange.h"

#include "kit/Day.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct RangeRow {
    CVDayRange range;
    qint64 days;
    qint64 months;
};

TEST(CVDayRange, CountsItsDaysAndWholeMonthsUpToTheEndOfItsLastDay) {
    const std::array rows{
        RangeRow{{day(2014, 3, 7), day(2014, 3, 7)}, 1, 0},
        RangeRow{{day(2014, 1, 1), day(2014, 3, 1)}, 60, 2},
        RangeRow{{day(2014, 1, 1), day(2014, 1, 30)}, 30, 0},
        RangeRow{{day(2014, 1, 1), day(2014, 1, 31)}, 31, 1},
        RangeRow{{day(2014, 1, 15), day(2014, 2, 14)}, 31, 1},
        RangeRow{{day(2014, 1, 1), day(2014, 12, 31)}, 365, 12},
        RangeRow{{day(2012, 1, 1), day(2012, 12, 31)}, 366, 12},
        RangeRow{{day(-1, 12, 31), day(0, 2, 29)}, 61, 2},
        RangeRow{{day(9999, 12, 31), day(10000, 1, 1)}, 2, 0},
        RangeRow{{day(2014, 3, 7), day(2014, 3, 6)}, 0, 0},
        RangeRow{{day(2014, 3, 7), day(2014, 3, 5)}, -1, 0},
    };
    for (const RangeRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.range.start) + " to " + testing::PrintToString(row.range.end));
        EXPECT_EQ(row.range.days(), row.days);
        EXPECT_EQ(row.range.wholeMonths(), row.months);
    }
}

TEST(CVDayRange, ContainsBothItsEndsAndNoMissingDate) {
    const CVDayRange range{day(2014, 3, 7), day(2014, 3, 9)};
    EXPECT_FALSE(range.contains(day(2014, 3, 6)));
    EXPECT_TRUE(range.contains(day(2014, 3, 7)));
    EXPECT_TRUE(range.contains(day(2014, 3, 8)));
    EXPECT_TRUE(range.contains(day(2014, 3, 9)));
    EXPECT_FALSE(range.contains(day(2014, 3, 10)));
    EXPECT_FALSE(range.contains(std::nullopt));
}

TEST(CVDayRange, ContainsNothingWhenItsEndLiesBeforeItsStart) {
    const CVDayRange range{day(2014, 3, 9), day(2014, 3, 7)};
    for (int dayOfMonth = 6; dayOfMonth <= 10; ++dayOfMonth)
        EXPECT_FALSE(range.contains(day(2014, 3, dayOfMonth))) << dayOfMonth;
}

} // namespace
