#include "differences/CVMergeBudgets.h"

#include "MergedRecordsFixture.h"
#include "PlainMerge.h"
#include "UsualBudget.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>

namespace {

struct CountsRow {
    int common;
    int ours;
    int theirs;
    int merged;
};

void PrintTo(const CountsRow& row, std::ostream* out) {
    *out << "b " << row.common << ", o " << row.ours << ", t " << row.theirs << " gives " << row.merged;
}

class MergedCounts : public testing::TestWithParam<CountsRow> {};

TEST_P(MergedCounts, OfOneContent) {
    BudgetBuilder common;
    BudgetBuilder ours;
    BudgetBuilder theirs;
    const std::array<std::pair<BudgetBuilder*, int>, 3> sides{
        {{&common, GetParam().common}, {&ours, GetParam().ours}, {&theirs, GetParam().theirs}}};
    for (const auto& [budget, count] : sides) {
        usual(*budget);
        for (int i = 0; i < count; ++i)
            budget->transaction(purchaseOf(30));
    }
    const auto merged = CVMergeBudgets(&common.document(), ours.document(), theirs.document());
    EXPECT_EQ((*merged.budget)->transactions().size(), static_cast<std::size_t>(GetParam().merged));
}

INSTANTIATE_TEST_SUITE_P(Rows, MergedCounts,
                         testing::Values(CountsRow{0, 0, 1, 1}, CountsRow{0, 1, 1, 1}, CountsRow{0, 1, 2, 2},
                                         CountsRow{1, 2, 4, 4}, CountsRow{2, 1, 1, 1}, CountsRow{3, 2, 0, 0},
                                         CountsRow{1, 0, 0, 0}, CountsRow{1, 1, 0, 0}, CountsRow{2, 3, 1, 2},
                                         CountsRow{1, 0, 3, 2}, CountsRow{1, 1, 1, 1}));

TEST(CVMergeBudgetsTest, ALineThatWasChangedDifferentlyOnBothSidesStaysTwiceAndIsNamed) {
    BudgetBuilder common;
    BudgetBuilder ours;
    BudgetBuilder theirs;
    for (const auto& [budget, amount] : {std::pair(&common, 30.0), std::pair(&ours, 31.0), std::pair(&theirs, 32.0)}) {
        usual(*budget);
        budget->transaction(purchaseOf(amount)).transaction(purchaseOf(5, "Baker"));
    }
    const auto merged = CVMergeBudgets(&common.document(), ours.document(), theirs.document());
    EXPECT_EQ(plainResult(**merged.budget).lines.filter("Market").size(), 2);
    ASSERT_EQ(merged.transactions.size(), 1U);
    EXPECT_EQ(merged.transactions[0].ours->amount(), 31);
    EXPECT_EQ(merged.transactions[0].theirs->amount(), 32);
    EXPECT_EQ(merged.transactions[0].theirs->document(), &**merged.budget);
}

TEST(CVMergeBudgetsTest, ALineThatWasChangedAlikeOnBothSidesStandsOnceAndIsNotNamed) {
    BudgetBuilder common;
    BudgetBuilder ours;
    BudgetBuilder theirs;
    for (const auto& [budget, amount] : {std::pair(&common, 30.0), std::pair(&ours, 31.0), std::pair(&theirs, 31.0)}) {
        usual(*budget);
        budget->transaction(purchaseOf(amount));
    }
    const auto merged = CVMergeBudgets(&common.document(), ours.document(), theirs.document());
    EXPECT_EQ((*merged.budget)->transactions().size(), 1U);
    EXPECT_TRUE(merged.transactions.empty());
}

class MergedRecordsTest : public MergedRecordsFixture {};

TEST_F(MergedRecordsTest, NameAndPlanThatOnlyOneSideHasChangedCount) {
    mOurs.categoryNamed("Food")->setCategoryName("Groceries");
    mTheirs.categoryNamed("Food")->setExpenseTarget(250);
    mTheirs.setNamed("Cash")->setTransactionSetName("Purse");
    merge();
    EXPECT_EQ(categories(), (QStringList{"4 Fuel 0", "3 Groceries 250", "5 Rent 0"}));
    EXPECT_EQ(sets(), (QStringList{"1 Checking", "2 Purse"}));
    EXPECT_TRUE(mMerged.categories.empty());
}

TEST_F(MergedRecordsTest, WhatBothHaveChangedDifferentlyStaysOursAndIsNamed) {
    mOurs.categoryNamed("Food")->setExpenseTarget(300);
    mTheirs.categoryNamed("Food")->setExpenseTarget(250);
    mOurs.setNamed("Cash")->setTransactionSetName("Wallet");
    mTheirs.setNamed("Cash")->setTransactionSetName("Purse");
    merge();
    EXPECT_EQ(categories(), (QStringList{"3 Food 300", "4 Fuel 0", "5 Rent 0"}));
    ASSERT_EQ(mMerged.categories.size(), 1U);
    EXPECT_EQ(mMerged.categories[0].theirs->expenseTarget(), 250);
    ASSERT_EQ(mMerged.sets.size(), 1U);
    EXPECT_EQ(mMerged.sets[0].ours->transactionSetName(), "Wallet");
    EXPECT_EQ(mMerged.sets[0].theirs->transactionSetName(), "Purse");
}

TEST_F(MergedRecordsTest, WhatTheyRemovedGoesUnlessWeUseOrHaveChangedIt) {
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Food"));
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Fuel"));
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Rent"));
    mTheirs.category("Other", 9);
    mOurs.categoryNamed("Food")->setExpenseTarget(1);
    mOurs.transaction(purchaseOf(7, "Station", "Fuel"));
    // Half of the categories of the common state are there, so that it counts as theirs.
    for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
        budget->category("A", 11).category("B", 12).category("C", 13);
    merge();
    EXPECT_EQ(categories(), (QStringList{"11 A 0", "12 B 0", "13 C 0", "3 Food 1", "4 Fuel 0", "9 Other 0"}));
}

TEST_F(MergedRecordsTest, ASetThatTheyRemovedGoesWithItsLinesButNotTheShownOne) {
    for (BudgetBuilder* const budget : {&mCommon, &mOurs})
        budget->transaction({.date = day(2014, 3, 7), .payTo = "Kiosk", .category = "Food", .set = "Cash"});
    mTheirs.document().transactionSets().clear();
    mTheirs.set("New", 30);
    merge();
    EXPECT_EQ(sets(), (QStringList{"1 Checking", "30 New"}));
    EXPECT_TRUE((*mMerged.budget)->transactions().empty());
}

TEST_F(MergedRecordsTest, ANewRecordOfTheirsWhoseIDIsTakenGetsAnotherAndItsLinesFollow) {
    mOurs.category("Toys", 21).lastID(21).transaction(purchaseOf(1, "Shop", "Toys"));
    mTheirs.category("Garden", 21).lastID(21).transaction(purchaseOf(2, "Nursery", "Garden"));
    merge();
    EXPECT_EQ(categories(),
              (QStringList{"3 Food 200", "4 Fuel 0", QString::number((*mMerged.budget)->uniqueID()) + " Garden 0",
                           "5 Rent 0", "21 Toys 0"}));
    const QStringList lines = plainResult(**mMerged.budget).lines;
    EXPECT_EQ(lines.filter("Checking/Garden|").filter("Nursery").size(), 1);
    EXPECT_EQ(lines.filter("Checking/Toys|").filter("Shop").size(), 1);
}

TEST_F(MergedRecordsTest, WhatBothHaveAddedUnderOneNameIsOne) {
    mOurs.category("Toys", 21).lastID(21).transaction(purchaseOf(1, "Shop", "Toys"));
    mTheirs.category("Garden", 21).category("Toys", 22).lastID(22).transaction(purchaseOf(1, "Shop", "Toys"));
    merge();
    EXPECT_EQ(plainResult(**mMerged.budget).lines.size(), 1);
    EXPECT_EQ(categories().filter("Toys"), QStringList{"21 Toys 0"});
}

TEST_F(MergedRecordsTest, OurTransactionsWithoutACategoryDoNotFallIntoANewOneOfTheirs) {
    BudgetBuilder::Entry without = purchaseOf(1, "Shop", {});
    without.categoryID = 21;
    for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
        budget->transaction(without);
    mTheirs.document().transactions()[0]->setCategoryID(99);
    mTheirs.category("Garden", 21).lastID(99);
    merge();
    EXPECT_EQ(plainResult(**mMerged.budget).lines.filter("(none)").size(), 1);
    EXPECT_EQ((*mMerged.budget)->transactions()[0]->categoryID(), 21U) << "ours stays as it is";
}

} // namespace
