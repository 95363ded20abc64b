#include "budget/CVDateFormatWithoutYear.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct Row {
    const char* format;
    const char* withoutYear;
};

constexpr std::array kPercentStyle{
    // The year after day and month, in either order.
    Row{"%m/%d/%y", "%m/%d"},
    Row{"%d/%m/%y", "%d/%m"},
    Row{"%m/%d/%Y", "%m/%d"},
    Row{"%e. %m. %Y.", "%e. %m."},
    Row{"%1m/%e/%y", "%1m/%e"},
    Row{"%e/%1m/%y", "%e/%1m"},
    // The year between them.
    Row{"%m %y %d", "%m %d"},
    Row{"%d.%y.%m", "%d.%m"},
    // The year at the very start.
    Row{"%y-%m-%d", "%m-%d"},
    Row{"%Y/%e/%1m", "%e/%1m"},
    Row{"%Y", ""},
    Row{"%y!", "!"},
    // The year before both, but not at the very start.
    Row{" %y-%m-%d", " -%m-%d"},
    // Without a day, a month or both.
    Row{"%m/%y", "%m"},
    Row{"%d/%y", "%d"},
    Row{"(%y)", "()"},
    Row{"%B, %Y", "%B, "},
    Row{".%y.%m", "..%m"},
    Row{".%y.%d", "..%d"},
    // No year.
    Row{"%m/%d", "%m/%d"},
    Row{"%", "%"},
    // %d counts before %e and %m before %1m, wherever they stand.
    Row{"%e %m %d %y", "%e %m %d"},
    Row{"%1m %d %m %y", "%1m %d %m"},
};

constexpr std::array kPatternStyle{
    // The year last.
    Row{"M/d/yy", "M/d"},
    Row{"dd.MM.yyyy", "dd.MM"},
    Row{"dd.MM.yyy", "dd.MM"},
    Row{"d. M. y", "d. M"},
    Row{"EEE, d MMM yyyy", "EEE, d MMM"},
    Row{"dd/MM/yy.", "dd/MM."},
    // The year first.
    Row{"yyyy-MM-dd", "MM-dd"},
    Row{"yy. d. M.", "d. M."},
    Row{"y E", "E"},
    // The year between them.
    Row{"MM/yyyy/dd", "MM/dd"},
    Row{"d y M", "d M"},
    // The longest run of four at most counts, and counts before a shorter one that comes first.
    Row{"d yyyyy", "dy"},
    Row{"yy M yyyy", "yy M"},
    // No year, or nothing but a year.
    Row{"d MMM", "d MMM"},
    Row{"yyyy", "yyyy"},
    Row{"'y'", "'y'"},
    Row{"", ""},
};

TEST(CVDateFormatWithoutYear, TakesTheYearOutOfAPercentStyleFormat) {
    for (const Row& row : kPercentStyle)
        EXPECT_EQ(CVDateFormatWithoutYear(QLatin1String(row.format)), QLatin1String(row.withoutYear)) << row.format;
}

TEST(CVDateFormatWithoutYear, TakesTheYearOutOfAPatternStyleFormat) {
    for (const Row& row : kPatternStyle)
        EXPECT_EQ(CVDateFormatWithoutYear(QLatin1String(row.format)), QLatin1String(row.withoutYear)) << row.format;
}

TEST(CVDateFormatWithoutYear, LeavesTextOfOtherScriptsAlone) {
    EXPECT_EQ(CVDateFormatWithoutYear(QStringLiteral("yyyy年M月d日")), QStringLiteral("M月d日"));
    EXPECT_EQ(CVDateFormatWithoutYear(QStringLiteral("d\u200f/M\u200f/yyyy")), QStringLiteral("d\u200f/M"));
}

} // namespace
