#include "model/CVTransactionSort.h"

#include "kit/RandomBudget.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

namespace {

using testing::ElementsAre;

/// The expected result: a stable sort with the one comparison function.
CVTransactions sortedByComparison(CVTransactions transactions, const CVTransactionSortContext& context) {
    std::stable_sort(transactions.begin(), transactions.end(),
                     [&context](const auto& a, const auto& b) { return CVCompareTransactions(*a, *b, context) < 0; });
    return transactions;
}

TEST(SortTransactionsByDate, PutsTheNewestDayFirstAndCategoriesFromZToA) {
    BudgetBuilder budget;
    budget.category("Auto", 1)
        .category("food", 2)
        .category("Zoo", 3)
        .transaction({.date = day(2014, 3, 7), .category = "Auto"})
        .transaction({})
        .transaction({.date = day(2014, 3, 7), .category = "Zoo"})
        .transaction({.date = day(2014, 3, 8), .category = "Auto"})
        .transaction({.date = day(2014, 3, 7), .category = "food"})
        .transaction({.date = day(-5000, 1, 1), .category = "Zoo"});
    const CVTransactions given = budget.document().transactions();
    budget.document().sortTransactionsByDate();
    EXPECT_THAT(budget.document().transactions(),
                ElementsAre(given[3], given[2], given[4], given[0], given[5], given[1]));
}

TEST(SortTransactionsByDate, LeavesEqualOnesAsTheyWere) {
    BudgetBuilder budget;
    budget.category("food", 1).category("FOOD", 2);
    for (int i = 0; i < 40; ++i)
        budget.transaction(
            {.date = day(2014, 3, 7), .amount = 40.0 - i, .categoryID = 1 + static_cast<quint32>(i % 2)});
    const CVTransactions given = budget.document().transactions();
    budget.document().sortTransactionsByDate();
    EXPECT_TRUE(budget.document().transactions() == given);
}

TEST(CVSortTransactions, ComparesCategoryNamesWithoutRegardToCase) {
    BudgetBuilder budget;
    budget.category("Fuel", 1).category("food", 2);
    budget.transaction({.date = day(2014, 3, 7), .category = "Fuel"})
        .transaction({.date = day(2014, 3, 7), .category = "food"});
    auto transactions = budget.document().transactions();
    CVSortTransactions(transactions, {"date", false});
    EXPECT_EQ(transactions.front()->categoryName(), "food");
    CVSortTransactions(transactions, {"date", true});
    EXPECT_EQ(transactions.front()->categoryName(), "Fuel");
}

TEST(CVSortTransactions, AnUnknownColumnLeavesEverythingInPlace) {
    BudgetBuilder budget;
    budget.transaction({.amount = 3}).transaction({.amount = 1}).transaction({.amount = 2});
    auto transactions = budget.document().transactions();
    CVSortTransactions(transactions, {"userflag", true});
    EXPECT_EQ(transactions, budget.document().transactions());
}

TEST(CVSortTransactions, AnswersAsTheComparisonForEveryColumnOfRandomBudgets) {
    for (quint32 seed = 0; seed < 500; ++seed) {
        RandomBudget budget(seed, 60);
        for (const char* const key : {"date", "amount", "tofrom", "for", "category", "tax", "userflag", "none"}) {
            for (const bool descending : {false, true}) {
                CVTransactions sorted = budget.document().transactions();
                const CVTransactionSortContext context{QString::fromLatin1(key), descending};
                CVSortTransactions(sorted, context);
                ASSERT_TRUE(sorted == sortedByComparison(budget.document().transactions(), context))
                    << "seed " << seed << ", key " << key << (descending ? " descending" : "");
            }
        }
    }
}

TEST(SortTransactionsByDate, AnswersAsTheComparisonForLargeBudgets) {
    for (quint32 seed = 0; seed < 20; ++seed) {
        RandomBudget budget(seed, 5'000);
        const auto expected = sortedByComparison(budget.document().transactions(), {"date", true});
        budget.document().sortTransactionsByDate();
        ASSERT_TRUE(budget.document().transactions() == expected) << "seed " << seed;
    }
}

TEST(SortTransactionsByDate, StaysInBoundsWhateverNamesAreMissing) {
    for (quint32 seed = 0; seed < 200; ++seed) {
        RandomBudget budget(seed, 0);
        CVDocument& document = budget.document();
        // All transactions have one day, so that only the names decide, and most names are missing.
        for (quint32 i = 0; i < 300; ++i)
            budget.builder().transaction({.date = day(2014, 3, 7), .categoryID = budget.below(20)});
        CVTransactions expected = document.transactions();
        document.sortTransactionsByDate();
        CVTransactions sorted = document.transactions();
        std::sort(expected.begin(), expected.end());
        std::sort(sorted.begin(), sorted.end());
        ASSERT_TRUE(sorted == expected) << "the sort lost or doubled a transaction, seed " << seed;
    }
}

/// Pairs of a day of March 2014 (0 for no date) and a category ID, small enough that a failure shrinks to few
/// transactions.
using Drafts = std::vector<std::pair<int, quint32>>;

BudgetBuilder& build(BudgetBuilder& budget, const Drafts& drafts) {
    // Category 3 has no name, and no category has ID 4.
    budget.category("b", 0).category("a", 1).category("B", 2).category(QString(), 3);
    for (const auto& [dayOfMonth, categoryID] : drafts)
        budget.transaction(
            {.date = dayOfMonth ? std::optional(day(2014, 3, dayOfMonth)) : std::nullopt, .categoryID = categoryID});
    return budget;
}

RC_GTEST_PROP(SortTransactionsByDateProperty, AnswersAsTheComparison, ()) {
    const auto drafts =
        *rc::gen::container<Drafts>(rc::gen::pair(rc::gen::inRange(0, 4), rc::gen::inRange<quint32>(0, 5)));
    BudgetBuilder budget;
    build(budget, drafts);
    const auto expected = sortedByComparison(budget.document().transactions(), {"date", true});
    budget.document().sortTransactionsByDate();
    RC_ASSERT(budget.document().transactions() == expected);
}

} // namespace
