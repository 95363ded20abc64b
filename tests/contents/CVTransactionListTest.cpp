#include "contents/CVTransactionList.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBMoney.h"
#include "budget/CVTransactionRange.h"
#include "contents/CVTransactionSearch.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "kit/RandomBudget.h"
#include "model/CVCompareTransactions.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

namespace {

constexpr int kLastMonth = 4;

class CVTransactionListTest : public testing::Test {
protected:
    void rebuild() {
        mList.collectTransactions();
        if (mList.transactionPeriod() == 0)
            mList.setRange({day(1900, 1, 1), day(2100, 1, 1)});
        else
            mList.setRangeFromPreset(kToday);
        mList.getTransactions();
        mList.filterTransactions();
        mList.doUserSort();
    }

    [[nodiscard]] QString column() { return defaults().stringForKey(CVDefaultsKeys::kTransactionSortColumn).value(); }
    [[nodiscard]] int order() { return defaults().integerForKey(CVDefaultsKeys::kTransactionSortOrder); }
    [[nodiscard]] QBUserDefaults& defaults() { return mBudget.userDefaults(); }

    /// The payees of stage 3, in its order.
    [[nodiscard]] QStringList payees() const {
        QStringList texts;
        for (const auto& transaction : mList.displayTransactions())
            texts.append(transaction->payTo());
        return texts;
    }

