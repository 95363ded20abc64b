#include "workspace/CVTransactionList.h"

#include "kit/BudgetBuilder.h"
#include "shared/base/CVDefaultsKeys.h"

#include <gtest/gtest.h>

namespace {

class CVTransactionListTest : public testing::Test {
protected:
    void rebuild() {
        mList.collectTransactions();
        mList.getTransactions();
        mList.filterTransactions();
        mList.doUserSort();
    }

    [[nodiscard]] QString column() { return defaults().stringForKey(CVDefaultsKeys::kTransactionSortColumn).value(); }
    [[nodiscard]] int order() { return defaults().integerForKey(CVDefaultsKeys::kTransactionSortOrder); }
    [[nodiscard]] QBUserDefaults& defaults() { return mBudget.userDefaults(); }

    BudgetBuilder mBudget;
    CVTransactionList mList{mBudget.document()};
};

TEST_F(CVTransactionListTest, HoldsTheTransactionsOfTheCurrentSetInDocumentOrder) {
    mBudget.set("Checking", 3).set("Savings", 4).currentSet(4);
    mBudget.transaction({.amount = 1, .set = "Checking"})
        .transaction({.amount = 2, .set = "Savings"})
        .transaction({.amount = 3, .set = "Savings"});
    rebuild();
    ASSERT_EQ(mList.transactions().size(), 2U);
    EXPECT_EQ(mList.transactions()[0], mBudget.transactionAt(1));
    EXPECT_EQ(mList.transactions()[1], mBudget.transactionAt(2));
}

TEST_F(CVTransactionListTest, WithoutSetsHoldsTheTransactionsWhoseSetIDIsZero) {
    mBudget.transaction({.amount = 1}).transaction({.amount = 2, .setID = 5});
    rebuild();
    ASSERT_EQ(mList.transactions().size(), 1U);
    EXPECT_EQ(mList.transactions()[0], mBudget.transactionAt(0));
}

TEST_F(CVTransactionListTest, ANewUserGetsAndKeepsNewestFirst) {
    mBudget.transaction({.date = day(2014, 3, 7)}).transaction({.date = day(2014, 3, 9)});
    rebuild();
    EXPECT_EQ(column(), "date");
    EXPECT_EQ(order(), 1);
    EXPECT_EQ(mList.displayTransactions()[0]->effectiveDate(), day(2014, 3, 9));
    EXPECT_EQ(mList.transactions()[0]->effectiveDate(), day(2014, 3, 7)) << "stage 1 keeps its order";
}

TEST_F(CVTransactionListTest, AColumnThatWasChosenBeforeWithoutAnOrderIsAscending) {
    defaults().setString(CVDefaultsKeys::kTransactionSortColumn, "amount");
    mBudget.transaction({.amount = 2}).transaction({.amount = 1});
    rebuild();
    EXPECT_EQ(mList.displayTransactions()[0]->amount(), 1.0);
    EXPECT_FALSE(mList.sortContext().descending);
}

TEST_F(CVTransactionListTest, TheOrderTurnsRoundWithEveryChoiceAlsoOfAnotherColumn) {
    mBudget.transaction({.amount = 2}).transaction({.amount = 1});
    rebuild();
    mList.chooseSortColumn("amount");
    mList.doUserSort();
    EXPECT_EQ(column(), "amount");
    EXPECT_EQ(order(), 0);
    EXPECT_EQ(mList.displayTransactions()[0]->amount(), 1.0);
    mList.chooseSortColumn("tofrom");
    mList.doUserSort();
    EXPECT_EQ(order(), 1);
    mList.chooseSortColumn("tofrom");
    mList.doUserSort();
    EXPECT_EQ(order(), 0);
}

TEST_F(CVTransactionListTest, TotalsAreCountedAndRoundedOnce) {
    for (int i = 0; i < 3; ++i)
        mBudget.transaction({.amount = 0.004});
    mBudget.transaction({.amount = -10});
    rebuild();
    EXPECT_EQ(mList.totals().count, 4U);
    EXPECT_EQ(mList.totals().amount, -9.99);
    EXPECT_EQ(mList.displayTotals().count, 4U);
    EXPECT_EQ(mList.displayTotals().amount, -9.99);
}

TEST_F(CVTransactionListTest, ARemovedTransactionLivesOnUntilTheNextRebuild) {
    mBudget.transaction({.amount = 2});
    rebuild();
    const auto transaction = mBudget.transactionAt(0);
    mBudget.document().removeTransaction(transaction);
    EXPECT_EQ(mList.displayTransactions()[0], transaction);
    rebuild();
    EXPECT_TRUE(mList.displayTransactions().empty());
}

} // namespace
