#include "differences/CVRecordMatching.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using Records = std::vector<CVRecordMatching::Record>;
using IDs = std::unordered_set<quint32>;

struct MatchingRow {
    const char* behaviour;
    Records before;
    Records after;
    IDs common;
    /// "1>2" for each pair, by ID; a missing record is "-".
    QString pairs;
};

void PrintTo(const MatchingRow& row, std::ostream* out) {
    *out << row.behaviour;
}

QString idOf(const Records& records, std::optional<std::size_t> place) {
    return place ? QString::number(records[*place].id) : QStringLiteral("-");
}

class CVRecordMatchingTest : public testing::TestWithParam<MatchingRow> {};

TEST_P(CVRecordMatchingTest, Pairs) {
    const MatchingRow& row = GetParam();
    const CVRecordMatching matching(row.before, row.after, row.common);
    QStringList pairs;
    for (const auto& pair : matching.pairs())
        pairs.append(idOf(row.before, pair.before) + '>' + idOf(row.after, pair.after));
    EXPECT_EQ(pairs.join(' '), row.pairs);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CVRecordMatchingTest,
    testing::Values(MatchingRow{"the same", {{1, "Food"}, {2, "Fuel"}}, {{2, "Fuel"}, {1, "Food"}}, {}, "1>1 2>2"},
                    MatchingRow{"added and removed", {{1, "Food"}}, {{2, "Fuel"}}, {1}, "1>- ->2"},
                    MatchingRow{"renamed since the common state", {{1, "Food"}}, {{1, "Groceries"}}, {1}, "1>1"},
                    MatchingRow{"another record with the same ID", {{1, "Food"}}, {{1, "Rent"}}, {}, "1>- ->1"},
                    MatchingRow{"the same name under another ID", {{1, "Food"}}, {{7, "Food"}}, {}, "1>7"},
                    MatchingRow{"a renamed one keeps its ID although its old name is used again",
                                {{1, "Food"}},
                                {{1, "Groceries"}, {2, "Food"}},
                                {1},
                                "1>1 ->2"},
                    MatchingRow{"ID and name go before the name alone",
                                {{1, "Food"}, {2, "Food"}},
                                {{2, "Food"}, {3, "Food"}},
                                {},
                                "1>3 2>2"},
                    MatchingRow{"names that swapped", {{1, "A"}, {2, "B"}}, {{1, "B"}, {2, "A"}}, {1, 2}, "1>1 2>2"},
                    MatchingRow{"names that swapped in files of different origin",
                                {{1, "A"}, {2, "B"}},
                                {{1, "B"}, {2, "A"}},
                                {},
                                "1>2 2>1"},
                    MatchingRow{"case counts", {{1, "food"}}, {{2, "Food"}}, {}, "1>- ->2"}));

TEST(CVRecordMatching, TellsWhatTheLaterStateCallsAnID) {
    const CVRecordMatching matching({{1, "Food"}, {2, "Fuel"}, {3, "Gone"}, {4, "Left"}},
                                    {{1, "Food"}, {9, "Fuel"}, {3, "New"}}, {});
    EXPECT_EQ(matching.idAfter(1), 1U);
    EXPECT_EQ(matching.idAfter(2), 9U);
    EXPECT_EQ(matching.idAfter(3), std::nullopt) << "another record has the ID";
    EXPECT_EQ(matching.idAfter(4), 4U) << "nothing has the ID any more";
    EXPECT_EQ(matching.idAfter(70), 70U) << "nothing ever had it";
    EXPECT_EQ(matching.idAfter(9), std::nullopt) << "only the later state has it";
    const CVRecordMatching sets({{1, "Checking"}, {3, "Gone"}}, {{1, "Checking"}, {0, "Initial"}, {3, "New"}}, {},
                                CVRecordMatching::WithoutRecord::MeansTheLaterOne);
    EXPECT_EQ(sets.idAfter(0), 0U) << "a set is made for what had none";
    EXPECT_EQ(sets.idAfter(3), std::nullopt);
}

} // namespace
