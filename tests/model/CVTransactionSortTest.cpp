#include "model/CVTransactionSort.h"

#include "kit/BudgetBuilder.h"
#include "kit/RandomBudget.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const QStringList kKeys{"date", "amount", "tofrom", "for", "category", "tax", "userflag", "no such column"};

/// Whether any two neighbours are in the wrong order.
bool hasWrongNeighbours(const CVTransactions& transactions, const CVTransactionSortContext& context) {
    return std::adjacent_find(transactions.begin(), transactions.end(), [&](const auto& a, const auto& b) {
               return CVCompareTransactions(*a, *b, context) > 0;
           }) != transactions.end();
}

TEST(CVSortTransactions, ComparesCategoryNamesWithoutRegardToCase) {
    BudgetBuilder budget;
    budget.category("Fuel", 1).category("food", 2);
    budget.transaction({.date = day(2014, 3, 7), .category = "Fuel"})
        .transaction({.date = day(2014, 3, 7), .category = "food"});
    auto transactions = budget.document().transactions();
    CVSortTransactions(transactions, {"date", false}, budget.document().categories());
    EXPECT_EQ(transactions.front()->categoryName(), "food");
    CVSortTransactions(transactions, {"date", true}, budget.document().categories());
    EXPECT_EQ(transactions.front()->categoryName(), "Fuel");
}

TEST(CVSortTransactions, OrdersAsTheComparisonSays) {
    BudgetBuilder budget;
    budget.category("Fuel", 1).category("food", 2).category("Auto", 3);
    for (int i = 0; i < 200; ++i) {
        budget.transaction({.date = day(2014, 3, 1 + i * 7 % 5),
                            .amount = i * 37 % 11 - 4.0,
                            .payTo = QString(QChar('a' + i * 13 % 26)),
                            .xfor = QString(QChar('A' + i * 5 % 26)),
                            .categoryID = static_cast<quint32>(1 + i % 3)});
    }
    for (const QString& key : kKeys) {
        for (const bool descending : {false, true}) {
            auto transactions = budget.document().transactions();
            CVSortTransactions(transactions, {key, descending}, budget.document().categories());
            EXPECT_FALSE(hasWrongNeighbours(transactions, {key, descending})) << key.toStdString() << descending;
        }
    }
}

TEST(CVSortTransactions, AnUnknownColumnLeavesEverythingInPlace) {
    BudgetBuilder budget;
    budget.transaction({.amount = 3}).transaction({.amount = 1}).transaction({.amount = 2});
    auto transactions = budget.document().transactions();
    CVSortTransactions(transactions, {"userflag", true}, budget.document().categories());
    EXPECT_EQ(transactions, budget.document().transactions());
}

TEST(CVSortTransactions, LosesNothingWhereTextsDatesAndCategoriesAreMissing) {
    for (quint32 seed = 1; seed <= 60; ++seed) {
        RandomBudget budget(seed, 300);
        const auto& all = budget.document().transactions();
        for (const QString& key : kKeys) {
            auto transactions = all;
            CVSortTransactions(transactions, {key, seed % 2 == 0}, budget.document().categories());
            EXPECT_TRUE(std::is_permutation(transactions.begin(), transactions.end(), all.begin(), all.end()));
        }
    }
}

TEST(CVSortTransactions, ComparesAnyTwoTransactionsAsTheOneComparisonDoes) {
    for (quint32 seed = 1; seed <= 60; ++seed) {
        RandomBudget budget(seed);
        const auto& all = budget.document().transactions();
        for (std::size_t i = 0; i + 1 < all.size(); ++i) {
            for (const QString& key : kKeys) {
                const CVTransactionSortContext context{key, i % 2 == 0};
                CVTransactions pair{all[i], all[i + 1]};
                CVSortTransactions(pair, context, budget.document().categories());
                EXPECT_EQ(pair.front() == all[i], CVCompareTransactions(*all[i], *all[i + 1], context) <= 0)
                    << key.toStdString();
            }
        }
    }
}

} // namespace
