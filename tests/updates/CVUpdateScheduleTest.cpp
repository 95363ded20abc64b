#include "updates/CVUpdateSchedule.h"

#include "kit/Day.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* what;
    int frequency;
    std::optional<QBDate> last;
    bool isDue;
};

const QBDate kToday = day(2014, 3, 31);

const Row kRows[] = {
    {"never, and never checked", 0, {}, false},
    {"never", 0, day(2000, 1, 1), false},
    {"never checked", 1, {}, true},
    {"never checked, a frequency that there is not", 9, {}, true},
    {"daily: a second start on the same day", 1, day(2014, 3, 31), false},
    {"daily: the first start on the next day", 1, day(2014, 3, 30), true},
    {"daily: a clock that was turned back", 1, day(2014, 4, 1), false},
    {"weekly: seven days ago", 2, day(2014, 3, 24), false},
    {"weekly: more than seven days ago", 2, day(2014, 3, 23), true},
    // A month before 31 March is 31 February, which counts as 3 March.
    {"monthly: on the day a month ago", 3, day(2014, 3, 3), false},
    {"monthly: the day before", 3, day(2014, 3, 2), true},
    {"a frequency that there is not", 4, day(2000, 1, 1), false},
    {"a negative frequency", -1, day(2000, 1, 1), false},
};

TEST(CVUpdateSchedule, ACheckIsDueAtTheFirstStartBehindTheThreshold) {
    for (const Row& row : kRows)
        EXPECT_EQ(CVUpdateIsDue(row.last, kToday, row.frequency), row.isDue) << row.what;
}

} // namespace
