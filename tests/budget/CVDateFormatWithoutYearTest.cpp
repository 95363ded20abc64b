#include "budget/CVDateFormatWithoutYear.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct FormatRow {
    const char* format;
    const char* withoutYear;
};

constexpr std::array kPercentStyle{
    // The year after day and month, in either order.
    FormatRow{"%m/%d/%y", "%m/%d"},
    FormatRow{"%d/%m/%y", "%d/%m"},
    FormatRow{"%m/%d/%Y", "%m/%d"},
    FormatRow{"%e. %m. %Y.", "%e. %m."},
    FormatRow{"%1m/%e/%y", "%1m/%e"},
    FormatRow{"%e/%1m/%y", "%e/%1m"},
    // The year between them.
    FormatRow{"%m %y %d", "%m %d"},
    FormatRow{"%d.%y.%m", "%d.%m"},
    // The year at the very start.
    FormatRow{"%y-%m-%d", "%m-%d"},
    FormatRow{"%Y/%e/%1m", "%e/%1m"},
    FormatRow{"%Y", ""},
    FormatRow{"%y!", "!"},
    // The year before both, but not at the very start.
    FormatRow{" %y-%m-%d", " -%m-%d"},
    // Without a day, a month or both.
    FormatRow{"%m/%y", "%m"},
    FormatRow{"%d/%y", "%d"},
    FormatRow{"(%y)", "()"},
    FormatRow{"%B, %Y", "%B, "},
    FormatRow{".%y.%m", "..%m"},
    FormatRow{".%y.%d", "..%d"},
    // No year.
    FormatRow{"%m/%d", "%m/%d"},
    FormatRow{"%", "%"},
    // %d counts before %e and %m before %1m, wherever they stand.
    FormatRow{"%e %m %d %y", "%e %m %d"},
    FormatRow{"%1m %d %m %y", "%1m %d %m"},
};

constexpr std::array kPatternStyle{
    // The year last.
    FormatRow{"M/d/yy", "M/d"},
    FormatRow{"dd.MM.yyyy", "dd.MM"},
    FormatRow{"dd.MM.yyy", "dd.MM"},
    FormatRow{"d. M. y", "d. M"},
    FormatRow{"EEE, d MMM yyyy", "EEE, d MMM"},
    FormatRow{"dd/MM/yy.", "dd/MM."},
    // The year first.
    FormatRow{"yyyy-MM-dd", "MM-dd"},
    FormatRow{"yy. d. M.", "d. M."},
    FormatRow{"y E", "E"},
    // The year between them.
    FormatRow{"MM/yyyy/dd", "MM/dd"},
    FormatRow{"d y M", "d M"},
    // The longest run counts, of at most four letters, even when a shorter run precedes it.
    FormatRow{"d yyyyy", "dy"},
    FormatRow{"yy M yyyy", "yy M"},
    // No year, or nothing but a year.
    FormatRow{"d MMM", "d MMM"},
    FormatRow{"yyyy", "yyyy"},
    FormatRow{"'y'", "'y'"},
    FormatRow{"", ""},
};

TEST(CVDateFormatWithoutYear, TakesTheYearOutOfAPercentStyleFormat) {
    for (const FormatRow& row : kPercentStyle)
        EXPECT_EQ(CVDateFormatWithoutYear(QLatin1String(row.format)), QLatin1String(row.withoutYear)) << row.format;
}

TEST(CVDateFormatWithoutYear, TakesTheYearOutOfAPatternStyleFormat) {
    for (const FormatRow& row : kPatternStyle)
        EXPECT_EQ(CVDateFormatWithoutYear(QLatin1String(row.format)), QLatin1String(row.withoutYear)) << row.format;
}

TEST(CVDateFormatWithoutYear, LeavesTextOfOtherScriptsAlone) {
    EXPECT_EQ(CVDateFormatWithoutYear(QStringLiteral("yyyy年M月d日")), QStringLiteral("M月d日"));
    EXPECT_EQ(CVDateFormatWithoutYear(QStringLiteral("d\u200f/M\u200f/yyyy")), QStringLiteral("d\u200f/M"));
}

} // namespace
