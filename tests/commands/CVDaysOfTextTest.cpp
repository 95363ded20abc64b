#include "commands/CVDaysOfText.h"

#include "kit/Day.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

TEST(CVDaysOfText, AreADayAMonthAYearOrToday) {
    const QBDate today = day(2014, 3, 8);
    struct Days {
        const char* text;
        std::optional<CVDayRange> days;
    };
    const QList<Days> rows{
        {"2014-01-31", CVDayRange{day(2014, 1, 31), day(2014, 1, 31)}},
        {"2014/01/31", CVDayRange{day(2014, 1, 31), day(2014, 1, 31)}},
        {"2014/1/3", CVDayRange{day(2014, 1, 3), day(2014, 1, 3)}},
        {"2014-01", CVDayRange{day(2014, 1, 1), day(2014, 1, 31)}},
        {"2014-02", CVDayRange{day(2014, 2, 1), day(2014, 2, 28)}},
        {"2012-02", CVDayRange{day(2012, 2, 1), day(2012, 2, 29)}},
        {"2014-12", CVDayRange{day(2014, 12, 1), day(2014, 12, 31)}},
        {"2014", CVDayRange{day(2014, 1, 1), day(2014, 12, 31)}},
        {"today", CVDayRange{today, today}},
        {"", std::nullopt},
        {"Today", std::nullopt},
        {"2014-02-30", std::nullopt},
        {"2014-13", std::nullopt},
        {"2014-00", std::nullopt},
        {"2014-1", std::nullopt},
        {"2014-", std::nullopt},
        {"201", std::nullopt},
        {"20145", std::nullopt},
        {"2014-01-31x", std::nullopt},
        {"01/31/2014", std::nullopt},
    };
    for (const Days& row : rows)
        EXPECT_EQ(CVDaysOfText(row.text, today), row.days) << row.text;
}

} // namespace