    const QBDate kToday = day(2014, 3, 7);
    FixedToday mToday{kToday};
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

TEST_F(CVTransactionListTest, WithoutSetsACurrentSetThatIsGoneHidesNothing) {
    mBudget.currentSet(27).transaction({.amount = 1});
    rebuild();
    EXPECT_EQ(mList.transactions().size(), 1U);
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

TEST_F(CVTransactionListTest, ARemovedTransactionIsListedUntilTheListIsRebuilt) {
    mBudget.transaction({.amount = 2, .payTo = "Market"});
    rebuild();
    mBudget.document().removeTransaction(mBudget.transactionAt(0));
    mList.collectTransactions();
    EXPECT_EQ(payees(), QStringList{"Market"});
    rebuild();
    EXPECT_TRUE(mList.displayTransactions().empty());
}

TEST_F(CVTransactionListTest, BothEndsOfTheRangeBelongToIt) {
    for (const int dayOfMonth : {31, 28, 14, 1})
        mBudget.transaction(
            {.date = day(2014, dayOfMonth == 31 ? 1 : 2, dayOfMonth), .payTo = QString::number(dayOfMonth)});
    mBudget.transaction({.date = day(2014, 3, 1), .payTo = "March"}).inOrder();
    mList.setTransactionPeriod(kLastMonth);
    rebuild();
    EXPECT_EQ(payees(), (QStringList{"28", "14", "1"}));
    EXPECT_EQ(mList.totals().count, 5U);
    EXPECT_EQ(mList.displayTotals().count, 3U);
}

TEST_F(CVTransactionListTest, ALineWithoutADateIsListedWhereAllAreAskedForAndNowhereElse) {
    mBudget.transaction({.date = day(2014, 2, 1), .payTo = "dated"}).transaction({.payTo = "undated"}).inOrder();
    rebuild();
    EXPECT_EQ(payees(), (QStringList{"dated", "undated"}));
    mList.setRange({day(2014, 2, 2), day(2014, 2, 3)});
    mList.getTransactions();
    mList.filterTransactions();
    EXPECT_EQ(payees(), QStringList());
    mList.setTransactionPeriod(kLastMonth);
    rebuild();
    EXPECT_EQ(payees(), QStringList{"dated"});
}

TEST_F(CVTransactionListTest, TheRangeOfAllGrowsToHoldANewDateAndNoOtherRangeDoes) {
    mBudget.transaction({.date = day(2014, 2, 1)}).transaction({.date = day(2014, 2, 9)}).inOrder();
    mList.setRangeFromPreset(kToday);
    mList.updateDisplayDatesWithTransaction(*makeTransaction({.date = day(2014, 1, 5)}));
    mList.updateDisplayDatesWithTransaction(*makeTransaction({.date = day(2014, 2, 5)}));
    mList.updateDisplayDatesWithTransaction(*makeTransaction({.date = day(2014, 4, 5)}));
    mList.updateDisplayDatesWithTransaction(*makeTransaction({}));
    EXPECT_EQ(mList.range(), (CVDayRange{day(2014, 1, 5), day(2014, 4, 5)}));
    mList.setTransactionPeriod(kLastMonth);
    mList.updateDisplayDatesWithTransaction(*makeTransaction({.date = day(2013, 1, 5)}));
    EXPECT_EQ(mList.range(), (CVDayRange{day(2014, 1, 5), day(2014, 4, 5)}));
}

TEST_F(CVTransactionListTest, AnEmptySearchShowsTheWholeRange) {
    mBudget.transaction({.date = day(2014, 2, 1), .payTo = "Market"})
        .transaction({.date = day(2014, 2, 1), .payTo = "Baker"});
    mList.setSearchType(1);
    mList.setSearchText("market");
    rebuild();
    EXPECT_EQ(payees(), QStringList{"Market"});
    mList.setSearchText("");
    rebuild();
    EXPECT_EQ(payees().size(), 2);
}

TEST_F(CVTransactionListTest, TransactionsOfOneDaySortByCategoryNameWithoutRegardToCase) {
    defaults().setString(CVDefaultsKeys::kTransactionSortColumn, "date");
    mBudget.category("Fuel", 1).category("food", 2);
    mBudget.transaction({.date = day(2014, 2, 1), .payTo = "pump", .category = "Fuel"})
        .transaction({.date = day(2014, 2, 1), .payTo = "market", .category = "food"});
    rebuild();
    EXPECT_EQ(payees(), (QStringList{"market", "pump"}));
}

CVTransactions plainStage1(const CVDocument& document) {
    CVTransactions transactions;
    for (const auto& transaction : document.transactions()) {
        if (transaction->transactionSetID() == document.shownTransactionSet())
            transactions.push_back(transaction);
    }
    return transactions;
}

double plainTotal(const CVTransactions& transactions) {
    double sum = 0;
    for (const auto& transaction : transactions)
        sum += transaction->amount();
    return RoundDoubleToTwoPlaces(sum);
}

/// The kinds of search that compare texts: 0 to 3.
constexpr quint32 kTextKinds = 4;

bool plainMatch(const CVTransaction& transaction, CVSearchKind kind, const QString& text) {
    const auto isFound = [&text](const QString& in) { return in.isNull() || in.contains(text, Qt::CaseInsensitive); };
    const bool isInPayee = isFound(transaction.payTo());
    const bool isInFor = isFound(transaction.xfor());
    const bool isInCategory = isFound(transaction.categoryName());
    switch (kind) {
    case CVSearchKind::PaidTo:
        return isInPayee;
    case CVSearchKind::For:
        return isInFor;
    case CVSearchKind::Category:
        return isInCategory;
    default:
        return isInPayee || isInFor || isInCategory;
    }
}

/// Stage 3 in plain code, for the range of all and a search of texts.
CVTransactions plainStage3(const CVDocument& document, const CVTransactionList& list) {
    CVTransactions rows;
    for (const auto& transaction : document.transactions()) {
        const auto date = transaction->effectiveDate();
        const bool isListed =
            transaction->transactionSetID() == document.shownTransactionSet() && (!date || list.range().contains(date));
        if (isListed && (list.searchText().isEmpty() ||
                         plainMatch(*transaction, static_cast<CVSearchKind>(list.searchType()), list.searchText())))
            rows.push_back(transaction);
    }
    std::stable_sort(rows.begin(), rows.end(), [&list](const auto& a, const auto& b) {
        return CVCompareTransactions(*a, *b, list.sortContext()) < 0;
    });
    return rows;
}

RC_GTEST_PROP(CVTransactionListProperty, TheStagesAreThoseOfPlainLoops, (quint32 seed)) {
    RandomBudget budget(seed);
    CVDocument& document = budget.document();
    document.sortTransactionsByDate();
    document.updateDates();
    CVTransactionList list(document);
    for (int change = 0; change < 8; ++change) {
        list.collectTransactions();
        RC_ASSERT(list.transactions() == plainStage1(document));
        list.setRangeFromPreset(day(2014, 3, 7));
        list.setSearchType(static_cast<int>(budget.below(kTextKinds)));
        list.setSearchText(budget.text().left(static_cast<qsizetype>(budget.below(4))));
        list.getTransactions();
        list.filterTransactions();
        list.doUserSort();
        RC_ASSERT(list.displayTransactions() == plainStage3(document, list));
        RC_ASSERT(list.totals().amount == plainTotal(list.transactions()));
        RC_ASSERT(list.displayTotals().amount == plainTotal(list.displayTransactions()));
        if (budget.oneIn(3)) {
            budget.change();
            document.updateDates();
        }
        for (quint32 left = budget.below(3); left > 0; --left)
            document.insertTransaction(budget.transaction());
    }
}

} // namespace
