#include "contents/CVMergeCategories.h"

#include "base/CVNotifications.h"
#include "kit/FixedToday.h"
#include "kit/NotificationCounter.h"
#include "kit/RandomBudget.h"

#include <gtest/gtest.h>

#include <map>

namespace {

class CVMergeCategoriesTest : public testing::Test {
protected:
    CVMergeCategoriesTest() {
        mBudget.set("Checking", 10).set("Savings", 11).currentSet(10);
        mBudget.category("Food", 1, CVExpenseFrequency::kMonthly, 50).category("Groceries", 2).category("Rent", 3);
        mBudget.transaction({.date = day(2014, 3, 6), .amount = 1, .category = "Groceries", .set = "Checking"})
            .transaction({.date = day(2014, 3, 5), .amount = 2, .category = "Food", .set = "Checking"})
            .transaction({.date = day(2013, 3, 5), .amount = 3, .category = "Groceries", .set = "Savings"})
            .transaction({.date = day(2014, 3, 1), .amount = 4, .category = "Rent", .set = "Checking"})
            .inOrder();
    }

    [[nodiscard]] CVDocument& document() { return mBudget.document(); }
    [[nodiscard]] const std::shared_ptr<CVCategory>& named(const QString& name) { return mBudget.categoryNamed(name); }

    [[nodiscard]] QStringList names() {
        QStringList names;
        for (const auto& category : document().categories())
            names.append(category->categoryName());
        return names;
    }

