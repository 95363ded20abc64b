#include "contents/CVSetCategory.h"

#include "base/CVNotifications.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "kit/NotificationCounter.h"

#include <gtest/gtest.h>

namespace {

class CVSetCategoryTest : public testing::Test {
protected:
    CVSetCategoryTest() {
        mBudget.category("Food", 1).category("Rent", 2).lastID(2);
        for (int i = 1; i <= 3; ++i)
            mBudget.transaction({.date = day(2014, 3, i), .amount = 1.0 * i, .category = i == 1 ? "Rent" : "Food"});
        mBudget.inOrder();
        mNotifications.reset();
    }

    [[nodiscard]] CVDocument& document() { return mBudget.document(); }
    [[nodiscard]] QStringList categories() {
        QStringList names;
        for (const auto& transaction : document().transactions())
            names.append(transaction->categoryName());
        return names;
    }

    FixedToday mToday{day(2014, 3, 7)};
    BudgetBuilder mBudget;
    NotificationCounter mNotifications{mBudget.notificationCenter()};
};

TEST_F(CVSetCategoryTest, GivesThemTheCategoryWithOneAnnouncement) {
    const CVTransactions chosen{mBudget.transactionAt(0), mBudget.transactionAt(1)};
    EXPECT_EQ(CVSetCategory(document(), chosen, "Rent"), 2U);
    EXPECT_EQ(categories(), (QStringList{"Rent", "Rent", "Rent"}));
    EXPECT_EQ(mNotifications.count(CVNotifications::kCategoryAddedRemoved), 1);
    EXPECT_EQ(mNotifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(mNotifications.total(), 2);
    EXPECT_EQ(mBudget.categoryNamed("Rent")->latestTransactionDate(), day(2014, 3, 7));
    EXPECT_EQ(mBudget.categoryNamed("Rent")->earliestTransactionDate(), day(2014, 3, 1));
}

TEST_F(CVSetCategoryTest, MakesACategoryThatIsNotThereYetInItsPlace) {
    EXPECT_EQ(CVSetCategory(document(), document().transactions(), "House"), 3U);
    ASSERT_EQ(document().countOfCategories(), 3U);
    EXPECT_EQ(document().objectInCategoriesAtIndex(1)->categoryName(), "House");
    EXPECT_EQ(document().objectInCategoriesAtIndex(1)->uniqueID(), 3U);
    EXPECT_EQ(categories(), (QStringList{"House", "House", "House"}));
    EXPECT_EQ(mNotifications.total(), 2);
}

TEST_F(CVSetCategoryTest, CaseMakesAnotherCategoryAsWhenRecording) {
    EXPECT_EQ(CVSetCategory(document(), document().transactions(), "food"), 3U);
    EXPECT_EQ(document().countOfCategories(), 3U);
}

TEST_F(CVSetCategoryTest, CountsOnlyThoseThatHadAnotherAndSaysNothingWithoutAny) {
    const CVTransactions chosen = document().transactions();
    EXPECT_EQ(CVSetCategory(document(), chosen, "Food"), 1U);
    mNotifications.reset();
    EXPECT_EQ(CVSetCategory(document(), chosen, "Food"), 0U);
    EXPECT_EQ(mNotifications.total(), 0);
}

TEST_F(CVSetCategoryTest, ATransactionThatIsGoneStaysAsItIsAndMakesNoCategory) {
    const auto gone = mBudget.transactionAt(0);
    document().removeTransaction(gone);
    mNotifications.reset();
    EXPECT_EQ(CVSetCategory(document(), CVTransactions{gone}, "House"), 0U);
    EXPECT_EQ(gone->categoryID(), 1U);
    EXPECT_EQ(document().countOfCategories(), 2U);
    EXPECT_EQ(mNotifications.total(), 0);
}

} // namespace
