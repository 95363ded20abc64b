#include "BroughtBack.h"
#include "UsualBudget.h"
#include "base/CVNotifications.h"
#include "differences/CVBringBack.h"
#include "kit/CountingSaver.h"
#include "kit/NotificationCounter.h"

#include <gtest/gtest.h>

namespace {

using Entry = BudgetBuilder::Entry;

/// A version with two transactions of the market and one of the baker, and the present budget without them.
class BringBackTest : public testing::Test {
protected:
    void SetUp() override {
        usual(mVersion);
        usual(mPresent);
        mVersion.transaction(market()).transaction(market("Cash", "Fuel"));
        mVersion.transaction({.date = day(2014, 3, 9), .amount = 5, .payTo = "Baker", .setID = 1});
        mPresent.document().setSaver(&mSaver);
    }
    [[nodiscard]] CVBudgetDifferences differences() { return differencesTo(mVersion, mPresent); }
    int bringBack(const CVBudgetDifferences& chosen) {
        return CVBringBack(mPresent.document(), mVersion.document(), chosen);
    }

    BudgetBuilder mVersion;
    BudgetBuilder mPresent;
    CountingSaver mSaver;
};

TEST_F(BringBackTest, OnlyTheChosenOnesReturn) {
    CVBudgetDifferences chosen = differences();
    ASSERT_EQ(chosen.transactions.size(), 3U);
    std::erase_if(chosen.transactions, [](const auto& difference) { return difference.before->payTo() != "Baker"; });
    EXPECT_EQ(bringBack(chosen), 1);
    EXPECT_EQ(entriesOf(mPresent.document()), QStringList{"Checking/- Baker 5.00"});
}

TEST_F(BringBackTest, AnnouncesEachKindOnceAndSavesOnce) {
    NotificationCounter announced(mPresent.notificationCenter());
    mVersion.set("Old", 9).set("Older", 10).category("Gone", 30);
    mVersion.transaction(market("Old", "Gone")).transaction(market("Older", "Gone"));
    mPresent.categoryNamed("Rent")->setExpenseTarget(9);
    mPresent.categoryNamed("Fuel")->setCategoryName("Car");
    mPresent.setNamed("Cash")->setTransactionSetName("Purse");
    announced.reset();
    EXPECT_EQ(bringBack(differences()), 5 + 3 + 3);
    EXPECT_EQ(announced.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(announced.count(CVNotifications::kCategoryAddedRemoved), 1);
    EXPECT_EQ(announced.count(CVNotifications::kTransactionSet), 1);
    EXPECT_EQ(announced.total(), 3);
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(BringBackTest, NothingToBringBackIsNeitherAnnouncedNorSaved) {
    NotificationCounter announced(mPresent.notificationCenter());
    EXPECT_EQ(bringBack(differencesTo(mVersion, mVersion)), 0);
    EXPECT_EQ(announced.total(), 0);
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(BringBackTest, TheOrderAndTheBoundsOfTheDatesAreRight) {
    mPresent.transaction({.date = day(2014, 3, 8), .amount = 1, .payTo = "Kiosk", .setID = 1}).inOrder();
    EXPECT_EQ(bringBack(differences()), 3);
    QStringList payees;
    for (const auto& transaction : mPresent.document().transactions())
        payees.append(transaction->payTo());
    EXPECT_EQ(payees, (QStringList{"Baker", "Kiosk", "Market", "Market"}));
    EXPECT_EQ(mPresent.document().earliestTransactionDate(), day(2014, 3, 7));
    EXPECT_EQ(mPresent.document().latestTransactionDate(), day(2014, 3, 9));
    EXPECT_EQ(mPresent.categoryNamed("Food")->earliestTransactionDate(), day(2014, 3, 7));
}

TEST_F(BringBackTest, WhatIsThereAgainIsPassedOver) {
    const CVBudgetDifferences chosen = differences();
    EXPECT_EQ(bringBack(chosen), 3);
    EXPECT_EQ(bringBack(chosen), 0);
    EXPECT_EQ(mPresent.document().transactions().size(), 3U);
}

TEST_F(BringBackTest, ATransactionThatWasAddedAfterTheChoiceIsNotWrittenOver) {
    const CVBudgetDifferences chosen = differences();
    Entry similar = market();
    similar.amount = 31;
    mPresent.transaction(similar);
    EXPECT_EQ(bringBack(chosen), 3);
    EXPECT_EQ(mPresent.document().transactions().size(), 4U);
}

TEST_F(BringBackTest, AChangedOneThatHasChangedOnceMoreSinceTheChoiceIsPassedOver) {
    Entry changed = market();
    changed.amount = 31;
    mPresent.transaction(changed);
    CVBudgetDifferences chosen = differences();
    std::erase_if(chosen.transactions, [](const auto& difference) { return !difference.after; });
    ASSERT_EQ(chosen.transactions.size(), 1U);
    // The window holds a copy of what it shows.
    chosen.transactions[0].after = std::make_shared<CVTransaction>(*chosen.transactions[0].after);
    mPresent.transactionAt(0)->setAmount(32);
    EXPECT_EQ(bringBack(chosen), 0);
    EXPECT_EQ(entriesOf(mPresent.document()), QStringList{"Checking/Food Market 32.00"});
    mPresent.transactionAt(0)->setAmount(31);
    EXPECT_EQ(bringBack(chosen), 1);
    EXPECT_EQ(entriesOf(mPresent.document()), QStringList{"Checking/Food Market 30.00"});
}

TEST_F(BringBackTest, RemovedSetsAndCategoriesReturnEmptyAndChangedOnesGetNameAndPlanBack) {
    mVersion.set("Old", 9).category("Gone", 30, CVExpenseFrequency::kAnnually, 12);
    mVersion.transaction(market("Old", "Gone"));
    mPresent.categoryNamed("Food")->setExpenseTarget(9);
    mPresent.setNamed("Cash")->setTransactionSetName("Purse");
    CVBudgetDifferences chosen = differences();
    chosen.transactions.clear();
    EXPECT_EQ(bringBack(chosen), 4);
    EXPECT_EQ(setsOf(mPresent.document()), (QStringList{"1 Checking", "2 Cash", "9 Old"}));
    EXPECT_EQ(categoriesOf(mPresent.document()), (QStringList{"3 Food 200", "4 Fuel 0", "30 Gone 12", "5 Rent 0"}));
    EXPECT_EQ(mPresent.categoryNamed("Gone")->expenseFrequency(), CVExpenseFrequency::kAnnually);
    EXPECT_TRUE(mPresent.document().transactions().empty());
}

/// A transaction of the market is gone, and another one of the baker is in the category that was renamed.
class BringBackBesideARenamedCategory : public testing::Test {
protected:
    void SetUp() override {
        usual(mVersion);
        mVersion.transaction(market()).transaction(baker("Food"));
        usual(mPresent);
        mPresent.categoryNamed("Food")->setCategoryName("Groceries");
        mPresent.transaction(baker("Groceries"));
        CVBudgetDifferences chosen = differences();
        ASSERT_EQ(chosen.transactions.size(), 1U);
        chosen.categories.clear();
        ASSERT_EQ(CVBringBack(mPresent.document(), mVersion.document(), chosen), 1);
    }
    static Entry baker(const QString& category) {
        return {.date = day(2014, 3, 9), .amount = 5, .payTo = "Baker", .category = category, .set = "Checking"};
    }
    [[nodiscard]] CVBudgetDifferences differences() { return differencesTo(mVersion, mPresent); }

    BudgetBuilder mVersion;
    BudgetBuilder mPresent;
};

TEST_F(BringBackBesideARenamedCategory, TheTransactionDiffersNoMore) {
    EXPECT_EQ(entriesOf(mPresent.document()),
              (QStringList{"Checking/Food Market 30.00", "Checking/Groceries Baker 5.00"}));
    EXPECT_TRUE(differences().transactions.empty());
}

TEST_F(BringBackBesideARenamedCategory, TheFormerNameJoinsTheCategoryThatWasMadeForIt) {
    mPresent.document().setSaver(nullptr);
    NotificationCounter announced(mPresent.notificationCenter());
    EXPECT_EQ(CVBringBack(mPresent.document(), mVersion.document(), differences()), 1);
    EXPECT_EQ(categoriesOf(mPresent.document()), (QStringList{"3 Food 200", "4 Fuel 0", "5 Rent 0"}));
    EXPECT_EQ(entriesOf(mPresent.document()), (QStringList{"Checking/Food Baker 5.00", "Checking/Food Market 30.00"}));
    EXPECT_TRUE(differences().isEmpty());
    EXPECT_EQ(announced.count(CVNotifications::kCategoryAddedRemoved), 1);
}

TEST_F(BringBackBesideARenamedCategory, AChangedTransactionReturnsTogetherWithTheFormerName) {
    mPresent.transactionAt(0)->setAmount(31);
    mPresent.transactionAt(1)->setAmount(32);
    EXPECT_EQ(CVBringBack(mPresent.document(), mVersion.document(), differences()), 3);
    EXPECT_TRUE(differences().isEmpty());
}

TEST(BringBackAmongCategoriesOfOneName, ATransactionReturnsToItsOwn) {
    BudgetBuilder version;
    version.set("Checking", 1).category("Food", 3).category("Food", 4);
    version.transaction({.date = day(2014, 3, 7), .amount = 30, .payTo = "Market", .categoryID = 4, .setID = 1});
    BudgetBuilder present;
    present.set("Checking", 1).category("Food", 3).category("Food", 4);
    EXPECT_EQ(CVBringBack(present.document(), version.document(), differencesTo(version, present)), 1);
    EXPECT_EQ(present.transactionAt(0)->categoryID(), 4U);
}

TEST(BringBackUnderANewID, NothingElseOfTheVersionReturnsUnderIt) {
    BudgetBuilder version;
    version.set("Old", 9).category("X", 1).transaction(market("Old", "X"));
    version.transaction({.payTo = "Kiosk", .categoryID = 22, .setID = 21});
    BudgetBuilder present;
    present.set("New", 9).category("Y", 1).lastID(20);
    EXPECT_EQ(CVBringBack(present.document(), version.document(), differencesTo(version, present)), 2 + 1 + 1);
    EXPECT_EQ(entriesOf(present.document()), (QStringList{"-/- Kiosk 0.00", "Old/X Market 30.00"}));
    EXPECT_EQ(setsOf(present.document()), (QStringList{"9 New", "22 Old"}));
    EXPECT_EQ(categoriesOf(present.document()), (QStringList{"23 X 0", "1 Y 0"}));
}

TEST(BringBackIntoAFreshBudget, ShowsTheSetThatReturned) {
    BudgetBuilder version;
    usual(version);
    version.transaction(market());
    BudgetBuilder fresh;
    fresh.category("Food", 1);
    CVBudgetDifferences chosen = differencesTo(version, fresh);
    chosen.sets.clear();
    EXPECT_GT(CVBringBack(fresh.document(), version.document(), chosen), 0);
    EXPECT_EQ(setsOf(fresh.document()), QStringList{"1 Checking"});
    EXPECT_EQ(fresh.document().shownTransactionSet(), 1U);
}

TEST(BringBackIntoAFreshBudget, KeepsTheTransactionsWithoutASetInAShownOne) {
    BudgetBuilder version;
    usual(version);
    version.transaction(market());
    BudgetBuilder fresh;
    fresh.transaction({.payTo = "Kiosk"});
    EXPECT_GT(CVBringBack(fresh.document(), version.document(), differencesTo(version, fresh)), 0);
    EXPECT_EQ(setsOf(fresh.document()), (QStringList{"0 Initial Transaction Set", "1 Checking", "2 Cash"}));
    EXPECT_EQ(fresh.document().shownTransactionSet(), 0U);
}

} // namespace
