#include "importing/CVFindRecorded.h"

#include "importing/CVRecordedLines.h"
#include "kit/BudgetBuilder.h"
#include "kit/RandomBudget.h"

#include <gtest/gtest.h>

#include <ostream>
#include <set>

namespace {

struct RecordedEntry {
    int dayOfMonth;
    double amount;
    const char* payee;
    quint32 set = 1;
};

struct SoughtEntry {
    int dayOfMonth;
    qint64 hundredths;
    const char* payee;
    bool isCertain = false;
    std::optional<quint32> setOfOtherSide = {};
};

/// What is expected for a line: the place of the transaction, or of its first part, among those of the row, or -1.
struct ExpectedLine {
    int recorded;
    bool hasSamePayee = false;
    std::size_t parts = 1;
};

struct FindRow {
    const char* behaviour;
    std::vector<RecordedEntry> recorded;
    std::vector<SoughtEntry> lines;
    std::vector<ExpectedLine> found;
};

void PrintTo(const FindRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class CVFindRecordedTest : public testing::TestWithParam<FindRow> {};

TEST_P(CVFindRecordedTest, Finds) {
    BudgetBuilder budget;
    budget.set("Checking", 1).set("Cash", 2).currentSet(1);
    for (const RecordedEntry& entry : GetParam().recorded)
        budget.transaction(
            {.date = day(2026, 3, entry.dayOfMonth), .amount = entry.amount, .payTo = entry.payee, .setID = entry.set});
    const CVRecordedLines recorded(budget.document());
    std::vector<CVSoughtLine> lines;
    for (const SoughtEntry& entry : GetParam().lines)
        lines.push_back({day(2026, 3, entry.dayOfMonth), entry.hundredths, entry.payee, entry.payee, 1,
                         entry.setOfOtherSide, entry.isCertain});
    const auto found = CVFindRecorded(lines, recorded);
    ASSERT_EQ(found.size(), GetParam().found.size());
    for (std::size_t at = 0; at < found.size(); ++at) {
        const auto& [place, hasSamePayee, parts] = GetParam().found[at];
        EXPECT_EQ(found[at].recorded.empty() ? -1 : static_cast<int>(found[at].recorded.front()), place) << at;
        EXPECT_EQ(found[at].recorded.size(), place < 0 ? 0 : parts) << at;
        EXPECT_EQ(found[at].hasSamePayee, hasSamePayee) << at;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CVFindRecordedTest,
    testing::Values(
        FindRow{"the same payee of the same day", {{10, 12.5, "Market"}}, {{10, 1250, "Market"}}, {{0, true}}},
        FindRow{"another spelling of the payee", {{10, 12.5, "Market"}}, {{10, 1250, "MARKET 4711"}}, {{0, true}}},
        FindRow{"a payee that is like",
                {{10, 12.5, "Green Valley Foods"}},
                {{10, 1250, "GREEN VALLEY FOODS SPRINGFIELD"}},
                {{0, true}}},
        FindRow{"another payee", {{10, 12.5, "Market"}}, {{10, 1250, "Salon"}}, {{0, false}}},
        FindRow{"a payee that was left empty", {{10, 12.5, ""}}, {{10, 1250, "Salon"}}, {{0, false}}},
        FindRow{"none of another amount", {{10, 12.5, "Market"}}, {{10, 1251, "Market"}}, {{-1}}},
        FindRow{"none of the other sign", {{10, 12.5, "Market"}}, {{10, -1250, "Market"}}, {{-1}}},
        FindRow{"none of another set", {{10, 12.5, "Market", 2}}, {{10, 1250, "Market"}}, {{-1}}},
        FindRow{"one four days before", {{6, 12.5, "Market"}}, {{10, 1250, "Market"}}, {{0, true}}},
        FindRow{"one four days behind", {{14, 12.5, "Market"}}, {{10, 1250, "Market"}}, {{0, true}}},
        FindRow{"none five days before", {{5, 12.5, "Market"}}, {{10, 1250, "Market"}}, {{-1}}},
        FindRow{"none five days behind", {{15, 12.5, "Market"}}, {{10, 1250, "Market"}}, {{-1}}},
        FindRow{"each transaction once",
                {{10, 12.5, "Market"}},
                {{10, 1250, "Market"}, {10, 1250, "Market"}},
                {{0, true}, {-1}}},
        FindRow{"that of the same day before one of another",
                {{9, 12.5, "Market"}, {10, 12.5, "Market"}},
                {{10, 1250, "Market"}, {9, 1250, "Market"}},
                {{1, true}, {0, true}}},
        FindRow{"for a later line of the same day before an earlier one of another day",
                {{10, 12.5, "Market"}},
                {{9, 1250, "Market"}, {10, 1250, "Market"}},
                {{-1}, {0, true}}},
        FindRow{
            "the nearer of two days", {{12, 12.5, "Market"}, {9, 12.5, "Market"}}, {{10, 1250, "Market"}}, {{1, true}}},
        FindRow{"the earlier of two days as near",
                {{11, 12.5, "Market"}, {9, 12.5, "Market"}},
                {{10, 1250, "Market"}},
                {{1, true}}},
        FindRow{"the same payee of another day before another payee of the day",
                {{10, 12.5, "Salon"}, {8, 12.5, "Market"}},
                {{10, 1250, "Market"}},
                {{1, true}}},
        FindRow{"the same payee before one that is like",
                {{10, 12.5, "Green Valley Foods Lake"}, {9, 12.5, "Green Valley Foods"}},
                {{10, 1250, "GREEN VALLEY FOODS"}},
                {{1, true}}},
        FindRow{"the likest payee of a day",
                {{10, 12.5, "Green Valley"}, {10, 12.5, "Green Valley Foods"}},
                {{10, 1250, "GREEN VALLEY FOODS SPRINGFIELD"}},
                {{1, true}}},
        FindRow{"the likest payee of a day, in the other order",
                {{10, 12.5, "Green Valley Foods"}, {10, 12.5, "Green Valley"}},
                {{10, 1250, "GREEN VALLEY FOODS SPRINGFIELD"}},
                {{0, true}}},
        FindRow{"for a line that is certain before one that looks like it",
                {{10, 12.5, "Market"}},
                {{10, 1250, "Market"}, {9, 1250, "Market", true}},
                {{-1}, {0, true}}},
        FindRow{"no other payee for a line that is certain",
                {{10, 12.5, "Salon"}},
                {{10, 1250, "Market", true}, {10, 1250, "Salon"}},
                {{-1}, {0, true}}},
        FindRow{"no other payee for a line that is certain, where no line has it",
                {{10, 12.5, "Salon"}},
                {{10, 1250, "Market", true}},
                {{-1}}},
        FindRow{"all of several as one",
                {{10, 5, "Bus"}, {10, 5, "Bus"}, {10, 5, "Bus"}},
                {{10, 500, "Bus"}, {10, 500, "Bus"}, {10, 500, "Bus"}, {10, 500, "Bus"}},
                {{0, true}, {1, true}, {2, true}, {-1}}},
        FindRow{"an amount that has no exact double", {{10, 0.29, "Bus"}}, {{10, 29, "Bus"}}, {{0, true}}},
        FindRow{"a refund", {{10, -4.35, "Bus"}}, {{10, -435, "Bus"}}, {{0, true}}},
        FindRow{"a refund on the other side",
                {{10, -4.35, "Bus", 2}},
                {{10, 435, "Bus", false, 2}, {10, 435, "Bus", false, 2}},
                {{0, true}, {-1}}},
        FindRow{
            "none on the other side with the same sign", {{10, 4.35, "Bus", 2}}, {{10, 435, "Bus", false, 2}}, {{-1}}},
        FindRow{"that of its own side before one of the other",
                {{10, -4.35, "Bus", 2}, {10, 4.35, "Bus"}},
                {{10, 435, "Bus", false, 2}},
                {{1, true}}},
        FindRow{"the parts of one day and payee",
                {{9, 60, "Market"}, {9, 40, "Market"}},
                {{10, 10000, "MARKET 12"}},
                {{0, true, 2}}},
        FindRow{"parts of a payee that is like",
                {{9, 60, "Green Valley Foods"}, {9, 40, "Green Valley Foods"}},
                {{10, 10000, "GREEN VALLEY FOODS SPRINGFIELD"}},
                {{0, true, 2}}},
        FindRow{"parts of which one is negative",
                {{10, 110, "Market"}, {10, -10, "Market"}},
                {{10, 10000, "Market"}},
                {{0, true, 2}}},
        FindRow{"parts on the other side",
                {{10, -60, "Market", 2}, {10, -40, "Market", 2}},
                {{10, 10000, "Market", false, 2}},
                {{0, true, 2}}},
        FindRow{"those parts that add up",
                {{10, 7, "Market"}, {10, 60, "Market"}, {10, 40, "Market"}},
                {{10, 10000, "Market"}},
                {{1, true, 2}}},
        FindRow{"no parts of several days", {{9, 60, "Market"}, {10, 40, "Market"}}, {{10, 10000, "Market"}}, {{-1}}},
        FindRow{"no parts of several payees", {{10, 60, "Market"}, {10, 40, "Salon"}}, {{10, 10000, "Market"}}, {{-1}}},
        FindRow{"no parts of another payee", {{10, 60, "Salon"}, {10, 40, "Salon"}}, {{10, 10000, "Market"}}, {{-1}}},
        FindRow{
            "no parts of another set", {{10, 60, "Market", 2}, {10, 40, "Market", 2}}, {{10, 10000, "Market"}}, {{-1}}},
        FindRow{"no parts five days before", {{5, 60, "Market"}, {5, 40, "Market"}}, {{10, 10000, "Market"}}, {{-1}}},
        FindRow{"no parts that other lines have",
                {{10, 60, "Market"}, {10, 40, "Market"}},
                {{10, 10000, "Market"}, {10, 6000, "Market"}},
                {{-1}, {0, true}}},
        FindRow{"parts once",
                {{10, 60, "Market"}, {10, 40, "Market"}},
                {{10, 10000, "Market"}, {10, 10000, "Market"}, {10, 6000, "Salon"}},
                {{0, true, 2}, {-1}, {-1}}},
        FindRow{"parts before a transaction of another payee",
                {{10, 100, "Salon"}, {10, 60, "Market"}, {10, 40, "Market"}},
                {{10, 10000, "Market"}},
                {{1, true, 2}}}));

TEST(CVFindRecorded, PassesOverWhatHasNoDay) {
    BudgetBuilder budget;
    budget.transaction({.amount = 5, .payTo = "Bus", .setID = 1});
    const CVRecordedLines recorded(budget.document());
    EXPECT_TRUE(CVFindRecorded({{day(2026, 3, 1), 500, "Bus", "Bus", 1}}, recorded).front().recorded.empty());
    EXPECT_TRUE(CVFindRecorded({{std::nullopt, 500, "Bus", "Bus", 1}}, recorded).front().recorded.empty());
}

TEST(CVFindRecorded, KnowsAPayeeUnderBothNames) {
    for (const char* payee : {"Amber Books", "AMB MKTPLC 77"}) {
        BudgetBuilder budget;
        budget.transaction({.date = day(2026, 3, 1), .amount = 5, .payTo = payee, .setID = 1});
        const CVRecordedLines recorded(budget.document());
        EXPECT_TRUE(
            CVFindRecorded({{day(2026, 3, 1), 500, "Amber Books", "AMB MKTPLC 12", 1}}, recorded).front().hasSamePayee)
            << payee;
    }
}

TEST(CVFindRecorded, PrefersTheNameInTheStatementToOneThatIsLike) {
    BudgetBuilder budget;
    budget.transaction({.date = day(2026, 3, 10), .amount = 5, .payTo = "Amber Books Lake", .setID = 1});
    budget.transaction({.date = day(2026, 3, 9), .amount = 5, .payTo = "AMB MKTPLC 77", .setID = 1});
    const CVRecordedLines recorded(budget.document());
    EXPECT_EQ(CVFindRecorded({{day(2026, 3, 10), 500, "Amber Books", "AMB MKTPLC 12", 1}}, recorded).front().recorded,
              std::vector<std::size_t>{1});
}

qint64 daysBetween(const QBDate& a, const QBDate& b) {
    qint64 days = 0;
    a.yearsMonthsDaysSinceDate(nullptr, nullptr, &days, b);
    return days < 0 ? -days : days;
}

bool isNear(const CVSoughtLine& line, const CVRecordedLine& recorded) {
    return recorded.day && line.set == recorded.set && daysBetween(*line.day, *recorded.day) <= 4;
}

bool canBe(const CVSoughtLine& line, const CVRecordedLine& recorded) {
    return isNear(line, recorded) && recorded.hundredths == line.hundredths;
}

/// Whatever a budget and a statement hold: no transaction counts twice, each found one can be it, and none is left for
/// a line that found none, unless it is known to be another one.
TEST(CVFindRecorded, MatchesRandomLinesWithOneTransactionEach) {
    int matches = 0;
    for (quint32 seed = 1; seed <= 300; ++seed) {
        RandomBudget random(seed);
        for (const auto& transaction : random.document().transactions())
            transaction->setAmount(random.below(4));
        const CVRecordedLines recorded(random.document());
        std::vector<CVSoughtLine> lines;
        for (quint32 left = random.below(30); left > 0; --left)
            lines.push_back({random.date().value_or(day(2014, 2, 26)),
                             100 * random.below(4),
                             random.text(),
                             random.text(),
                             random.recordID(),
                             {},
                             random.oneIn(10)});
        const auto found = CVFindRecorded(lines, recorded);
        std::set<std::size_t> taken;
        for (std::size_t at = 0; at < lines.size(); ++at) {
            if (found[at].recorded.empty())
                continue;
            ++matches;
            qint64 sum = 0;
            for (const std::size_t place : found[at].recorded) {
                EXPECT_TRUE(taken.insert(place).second) << seed;
                EXPECT_TRUE(isNear(lines[at], recorded.lines()[place])) << seed;
                sum += *recorded.lines()[place].hundredths;
            }
            EXPECT_EQ(sum, lines[at].hundredths) << seed;
        }
        for (std::size_t at = 0; at < lines.size(); ++at) {
            if (lines[at].isCertain || !found[at].recorded.empty())
                continue;
            for (std::size_t place = 0; place < recorded.lines().size(); ++place)
                EXPECT_TRUE(taken.contains(place) || !canBe(lines[at], recorded.lines()[place])) << seed;
        }
    }
    EXPECT_GT(matches, 200);
}

} // namespace
