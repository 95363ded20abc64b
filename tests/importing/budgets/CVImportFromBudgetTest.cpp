#include "importing/budgets/CVImportFromBudget.h"

#include "ImportBudget.h"
#include "base/CVNotifications.h"
#include "importing/CVTakeBackImport.h"
#include "importing/ImportFixtures.h"
#include "kit/CountingSaver.h"
#include "kit/NotificationCounter.h"

#include <gtest/gtest.h>

namespace {

/// Both budgets have a market in the set Checking; the other one has a bookshop and, in a set of its own, a hotel too.
class CVImportFromBudgetTest : public testing::Test {
protected:
    CVImportFromBudgetTest() {
        mOurs.set("Checking", 1).currentSet(1).category("Food", 3).lastID(9);
        mTheirs.set("Card", 1).set("Checking", 2).currentSet(2).category("Travel", 3).category("Food", 4).lastID(9);
        for (BudgetBuilder* const budget : {&mOurs, &mTheirs})
            budget->transaction(
                {.date = day(2026, 3, 5), .amount = 5, .payTo = "Market", .category = "Food", .set = "Checking"});
        mTheirs.transaction({.amount = 0.001, .payTo = "Bookshop", .category = "Food", .set = "Checking"})
            .transaction({.date = day(2026, 3, 7),
                          .amount = -70,
                          .payTo = "Hotel",
                          .category = "Travel",
                          .set = "Card",
                          .taxFlag = true,
                          .userFlag = true});
        mOurs.document().setSaver(&mSaver);
    }

    CVImported import() { return importBudget(mOurs.document(), mTheirs.document()); }
    [[nodiscard]] QStringList lines() { return linesOfBudget(mOurs.document()); }
    [[nodiscard]] QStringList sets() {
        QStringList names;
        for (const auto& set : mOurs.document().transactionSets())
            names.append(set->transactionSetName());
        return names;
    }

    CountingSaver mSaver;
    BudgetBuilder mOurs;
    BudgetBuilder mTheirs;
};

TEST_F(CVImportFromBudgetTest, BringsInWhatIsMissingUnderTheNamesOfItsSetAndCategory) {
    const CVImported imported = import();
    EXPECT_EQ(lines(), (QStringList{"Card|2026/03/07|-70.00|Hotel||Travel|tax|flag",
                                    "Checking|2026/03/05|5.00|Market||Food||", "Checking||0.00|Bookshop||Food||"}));
    EXPECT_EQ(sets(), (QStringList{"Checking", "Card"}));
    EXPECT_EQ(mOurs.document().currentTransactionSet(), 1U) << "the shown set stays";
    EXPECT_EQ(imported.entries.size(), 2U);
    EXPECT_EQ(imported.lines, 4) << "with the set and the category";
    EXPECT_EQ(mOurs.document().transactions().back()->payTo(), "Bookshop");
    EXPECT_EQ(mOurs.document().transactions().back()->amount(), 0) << "as the other data file holds it";
}

TEST_F(CVImportFromBudgetTest, IsOneChangeWithOneSaveAndAnEarlierVersionBefore) {
    NotificationCounter notifications(mOurs.notificationCenter());
    (void)import();
    EXPECT_EQ(notifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mOurs.document().takeAskedVersion(), CVVersionReason::Import);
}

TEST_F(CVImportFromBudgetTest, HasNothingToBringInTheSecondTime) {
    (void)import();
    (void)mOurs.document().takeAskedVersion();
    EXPECT_EQ(import().lines, 0);
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mOurs.document().takeAskedVersion(), std::nullopt);
}

TEST_F(CVImportFromBudgetTest, CanBeTakenBackWithItsSetsAndCategories) {
    const QByteArray before = textButForLastID(mOurs.document());
    const CVImported imported = import();
    EXPECT_EQ(CVTakeBackImport(mOurs.document(), imported, CVEditedTransactions::Stay).size(), 2U);
    EXPECT_EQ(textButForLastID(mOurs.document()), before);
}

