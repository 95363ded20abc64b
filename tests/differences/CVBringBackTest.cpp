#include "differences/CVBringBack.h"

#include "BroughtBack.h"
#include "UsualBudget.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct BringBackRow {
    const char* behaviour;
    void (*version)(BudgetBuilder& budget);
    void (*present)(BudgetBuilder& budget);
    QStringList entries;
    QStringList sets = {"1 Checking", "2 Cash"};
    QStringList categories = {"3 Food 200", "4 Fuel 0", "5 Rent 0"};
};

void PrintTo(const BringBackRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class CVBringBackTest : public testing::TestWithParam<BringBackRow> {};

TEST_P(CVBringBackTest, BringsBackTheTransactions) {
    BudgetBuilder version;
    GetParam().version(version);
    BudgetBuilder present;
    GetParam().present(present);
    CVBudgetDifferences chosen = differencesTo(version, present);
    chosen.sets.clear();
    chosen.categories.clear();
    const quint32 shown = present.document().currentTransactionSet();
    EXPECT_EQ(CVBringBack(present.document(), version.document(), chosen), 1);
    EXPECT_EQ(entriesOf(present.document()), GetParam().entries);
    EXPECT_EQ(setsOf(present.document()), GetParam().sets);
    EXPECT_EQ(categoriesOf(present.document()), GetParam().categories);
    EXPECT_EQ(present.document().currentTransactionSet(), shown);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CVBringBackTest,
    testing::Values(BringBackRow{"into its own set, which is not the shown one",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market("Cash"));
                                 },
                                 [](BudgetBuilder& b) { usual(b); },
                                 {"Cash/Food Market 30.00"}},
                    BringBackRow{"into a set that was renamed since",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market("Cash"));
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.setNamed("Cash")->setTransactionSetName("Purse");
                                 },
                                 {"Purse/Food Market 30.00"},
                                 {"1 Checking", "2 Purse"}},
                    BringBackRow{"into a set that is gone, which returns with its ID",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.set("Old", 9).transaction(market("Old"));
                                 },
                                 [](BudgetBuilder& b) { usual(b); },
                                 {"Old/Food Market 30.00"},
                                 {"1 Checking", "2 Cash", "9 Old"}},
                    BringBackRow{
                        "into a set that is gone and whose ID another has, which the version did not know as its own",
                        [](BudgetBuilder& b) { b.set("Old", 9).category("X", 1).transaction(market("Old", "X")); },
                        [](BudgetBuilder& b) { b.set("New", 9).currentSet(9).category("Y", 2).lastID(20); },
                        {"Old/X Market 30.00"},
                        {"9 New", "21 Old"},
                        {"1 X 0", "2 Y 0"}},
                    BringBackRow{"into a category that is gone, which returns with its plan and its ID",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.document().removeCategory(b.categoryNamed("Food"));
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"3 Food 200", "4 Fuel 0", "5 Rent 0"}},
                    BringBackRow{"into a category that is gone and whose ID another has",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.document().removeCategory(b.categoryNamed("Food"));
                                     b.category("Toys", 3);
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"21 Food 200", "4 Fuel 0", "5 Rent 0", "3 Toys 0"}},
                    BringBackRow{"into the category of that name beside one that was renamed since",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.categoryNamed("Food")->setCategoryName("Groceries");
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"21 Food 200", "4 Fuel 0", "3 Groceries 200", "5 Rent 0"}},
                    BringBackRow{"into the category of that name under another ID, whose plan stays",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.document().removeCategory(b.categoryNamed("Food"));
                                     b.category("Food", 8, CVExpenseFrequency::kWeekly, 7);
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"8 Food 7", "4 Fuel 0", "5 Rent 0"}},
                    BringBackRow{"not into a category whose name has other capitals",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.document().removeCategory(b.categoryNamed("Food"));
                                     b.category("FOOD", 8);
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"8 FOOD 0", "3 Food 200", "4 Fuel 0", "5 Rent 0"}},
                    BringBackRow{"one of two equal ones",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market()).transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 {"Checking/Food Market 30.00", "Checking/Food Market 30.00"}},
                    BringBackRow{"what a changed one said",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     BudgetBuilder::Entry changed = market("Checking", "Fuel");
                                     changed.amount = 31;
                                     b.transaction(changed);
                                 },
                                 {"Checking/Food Market 30.00"}},
                    BringBackRow{"and leaves what was added since",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     BudgetBuilder::Entry added = market();
                                     added.date = day(2014, 3, 9);
                                     b.transaction(added);
                                 },
                                 {"Checking/Food Market 30.00", "Checking/Food Market 30.00"}},
                    BringBackRow{"one without set and category",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction({.payTo = "Market", .categoryID = 90, .setID = 91});
                                 },
                                 [](BudgetBuilder& b) { usual(b); },
                                 {"-/- Market 0.00"}},
                    BringBackRow{"one without a category whose ID a category has by now",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction({.payTo = "Market", .categoryID = 8, .setID = 1});
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.category("Toys", 8);
                                 },
                                 {"Checking/- Market 0.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"3 Food 200", "4 Fuel 0", "5 Rent 0", "8 Toys 0"}}));

} // namespace
