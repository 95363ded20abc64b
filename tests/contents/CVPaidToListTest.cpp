#include "contents/CVPaidToList.h"

#include "kit/BudgetBuilder.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

CVTransactions payees(const QStringList& names) {
    CVTransactions transactions;
    for (const QString& name : names)
        transactions.push_back(makeTransaction({.payTo = name}));
    return transactions;
}

QStringList listOf(const QStringList& names, int numberOfItems) {
    CVPaidToList list;
    list.update(payees(names), numberOfItems);
    return list.payees();
}

TEST(CVPaidToList, HoldsTheFirstDifferentPayeesTheLastFoundFirst) {
    EXPECT_EQ(listOf({"P", "Q", "P", "R"}, 2), QStringList({"Q", "P"}));
    EXPECT_EQ(listOf({"P", "Q", "P", "R"}, 3), QStringList({"R", "Q", "P"}));
    EXPECT_EQ(listOf({"P", "Q", "P", "R"}, 10), QStringList({"R", "Q", "P"}));
    EXPECT_EQ(listOf({"P", "P", "P"}, 2), QStringList({"P"}));
    EXPECT_EQ(listOf({}, 2), QStringList());
}

TEST(CVPaidToList, DistinguishesCaseAndBlanks) {
    EXPECT_EQ(listOf({"p", "P", "P "}, 10), QStringList({"P ", "P", "p"}));
}

TEST(CVPaidToList, IsEmptyWhenNothingIsWanted) {
    EXPECT_EQ(listOf({"P", "Q"}, 0), QStringList());
    EXPECT_EQ(listOf({"P", "Q"}, -3), QStringList());
}

TEST(CVPaidToList, StartsAnewWithEachUpdate) {
    CVPaidToList list;
    list.update(payees({"P", "Q"}), 10);
    list.update(payees({"P"}), 10);
    EXPECT_EQ(list.payees(), QStringList({"P"}));
}

TEST(CVPaidToList, KeepsTheTransactionThatNamedThePayeeFirst) {
    const auto transactions = payees({"P", "P"});
    CVPaidToList list;
    list.update(transactions, 10);
    ASSERT_EQ(list.transactions().size(), 1U);
    EXPECT_EQ(list.transactions().front(), transactions.front());
}

} // namespace