TEST_F(CVImportFromBudgetTest, ChangesNoPlanAndNoNameOfOurs) {
    mOurs.categoryNamed("Food")->setExpenseTarget(400);
    mTheirs.categoryNamed("Food")->setExpenseTarget(300);
    (void)import();
    EXPECT_EQ(mOurs.categoryNamed("Food")->expenseTarget(), 400);
}

TEST_F(CVImportFromBudgetTest, WhatHasNoSetThereComesIntoTheShownOne) {
    mTheirs.document().transactionSets().clear();
    for (const auto& transaction : mTheirs.document().transactions())
        transaction->setTransactionSetID(0);
    mOurs.set("Savings", 7).currentSet(7);
    (void)import();
    EXPECT_EQ(lines().filter("Savings|").size(), 3);
    EXPECT_EQ(sets(), (QStringList{"Checking", "Savings"}));
}

TEST_F(CVImportFromBudgetTest, WhatHasNoSetThereComesIntoOursOfWhatHadNone) {
    mTheirs.document().transactionSets().clear();
    for (const auto& transaction : mTheirs.document().transactions())
        transaction->setTransactionSetID(0);
    mOurs.set("Before", 0);
    (void)import();
    EXPECT_EQ(lines().filter("Before|").size(), 3);
}

TEST_F(CVImportFromBudgetTest, AnIDThatNoSetHasThereMeansNoneOfOurs) {
    mOurs.set("Savings", 7);
    mTheirs.transaction({.date = day(2026, 3, 8), .amount = 8, .payTo = "Lost", .category = "Food", .setID = 7});
    (void)import();
    EXPECT_TRUE(lines().contains("Checking|2026/03/08|8.00|Lost||Food||")) << "the shown one";
}

TEST_F(CVImportFromBudgetTest, OursWithoutASetDoNotGetIntoOneOfTheirs) {
    mOurs.document().transactionSets().clear();
    mOurs.transactionAt(0)->setTransactionSetID(0);
    mOurs.currentSet(0);
    const QByteArray before = textButForLastID(mOurs.document());
    mTheirs.setNamed("Checking")->setUniqueID(0);
    for (const auto& transaction : mTheirs.document().transactions())
        if (transaction->transactionSetID() == 2)
            transaction->setTransactionSetID(0);
    const CVImported imported = import();
    EXPECT_EQ(lines(), (QStringList{"Card|2026/03/07|-70.00|Hotel||Travel|tax|flag",
                                    "Checking|2026/03/05|5.00|Market||Food||", "Checking||0.00|Bookshop||Food||",
                                    "Initial Transaction Set|2026/03/05|5.00|Market||Food||"}));
    EXPECT_EQ(mOurs.document().currentTransactionSet(), 0U) << "ours are still shown";
    (void)CVTakeBackImport(mOurs.document(), imported, CVEditedTransactions::Stay);
    EXPECT_EQ(textButForLastID(mOurs.document()), before);
}

TEST_F(CVImportFromBudgetTest, AnEmptyBudgetBecomesTheOther) {
    BudgetBuilder empty;
    (void)importBudget(empty.document(), mTheirs.document());
    EXPECT_EQ(linesOfBudget(empty.document()), linesOfBudget(mTheirs.document()).replaceInStrings("0.001", "0.00"));
}

TEST_F(CVImportFromBudgetTest, OfEqualLinesThereAreAsManyAsTheOneWithMoreHas) {
    for (int i = 0; i < 2; ++i)
        mTheirs.transaction(
            {.date = day(2026, 3, 5), .amount = 5, .payTo = "Market", .category = "Food", .set = "Checking"});
    (void)import();
    EXPECT_EQ(lines().count("Checking|2026/03/05|5.00|Market||Food||"), 3);
}

} // namespace
