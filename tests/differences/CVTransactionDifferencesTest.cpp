#include "differences/CVTransactionDifferences.h"

#include "differences/CVRecordMatching.h"
#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using Entry = BudgetBuilder::Entry;
using Entries = std::vector<Entry>;

struct DifferencesRow {
    const char* behaviour;
    Entries before;
    Entries after;
    /// "+ 30.00 Market" for each difference; a change names both amounts and payees.
    QStringList differences;
};

void PrintTo(const DifferencesRow& row, std::ostream* out) {
    *out << row.behaviour;
}

CVTransactions made(const Entries& entries) {
    CVTransactions transactions;
    for (const Entry& entry : entries)
        transactions.push_back(makeTransaction(entry));
    return transactions;
}

QString described(const CVTransaction& transaction) {
    return QString::number(transaction.amount(), 'f', 2) + ' ' + transaction.payTo();
}

QString described(const CVTransactionDifference& difference) {
    if (!difference.before)
        return "+ " + described(*difference.after);
    if (!difference.after)
        return "- " + described(*difference.before);
    return "~ " + described(*difference.before) + " > " + described(*difference.after);
}

/// Categories 1 and 2 of the earlier state are 1 and 5 of the later one.
QStringList differencesOf(const CVTransactions& before, const CVTransactions& after) {
    const CVRecordMatching categories({{1, "Food"}, {2, "Fuel"}, {3, "Gone"}}, {{1, "Food"}, {5, "Fuel"}, {3, "New"}},
                                      {});
    const CVRecordMatching sets({{1, "Checking"}}, {{1, "Checking"}}, {});
    QStringList texts;
    for (const auto& difference : CVFindTransactionDifferences(before, after, sets, categories).differences)
        texts.append(described(difference));
    return texts;
}

class CVTransactionDifferencesTest : public testing::TestWithParam<DifferencesRow> {};

TEST_P(CVTransactionDifferencesTest, Finds) {
    EXPECT_EQ(differencesOf(made(GetParam().before), made(GetParam().after)), GetParam().differences);
}

const Entry kMarket{.date = day(2014, 3, 7), .amount = 30, .payTo = "Market", .xfor = "bread", .categoryID = 1};
const Entry kBaker{.date = day(2014, 3, 6), .amount = 12.5, .payTo = "Baker", .xfor = "rolls", .categoryID = 1};

template <typename Change>
Entry changed(Entry entry, Change change) {
    change(entry);
    return entry;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CVTransactionDifferencesTest,
    testing::Values(
        DifferencesRow{"nothing in another order", {kMarket, kBaker}, {kBaker, kMarket}, {}},
        DifferencesRow{"one that was added", {kMarket}, {kMarket, kBaker}, {"+ 12.50 Baker"}},
        DifferencesRow{"one that was removed", {kMarket, kBaker}, {kBaker}, {"- 30.00 Market"}},
        DifferencesRow{
            "how often one is there", {kMarket}, {kMarket, kMarket, kMarket}, {"+ 30.00 Market", "+ 30.00 Market"}},
        DifferencesRow{"the newest first", {}, {kBaker, kMarket}, {"+ 30.00 Market", "+ 12.50 Baker"}},
        DifferencesRow{"a change of the amount",
                       {kMarket},
                       {changed(kMarket, [](Entry& e) { e.amount = 31; })},
                       {"~ 30.00 Market > 31.00 Market"}},
        DifferencesRow{"a change of the payee",
                       {kMarket},
                       {changed(kMarket, [](Entry& e) { e.payTo = "Shop"; })},
                       {"~ 30.00 Market > 30.00 Shop"}},
        DifferencesRow{"a change of payee and amount as two",
                       {kMarket},
                       {changed(kMarket,
                                [](Entry& e) {
                                    e.payTo = "Shop";
                                    e.amount = 1;
                                })},
                       {"- 30.00 Market", "+ 1.00 Shop"}},
        DifferencesRow{"a change of the day as two",
                       {kMarket},
                       {changed(kMarket, [](Entry& e) { e.date = day(2014, 3, 9); })},
                       {"+ 30.00 Market", "- 30.00 Market"}},
        DifferencesRow{"another set as two",
                       {kMarket},
                       {changed(kMarket, [](Entry& e) { e.setID = 1; })},
                       {"- 30.00 Market", "+ 30.00 Market"}},
        DifferencesRow{"a mark",
                       {kMarket},
                       {changed(kMarket, [](Entry& e) { e.taxFlag = true; })},
                       {"~ 30.00 Market > 30.00 Market"}},
        DifferencesRow{"no difference of less than a cent",
                       {kMarket},
                       {changed(kMarket, [](Entry& e) { e.amount = 30.001; })},
                       {}},
        DifferencesRow{"a category under its new ID as the same",
                       {changed(kMarket, [](Entry& e) { e.categoryID = 2; })},
                       {changed(kMarket, [](Entry& e) { e.categoryID = 5; })},
                       {}},
        DifferencesRow{"another category with the old ID as another",
                       {changed(kMarket, [](Entry& e) { e.categoryID = 3; })},
                       {changed(kMarket, [](Entry& e) { e.categoryID = 3; })},
                       {"~ 30.00 Market > 30.00 Market"}},
        DifferencesRow{
            "the texts before the amount",
            {kMarket},
            {changed(kMarket, [](Entry& e) { e.payTo = "Shop"; }), changed(kMarket, [](Entry& e) { e.amount = 1; })},
            {"~ 30.00 Market > 1.00 Market", "+ 30.00 Shop"}},
        DifferencesRow{
            "the same texts with the same amount first",
            {changed(kMarket, [](Entry& e) { e.amount = 1; }), changed(kMarket, [](Entry& e) { e.amount = 2; })},
            {changed(kMarket,
                     [](Entry& e) {
                         e.amount = 2;
                         e.taxFlag = true;
                     }),
             changed(kMarket,
                     [](Entry& e) {
                         e.amount = 1;
                         e.taxFlag = true;
                     })},
            {"~ 1.00 Market > 1.00 Market", "~ 2.00 Market > 2.00 Market"}},
        DifferencesRow{"no sign of zero",
                       {changed(kMarket, [](Entry& e) { e.amount = -0.001; })},
                       {changed(kMarket, [](Entry& e) { e.amount = 0; })},
                       {}},
        DifferencesRow{"a text that is there but empty",
                       {changed(kMarket, [](Entry& e) { e.payTo = QString(); })},
                       {changed(kMarket, [](Entry& e) { e.payTo = ""; })},
                       {"~ 30.00  > 30.00 "}},
        DifferencesRow{
            "one without a day", {changed(kMarket, [](Entry& e) { e.date = {}; })}, {}, {"- 30.00 Market"}}));

} // namespace
