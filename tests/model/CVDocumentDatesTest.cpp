#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "kit/RandomBudget.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const QBDate kToday = day(2014, 3, 7);

/// All tests run on a fixed day.
class CVDocumentDates : public testing::Test {
protected:
    void expectBounds(const std::optional<QBDate>& earliest, const std::optional<QBDate>& latest) {
        EXPECT_EQ(mDocument.earliestTransactionDate(), earliest);
        EXPECT_EQ(mDocument.latestTransactionDate(), latest);
    }
    void expectBounds(const QString& category, const QBDate& earliest, const QBDate& latest) {
        EXPECT_EQ(mBudget.categoryNamed(category)->earliestTransactionDate(), earliest);
        EXPECT_EQ(mBudget.categoryNamed(category)->latestTransactionDate(), latest);
    }

    FixedToday mToday{kToday};
    BudgetBuilder mBudget;
    CVDocument& mDocument = mBudget.document();
};

TEST_F(CVDocumentDates, AreAbsentAtFirstAndBothTheFirstTransactions) {
    expectBounds(std::nullopt, std::nullopt);
    mDocument.insertTransaction(makeTransaction({.date = day(2010, 5, 5)}));
    expectBounds(day(2010, 5, 5), day(2010, 5, 5));
}

TEST_F(CVDocumentDates, AreWidenedByAnInsertionAsFarAsNeeded) {
    mBudget.category("Food", 12).category("Rent", 13);
    const auto insert = [this](const QBDate& date) {
        mDocument.insertTransaction(makeTransaction({.date = date, .categoryID = 12}));
    };
    insert(day(2014, 3, 5));
    expectBounds(day(2014, 3, 5), day(2014, 3, 5));
    expectBounds("Food", day(2014, 3, 5), kToday);
    insert(day(2014, 3, 9));
    expectBounds(day(2014, 3, 5), day(2014, 3, 9));
    expectBounds("Food", day(2014, 3, 5), day(2014, 3, 9));
    insert(day(2014, 3, 6));
    expectBounds(day(2014, 3, 5), day(2014, 3, 9));
    insert(day(2013, 1, 1));
    expectBounds(day(2013, 1, 1), day(2014, 3, 9));
    expectBounds("Food", day(2013, 1, 1), day(2014, 3, 9));
    expectBounds("Rent", kToday, kToday);
}

TEST_F(CVDocumentDates, AreNotTouchedByAnInsertionWithoutADateOrCategory) {
    mBudget.category("Food", 12);
    mDocument.insertTransaction(makeTransaction({.categoryID = 12}));
    expectBounds(std::nullopt, std::nullopt);
    expectBounds("Food", kToday, kToday);
    mDocument.insertTransaction(makeTransaction({.date = day(2010, 1, 1), .categoryID = 99}));
    expectBounds("Food", kToday, kToday);
}

TEST_F(CVDocumentDates, OfACategoryAlwaysIncludeToday) {
    mBudget.category("Past", 1)
        .category("Future", 2)
        .category("Both", 3)
        .category("None", 4)
        .transaction({.date = day(2014, 3, 10), .category = "Future"})
        .transaction({.date = day(2014, 3, 9), .category = "Both"})
        .transaction({.date = day(2014, 3, 5), .category = "Both"})
        .transaction({.date = day(2014, 3, 1), .category = "Past"});
    mDocument.updateDates();
    expectBounds("Past", day(2014, 3, 1), kToday);
    expectBounds("Future", kToday, day(2014, 3, 10));
    expectBounds("Both", day(2014, 3, 5), day(2014, 3, 9));
    expectBounds("None", kToday, kToday);
    expectBounds(day(2014, 3, 1), day(2014, 3, 10));
}

TEST_F(CVDocumentDates, OfACategoryFollowTheCalendarWhenTheyAreUpdated) {
    mBudget.category("Food", 1).transaction({.date = day(2014, 3, 1), .category = "Food"});
    mDocument.updateDates();
    mToday.set(day(2014, 3, 20));
    expectBounds("Food", day(2014, 3, 1), kToday);
    mDocument.updateDates();
    expectBounds("Food", day(2014, 3, 1), day(2014, 3, 20));
    mToday.set(day(2014, 2, 1));
    mDocument.updateDates();
    expectBounds("Food", day(2014, 2, 1), day(2014, 3, 1));
}

TEST_F(CVDocumentDates, CountTheTransactionsOfAllSets) {
    mBudget.set("Checking", 1)
        .set("Savings", 2)
        .currentSet(1)
        .category("Food", 12)
        .transaction({.date = day(2014, 3, 9), .category = "Food", .set = "Savings"})
        .transaction({.date = day(2014, 3, 8), .category = "Food", .set = "Checking"})
        .transaction({.date = day(2014, 3, 1), .category = "Food", .setID = 99});
    mDocument.updateDates();
    expectBounds(day(2014, 3, 1), day(2014, 3, 9));
    expectBounds("Food", day(2014, 3, 1), day(2014, 3, 9));
}

TEST_F(CVDocumentDates, NarrowAfterARemoval) {
    mBudget.category("Food", 12)
        .transaction({.date = day(2014, 3, 9), .category = "Food"})
        .transaction({.date = day(2014, 3, 8), .category = "Food"})
        .transaction({.date = day(2014, 3, 1), .category = "Food"});
    mDocument.updateDates();
    mDocument.removeTransaction(std::shared_ptr(mBudget.transactionAt(0)));
    expectBounds(day(2014, 3, 1), day(2014, 3, 8));
    expectBounds("Food", day(2014, 3, 1), day(2014, 3, 8));
    mDocument.removeTransaction(std::shared_ptr(mBudget.transactionAt(1)));
    expectBounds(day(2014, 3, 8), day(2014, 3, 8));
    expectBounds("Food", kToday, day(2014, 3, 8));
}

