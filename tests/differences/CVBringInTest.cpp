#include "differences/CVBringIn.h"

#include "MergedRecordsFixture.h"
#include "PlainMerge.h"
#include "ReadInto.h"
#include "kit/CountingSaver.h"

#include <gtest/gtest.h>

namespace {

/// Bringing lines in.
class CVBringInTest : public MergedRecordsFixture {
protected:
    void SetUp() override {
        MergedRecordsFixture::SetUp();
        for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
            budget->transaction(purchaseOf(30)).transaction(purchaseOf(5, "Baker"));
    }
    void mergeAndOpen() {
        merge();
        readInto(mPresent, mOurs.document());
        mPresent.document().setSaver(&mSaver);
        mDifferences = CVBudgetDifferences::between(**mMerged.budget, mOurs.document(), &mOurs.document());
    }
    int bringIn(const CVBudgetDifferences& chosen) {
        return CVBringIn(mPresent.document(), **mMerged.budget, mOurs.document(), chosen);
    }
    [[nodiscard]] QStringList lines() {
        QStringList texts;
        for (const auto& transaction : mPresent.document().transactions())
            texts.append(transaction->payTo() + ' ' + QString::number(transaction->amount()));
        texts.sort();
        return texts;
    }

    BudgetBuilder mPresent;
    CountingSaver mSaver;
    CVBudgetDifferences mDifferences{{{}, {}, {}}, {{}, {}, {}}, {}, {}, {}, {}};
};

TEST_F(CVBringInTest, LinesAreAddedChangedAndRemovedAsOneChangeWithAVersionBefore) {
    mTheirs.document().removeTransaction(std::shared_ptr(mTheirs.document().transactions()[1]));
    mTheirs.document().transactions()[0]->setAmount(31);
    mTheirs.transaction(purchaseOf(9, "Kiosk")).lastID(40);
    mergeAndOpen();
    EXPECT_EQ(bringIn(mDifferences), 3);
    EXPECT_EQ(lines(), (QStringList{"Kiosk 9", "Market 31"}));
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mPresent.document().takeAskedVersion(), CVVersionReason::TakingOver);
    EXPECT_EQ(mPresent.document().uniqueID(), 40U);
}

TEST_F(CVBringInTest, BringingInTwiceChangesNothingTheSecondTime) {
    mTheirs.document().removeTransaction(std::shared_ptr(mTheirs.document().transactions()[1]));
    mTheirs.transaction(purchaseOf(9, "Kiosk"));
    mergeAndOpen();
    EXPECT_EQ(bringIn(mDifferences), 2);
    EXPECT_EQ(bringIn(mDifferences), 0);
    EXPECT_EQ(lines(), (QStringList{"Kiosk 9", "Market 30"}));
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(CVBringInTest, ARemovalThatWasTakenIsNotFoundAgain) {
    // We have added a second one of the same, they have removed the first.
    mOurs.transaction(purchaseOf(5, "Baker"));
    mTheirs.document().removeTransaction(std::shared_ptr(mTheirs.document().transactions()[1]));
    mergeAndOpen();
    EXPECT_EQ(bringIn(mDifferences), 1);
    EXPECT_EQ(lines(), (QStringList{"Baker 5", "Market 30"}));
    const auto rest = CVMergeRest(mOurs.document(), mPresent.document(), **mMerged.budget);
    EXPECT_EQ((*rest.budget)->transactions().size(), 2U);
}

TEST_F(CVBringInTest, ARecordThatIsStillUsedAndTheShownSetStay) {
    for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
        budget->category("Spare", 6).category("Idle", 7);
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Spare"));
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Idle"));
    std::erase(mTheirs.document().transactionSets(), mTheirs.setNamed("Cash"));
    mergeAndOpen();
    ASSERT_EQ(mDifferences.categories.size() + mDifferences.sets.size(), 3U);
    // Both are in use since the lines were shown.
    mPresent.transaction(purchaseOf(1, "Shop", "Spare"));
    mPresent.document().setCurrentTransactionSet(2);
    EXPECT_EQ(bringIn(mDifferences), 1);
    EXPECT_TRUE(mPresent.document().doesCategoryNameExist("Spare"));
    EXPECT_FALSE(mPresent.document().doesCategoryNameExist("Idle"));
    EXPECT_EQ(mPresent.document().transactionSets().size(), 2U);
}

TEST_F(CVBringInTest, ALineOfARenamedCategoryJoinsItUnderOurName) {
    mTheirs.categoryNamed("Food")->setCategoryName("Groceries");
    mTheirs.transaction(purchaseOf(9, "Kiosk", "Groceries"));
    mergeAndOpen();
    mDifferences.categories.clear();
    EXPECT_EQ(bringIn(mDifferences), 1);
    EXPECT_EQ(plainResult(mPresent.document()).lines.filter("Kiosk").filter("Checking/Food|").size(), 1);
    EXPECT_EQ(mPresent.document().countOfCategories(), 3U);
}

TEST_F(CVBringInTest, AfterOursWasBegunAnewTheSameIDsMeanOtherCategories) {
    mTheirs.categoryNamed("Food")->setExpenseTarget(250);
    mergeAndOpen();
    BudgetBuilder anew;
    anew.category("Auto", 3).category("Books", 4).category("Clothes", 5).lastID(5);
    const auto rest = CVMergeRest(mOurs.document(), anew.document(), **mMerged.budget);
    EXPECT_EQ((*rest.budget)->getCategoryByUniqueID(3)->categoryName(), "Auto");
    EXPECT_EQ((*rest.budget)->getCategoryByUniqueID(3)->expenseTarget(), 0) << "the plan was that for food";
}

TEST_F(CVBringInTest, TheFirstSetsOfTheOtherSideKeepOurLinesShown) {
    BudgetBuilder common;
    common.category("Food", 3).transaction({.payTo = "Kiosk", .categoryID = 3});
    BudgetBuilder theirs;
    theirs.set("Initial Transaction Set", 0).set("Giro", 5).category("Food", 3);
    theirs.transaction({.payTo = "Kiosk", .categoryID = 3}).transaction({.payTo = "Bank", .categoryID = 3, .setID = 5});
    const auto merged = CVMergeBudgets(&common.document(), common.document(), theirs.document());
    BudgetBuilder present;
    readInto(present, common.document());
    EXPECT_EQ(bringAllIn(present.document(), common.document(), merged), 3);
    EXPECT_EQ(plainResult(present.document()).sets, (QStringList{"Giro", "Initial Transaction Set"}));
    EXPECT_EQ(present.document().shownTransactionSet(), 0U);
}

} // namespace
