#include "versions/CVDueVersion.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using Reason = CVVersionReason;

const QDateTime kMoment(QDate(2026, 11, 22), QTime(14, 0));

struct DueRow {
    const char* name;
    std::optional<Reason> asked;
    QDateTime written;
    std::optional<CVVersionName> newest;
    std::optional<Reason> due;
};

void PrintTo(const DueRow& row, std::ostream* out) {
    *out << row.name;
}

CVVersionName kept(int secondsAgo, Reason reason = Reason::Hourly) {
    return {kMoment.addSecs(-secondsAgo), 1, reason};
}

class CVDueVersionTest : public testing::TestWithParam<DueRow> {};

TEST_P(CVDueVersionTest, isDue) {
    const DueRow& row = GetParam();
    EXPECT_EQ(CVDueVersion(row.asked, row.written, row.newest, kMoment), row.due);
}

const QDateTime kJustNow = kMoment.addSecs(-10);
const QDateTime kYesterday = kMoment.addDays(-1);

const DueRow kRows[]{
    {"nothing is asked for within the hour", {}, kJustNow, kept(3599), {}},
    {"an hour after the newest", {}, kJustNow, kept(3600), Reason::Hourly},
    {"the first change of a day", {}, kYesterday, kept(86400), Reason::FirstOfDay},
    {"a file server's clock a day off", {}, kYesterday, kept(10), {}},
    {"after an interruption", {}, kYesterday, kept(10, Reason::Interruption), Reason::FirstOfDay},
    {"the first change after midnight",
     {},
     QDateTime(QDate(2026, 11, 21), QTime(23, 59, 59)),
     kept(50500),
     Reason::FirstOfDay},
    {"where there is none", {}, kJustNow, {}, Reason::FirstOfDay},
    {"a removal", Reason::Removal, kJustNow, kept(10), Reason::Removal},
    {"a removal within a minute of one", Reason::Removal, kJustNow, kept(59, Reason::Removal), {}},
    {"a removal a minute after one", Reason::Removal, kJustNow, kept(60, Reason::Removal), Reason::Removal},
    {"a removal soon after clearing", Reason::Removal, kJustNow, kept(1, Reason::Clearing), Reason::Removal},
    {"a deletion soon after a removal", Reason::Deletion, kJustNow, kept(1, Reason::Removal), Reason::Deletion},
    {"a second deletion", Reason::Deletion, kJustNow, kept(1, Reason::Deletion), Reason::Deletion},
    {"clearing on a new day", Reason::Clearing, kYesterday, kept(10), Reason::Clearing},
    {"removals around midnight", Reason::Removal, kYesterday, kept(10, Reason::Removal), {}},
};

INSTANTIATE_TEST_SUITE_P(all, CVDueVersionTest, testing::ValuesIn(kRows));

} // namespace