TEST_F(CVDocumentDates, OfTheDocumentStayWhenTheLastTransactionGoes) {
    mBudget.category("Food", 12).transaction({.date = day(2014, 3, 9), .category = "Food"});
    mDocument.updateDates();
    mDocument.removeTransaction(std::shared_ptr(mBudget.transactionAt(0)));
    expectBounds(day(2014, 3, 9), day(2014, 3, 9));
    expectBounds("Food", kToday, kToday);
}

TEST_F(CVDocumentDates, OfTheDocumentStayWhenNoTransactionHasADate) {
    mDocument.setEarliestTransactionDate(day(2001, 1, 1));
    mDocument.setLatestTransactionDate(day(2002, 2, 2));
    mBudget.transaction({}).transaction({});
    mDocument.updateDates();
    expectBounds(day(2001, 1, 1), day(2002, 2, 2));
}

TEST_F(CVDocumentDates, OfTheDocumentAreThoseOfTheLastAndTheFirstDatedTransaction) {
    mBudget.transaction({})
        .transaction({.date = day(2014, 3, 5)})
        .transaction({.date = day(2014, 3, 9)})
        .transaction({})
        .transaction({.date = day(2014, 3, 1)})
        .transaction({.date = day(2014, 3, 4)})
        .transaction({});
    mDocument.updateDates();
    expectBounds(day(2014, 3, 4), day(2014, 3, 5));
}

TEST_F(CVDocumentDates, GoToTheFirstOfSeveralCategoriesWithAnID) {
    mBudget.category("First", 5).category("Second", 5).transaction({.date = day(2010, 1, 1), .categoryID = 5});
    mDocument.updateDates();
    expectBounds("First", day(2010, 1, 1), kToday);
    expectBounds("Second", kToday, kToday);
}

TEST_F(CVDocumentDates, CanBeSetAndTakenAway) {
    mDocument.setEarliestTransactionDate(day(2001, 1, 1));
    mDocument.setLatestTransactionDate(day(2002, 2, 2));
    expectBounds(day(2001, 1, 1), day(2002, 2, 2));
    mDocument.setEarliestTransactionDate(std::nullopt);
    mDocument.setLatestTransactionDate(std::nullopt);
    expectBounds(std::nullopt, std::nullopt);
}

/// The insertion place according to the exact rule: a binary search that ends at the first equal date.
std::size_t searchedIndex(const CVTransactions& transactions, const std::optional<QBDate>& date) {
    if (transactions.empty())
        return 0;
    // A missing date is older than all others.
    const auto before = [](const std::optional<QBDate>& a, const std::optional<QBDate>& b) {
        return b && (!a || a->comesBefore(*b));
    };
    int low = 0;
    int high = static_cast<int>(transactions.size()) - 1;
    while (true) {
        const int mid = (low + high) / 2;
        const auto& d = transactions[static_cast<std::size_t>(mid)]->effectiveDate();
        if (before(d, date)) {
            high = mid - 1;
            if (low > high)
                return static_cast<std::size_t>(mid);
        } else if (before(date, d)) {
            low = mid + 1;
            if (low > high)
                return static_cast<std::size_t>(mid) + 1;
        } else {
            return static_cast<std::size_t>(mid);
        }
    }
}

TEST(CVDocumentInsertionIndex, IsWhereTheSearchMeetsTheDayFirst) {
    for (std::size_t count = 0; count <= 9; ++count) {
        BudgetBuilder budget;
        for (std::size_t i = 0; i < count; ++i)
            budget.transaction({.date = kToday});
        const CVDocument& document = budget.document();
        EXPECT_EQ(document.indexInTransactionArrayOfDate(kToday), count == 0 ? 0 : (count - 1) / 2);
        EXPECT_EQ(document.indexInTransactionArrayOfDate(day(2014, 3, 8)), 0U);
        EXPECT_EQ(document.indexInTransactionArrayOfDate(day(2014, 3, 6)), count);
        EXPECT_EQ(document.indexInTransactionArrayOfDate(std::nullopt), count);
    }
}

TEST(CVDocumentInsertionIndex, FollowsTheSearchInAnyOrder) {
    for (quint32 seed = 0; seed < 1000; ++seed) {
        RandomBudget budget(seed);
        if (budget.oneIn(2))
            budget.builder().inOrder();
        const CVDocument& document = budget.document();
        for (int i = 0; i < 20; ++i) {
            const auto date = budget.date();
            ASSERT_EQ(document.indexInTransactionArrayOfDate(date), searchedIndex(document.transactions(), date))
                << seed;
        }
    }
}

TEST(CVDocumentInsertionIndex, KeepsTheOrderOfDays) {
    for (quint32 seed = 0; seed < 200; ++seed) {
        RandomBudget budget(seed);
        budget.builder().inOrder();
        for (int i = 0; i < 20; ++i)
            budget.document().insertTransaction(budget.transaction());
        const auto& transactions = budget.document().transactions();
        ASSERT_TRUE(std::is_sorted(transactions.begin(), transactions.end(), [](const auto& a, const auto& b) {
            return a->effectiveDate() > b->effectiveDate();
        })) << seed;
    }
}

} // namespace
