#include "contents/CVDuplicates.h"

#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

namespace {

using Entry = BudgetBuilder::Entry;

const Entry kShop{.date = day(2014, 3, 7), .amount = 10, .payTo = "Shop", .xfor = "milk", .categoryID = 1};

Entry with(void (*change)(Entry&)) {
    Entry entry = kShop;
    change(entry);
    return entry;
}

struct DuplicatesRow {
    const char* behaviour;
    std::vector<Entry> entries;
    /// The positions found, from the last pair to the first.
    std::vector<std::size_t> found;
};

class CVDuplicatesTest : public testing::TestWithParam<DuplicatesRow> {};

TEST_P(CVDuplicatesTest, AreTheLaterOfEqualNeighbours) {
    BudgetBuilder budget;
    for (const Entry& entry : GetParam().entries)
        budget.transaction(entry);
    CVTransactions expected;
    for (const std::size_t position : GetParam().found)
        expected.push_back(budget.transactionAt(position));
    EXPECT_EQ(CVFindDuplicates(budget.document().transactions()), expected) << GetParam().behaviour;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CVDuplicatesTest,
    testing::Values(
        DuplicatesRow{"nothing in an empty list", {}, {}}, DuplicatesRow{"nothing in a list of one", {kShop}, {}},
        DuplicatesRow{"the later of two", {kShop, kShop}, {1}},
        DuplicatesRow{"all but the first of a run", {kShop, kShop, kShop}, {2, 1}},
        DuplicatesRow{"not across another", {kShop, with([](Entry& e) { e.payTo = "Bank"; }), kShop}, {}},
        DuplicatesRow{"case of the payee counts", {kShop, with([](Entry& e) { e.payTo = "shop"; })}, {}},
        DuplicatesRow{"the remark counts", {kShop, with([](Entry& e) { e.xfor = "Milk"; })}, {}},
        DuplicatesRow{"amounts are exact", {kShop, with([](Entry& e) { e.amount = 10.004; })}, {}},
        DuplicatesRow{"the category counts", {kShop, with([](Entry& e) { e.categoryID = 2; })}, {}},
        DuplicatesRow{"the date counts", {kShop, with([](Entry& e) { e.date = day(2014, 3, 8); })}, {}},
        DuplicatesRow{"flags and set do not count",
                      {kShop, with([](Entry& e) {
                           e.taxFlag = e.userFlag = true;
                           e.setID = 4;
                       })},
                      {1}},
        DuplicatesRow{"a missing remark equals nothing",
                      {with([](Entry& e) { e.xfor = QString(); }), with([](Entry& e) { e.xfor = QString(); })},
                      {}},
        DuplicatesRow{
            "empty remarks are equal", {with([](Entry& e) { e.xfor = ""; }), with([](Entry& e) { e.xfor = ""; })}, {1}},
        DuplicatesRow{"a missing date equals nothing",
                      {with([](Entry& e) { e.date.reset(); }), with([](Entry& e) { e.date.reset(); })},
                      {}}));

} // namespace