    FixedToday mToday{day(2014, 3, 7)};
    BudgetBuilder mBudget;
};

TEST_F(CVMergeCategoriesTest, TransactionsOfEverySetMoveAndTheCategoryGoes) {
    const auto food = named("Food");
    ASSERT_TRUE(CVMergeCategories(document(), named("Groceries"), food));
    EXPECT_EQ(names(), (QStringList{"Food", "Rent"}));
    QStringList categories;
    for (const auto& transaction : document().transactions())
        categories.append(transaction->categoryName());
    EXPECT_EQ(categories, (QStringList{"Food", "Food", "Rent", "Food"}));
    EXPECT_EQ(food->earliestTransactionDate(), day(2013, 3, 5));
}

TEST_F(CVMergeCategoriesTest, IsAnnouncedOnceAndAsksForTheVersionBefore) {
    NotificationCounter notifications(mBudget.notificationCenter());
    ASSERT_TRUE(CVMergeCategories(document(), named("Groceries"), named("Food")));
    EXPECT_EQ(notifications.count(CVNotifications::kCategoryAddedRemoved), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(notifications.total(), 2);
    EXPECT_EQ(document().takeAskedVersion(), CVVersionReason::Deletion);
}

TEST_F(CVMergeCategoriesTest, ThePlanOfTheOtherOneStaysUnlessItHasNone) {
    struct Case {
        double from;
        double into;
        double after;
        qint64 frequency;
    };
    constexpr Case kCases[] = {{20, 50, 50, CVExpenseFrequency::kMonthly},
                               {20, 0, 20, CVExpenseFrequency::kAnnually},
                               {0, 50, 50, CVExpenseFrequency::kMonthly},
                               {0, 0, 0, CVExpenseFrequency::kMonthly}};
    for (const Case& row : kCases) {
        BudgetBuilder budget;
        budget.category("From", 1, CVExpenseFrequency::kAnnually, row.from);
        budget.category("Into", 2, CVExpenseFrequency::kMonthly, row.into);
        const auto from = budget.categoryNamed("From");
        const auto into = budget.categoryNamed("Into");
        const auto planned = CVExamineMerge(budget.document(), from, into).planned;
        EXPECT_EQ(planned->expenseTarget(), row.after);
        ASSERT_TRUE(CVMergeCategories(budget.document(), from, into));
        EXPECT_EQ(into->expenseTarget(), row.after);
        EXPECT_EQ(into->expenseFrequency(), row.frequency);
    }
}

TEST_F(CVMergeCategoriesTest, ExaminingCountsBothAndChangesNothing) {
    NotificationCounter notifications(mBudget.notificationCenter());
    const CVCategoryMerge merge = CVExamineMerge(document(), named("Groceries"), named("Food"));
    EXPECT_EQ(merge.moving, 2U);
    EXPECT_EQ(merge.staying, 1U);
    EXPECT_EQ(merge.planned, named("Food"));
    EXPECT_EQ(names(), (QStringList{"Food", "Groceries", "Rent"}));
    EXPECT_EQ(notifications.total(), 0);
}

TEST_F(CVMergeCategoriesTest, ACategoryIsNotMergedWithItselfOrOneThatIsGone) {
    const auto food = named("Food");
    const auto rent = named("Rent");
    document().removeCategory(rent);
    (void)document().takeAskedVersion();
    NotificationCounter notifications(mBudget.notificationCenter());
    EXPECT_FALSE(CVMergeCategories(document(), food, food));
    EXPECT_FALSE(CVMergeCategories(document(), rent, food));
    EXPECT_FALSE(CVMergeCategories(document(), food, rent));
    EXPECT_EQ(names(), (QStringList{"Food", "Groceries"}));
    EXPECT_EQ(notifications.total(), 0);
    EXPECT_FALSE(document().takeAskedVersion());
}

using TextOfTransaction = std::map<const CVTransaction*, QByteArray>;

TextOfTransaction textOfEach(const CVDocument& document) {
    TextOfTransaction texts;
    for (const auto& transaction : document.transactions())
        texts[transaction.get()] = transaction->xmlRepresentation().toByteArray();
    return texts;
}

TEST(CVMergeCategoriesProperty, OnRandomBudgetsItIsWhatGivingEachTransactionTheOtherCategoryByHandIs) {
    const FixedToday today(day(2014, 3, 7));
    int merged = 0;
    for (quint32 seed = 0; seed < 300; ++seed) {
        RandomBudget one(seed);
        RandomBudget other(seed);
        one.document().finishedParsingData();
        other.document().finishedParsingData();
        const auto count = static_cast<quint32>(one.document().countOfCategories());
        if (count < 2)
            continue;
        const quint32 fromIndex = one.below(count);
        const quint32 intoIndex = (fromIndex + 1 + one.below(count - 1)) % count;
        const auto from = one.document().objectInCategoriesAtIndex(fromIndex);
        const auto into = one.document().objectInCategoriesAtIndex(intoIndex);
        if (one.oneIn(2)) {
            into->setExpenseTarget(0);
            other.document().objectInCategoriesAtIndex(intoIndex)->setExpenseTarget(0);
        }
        const CVCategoryMerge expected = CVExamineMerge(one.document(), from, into);
        ASSERT_TRUE(CVMergeCategories(one.document(), from, into));
        ++merged;

        // The same by hand, a step at a time.
        CVDocument& plain = other.document();
        const auto goes = plain.objectInCategoriesAtIndex(fromIndex);
        const auto stays = plain.objectInCategoriesAtIndex(intoIndex);
        std::size_t moved = 0;
        for (const auto& transaction : plain.transactions()) {
            if (transaction->categoryID() != goes->uniqueID())
                continue;
            transaction->setCategoryID(stays->uniqueID());
            ++moved;
        }
        if (stays->expenseTarget() == 0 && goes->expenseTarget() != 0) {
            stays->setExpenseFrequency(goes->expenseFrequency());
            stays->setExpenseTarget(goes->expenseTarget());
        }
        plain.removeCategory(goes);
        plain.sortCategories();
        plain.sortTransactionsByDate();
        plain.updateDates();

        EXPECT_EQ(expected.moving, moved) << seed;
        ASSERT_EQ(one.document().countOfCategories(), plain.countOfCategories()) << seed;
        for (std::size_t i = 0; i < plain.countOfCategories(); ++i) {
            const CVCategory& mine = *one.document().objectInCategoriesAtIndex(i);
            const CVCategory& byHand = *plain.objectInCategoriesAtIndex(i);
            EXPECT_EQ(mine.xmlRepresentation(), byHand.xmlRepresentation()) << seed;
            EXPECT_EQ(mine.earliestTransactionDate(), byHand.earliestTransactionDate()) << seed;
            EXPECT_EQ(mine.latestTransactionDate(), byHand.latestTransactionDate()) << seed;
        }
        ASSERT_EQ(one.document().transactions().size(), plain.transactions().size()) << seed;
        for (std::size_t i = 0; i < plain.transactions().size(); ++i) {
            EXPECT_EQ(one.document().transactions()[i]->xmlRepresentation().toByteArray(),
                      plain.transactions()[i]->xmlRepresentation().toByteArray())
                << seed;
        }
    }
    EXPECT_GT(merged, 200);
}

TEST(CVMergeCategoriesProperty, OnRandomBudgetsARefusedMergeLeavesEveryRecordAsItWas) {
    for (quint32 seed = 0; seed < 100; ++seed) {
        RandomBudget budget(seed);
        budget.document().finishedParsingData();
        if (budget.document().countOfCategories() == 0)
            continue;
        const auto category = budget.document().objectInCategoriesAtIndex(0);
        const TextOfTransaction before = textOfEach(budget.document());
        const QByteArray text = category->xmlRepresentation();
        EXPECT_FALSE(CVMergeCategories(budget.document(), category, category));
        EXPECT_EQ(textOfEach(budget.document()), before) << seed;
        EXPECT_EQ(category->xmlRepresentation(), text) << seed;
    }
}

} // namespace
