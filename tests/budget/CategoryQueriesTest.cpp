#include "budget/CVCategoryAverages.h"
#include "budget/CVSpending.h"
#include "budget/CategoryIds.h"
#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

#include <array>

namespace {

BudgetBuilder::Entry food(const QBDate& date, double amount, bool taxFlag = true) {
    return {.date = date, .amount = amount, .categoryID = kFood, .taxFlag = taxFlag};
}

CVTransactions made(std::initializer_list<BudgetBuilder::Entry> entries) {
    CVTransactions transactions;
    for (const BudgetBuilder::Entry& entry : entries)
        transactions.push_back(makeTransaction(entry));
    return transactions;
}

struct QueriesOfACategory : testing::Test {
    QueriesOfACategory() { category.setUniqueID(kFood); }

    [[nodiscard]] double taxExpense(const CVTransactions& transactions) const {
        return taxExpenseForCategoryFromTransactions(category, transactions, start, end);
    }
    [[nodiscard]] quint64 taxItems(const CVTransactions& transactions) const {
        return taxItemsForCategoryFromTransactions(category, transactions, start, end);
    }
    [[nodiscard]] double average(const CVTransactions& transactions) const {
        return computeAverageForTransactions(category, transactions, start, end);
    }

    QBDate start = day(2014, 1, 1);
    QBDate end = day(2014, 12, 31);
    CVCategory category;
};

TEST_F(QueriesOfACategory, TaxOfNoTransactionsIsZero) {
    EXPECT_EQ(taxExpense({}), 0);
    EXPECT_EQ(taxItems({}), 0U);
}

TEST_F(QueriesOfACategory, TaxIsOfTheFlaggedTransactionsOfTheCategoryInTheRange) {
    const auto transactions =
        made({food(start, 1), food(end, 10), food(start.dateByAddingYears(0, 0, -1), 100),
              food(end.dateByAddingYears(0, 0, 1), 1000), food(start, 10'000, false),
              BudgetBuilder::Entry{.date = start, .amount = 1e5, .categoryID = 2, .taxFlag = true},
              BudgetBuilder::Entry{.amount = 1e6, .categoryID = kFood, .taxFlag = true}});
    EXPECT_EQ(taxExpense(transactions), 11);
    EXPECT_EQ(taxItems(transactions), 2U);
}

TEST_F(QueriesOfACategory, TaxIsRoundedAfterEveryAddition) {
    EXPECT_EQ(taxExpense(made({food(start, 0.004), food(start, 0.004), food(start, 0.004)})), 0);
    EXPECT_EQ(taxExpense(made({food(start, -0.006), food(start, -0.006)})), -0.02);
}

struct PeriodRow {
    qint64 frequency;
    /// The last days of the longest range without a whole period and of the shortest ranges with one and two, all from
    /// 1 January 2014.
    QBDate lastDayTooShort;
    QBDate lastDayOfOne;
    QBDate lastDayOfTwo;
};

TEST_F(QueriesOfACategory, AverageIsTheSpendingByTheWholePeriodsOfItsFrequency) {
    const std::array rows{
        PeriodRow{CVExpenseFrequency::kWeekly, day(2014, 1, 6), day(2014, 1, 7), day(2014, 1, 14)},
        PeriodRow{CVExpenseFrequency::kBiWeekly, day(2014, 1, 13), day(2014, 1, 14), day(2014, 1, 28)},
        PeriodRow{CVExpenseFrequency::kMonthly, day(2014, 1, 30), day(2014, 1, 31), day(2014, 2, 28)},
        PeriodRow{CVExpenseFrequency::kBiMonthly, day(2014, 2, 27), day(2014, 2, 28), day(2014, 4, 30)},
        PeriodRow{CVExpenseFrequency::kQuarterly, day(2014, 3, 30), day(2014, 3, 31), day(2014, 6, 30)},
        PeriodRow{CVExpenseFrequency::kSemiAnnually, day(2014, 6, 29), day(2014, 6, 30), day(2014, 12, 31)},
        PeriodRow{CVExpenseFrequency::kAnnually, day(2014, 12, 30), day(2014, 12, 31), day(2015, 12, 31)},
    };
    const auto transactions = made({food(start, 10), food(start, 0.01)});
    for (const PeriodRow& row : rows) {
        SCOPED_TRACE(row.frequency);
        category.setExpenseFrequency(row.frequency);
        end = row.lastDayTooShort;
        EXPECT_EQ(average(transactions), 0);
        end = row.lastDayOfOne;
        EXPECT_EQ(average(transactions), 10.01);
        end = row.lastDayOfTwo.dateByAddingYears(0, 0, -1);
        EXPECT_EQ(average(transactions), 10.01);
        end = row.lastDayOfTwo;
        EXPECT_EQ(average(transactions), 5.01);
    }
}

TEST_F(QueriesOfACategory, AverageOfASemiMonthlyCategoryIsByTwiceTheMonths) {
    category.setExpenseFrequency(CVExpenseFrequency::kSemiMonthly);
    const auto transactions = made({food(start, 12)});
    end = day(2014, 1, 30);
    EXPECT_EQ(average(transactions), 0);
    end = day(2014, 1, 31);
    EXPECT_EQ(average(transactions), 6);
    end = day(2014, 3, 31);
    EXPECT_EQ(average(transactions), 2);
}

TEST_F(QueriesOfACategory, AverageOfAQuarterlyCategoryOverTwoMonthsIsZero) {
    category.setExpenseFrequency(CVExpenseFrequency::kQuarterly);
    end = day(2014, 2, 28);
    EXPECT_EQ(average(made({food(start, 10)})), 0);
}

TEST_F(QueriesOfACategory, AverageOfAnUnknownFrequencyIsZero) {
    for (const qint64 code : {CVExpenseFrequency::kUnknown, qint64(8), qint64(-100), qint64(1) << 40}) {
        category.setExpenseFrequency(code);
        EXPECT_EQ(average(made({food(start, 10)})), 0) << code;
    }
}

TEST_F(QueriesOfACategory, AverageCountsOnlyItsTransactionsInTheRangeAndRoundsEveryAddition) {
    category.setExpenseFrequency(CVExpenseFrequency::kMonthly);
    end = day(2014, 1, 31);
    EXPECT_EQ(average(made({food(start, 1), food(end, 10), food(start.dateByAddingYears(0, 0, -1), 100),
                            food(end.dateByAddingYears(0, 0, 1), 1000),
                            BudgetBuilder::Entry{.date = start, .amount = 10'000, .categoryID = 2},
                            BudgetBuilder::Entry{.amount = 1e5, .categoryID = kFood}})),
              11);
    EXPECT_EQ(average(made({food(start, 0.004), food(start, 0.004), food(start, 0.004)})), 0);
}

TEST_F(QueriesOfACategory, AverageDoesNotChangeTheComputedFields) {
    category.setTotal(5);
    category.setNumberOfTransactions(6);
    (void)average(made({food(start, 10)}));
    (void)taxExpense(made({food(start, 10)}));
    EXPECT_EQ(category.total(), 5);
    EXPECT_EQ(category.numberOfTransactions(), 6U);
}

TEST(CVSpendingOfRange, SharesTheSpendingBetweenCategoriesWithOneID) {
    const std::array<quint32, 3> ids{kFood, 2, kFood};
    const QBDate date = day(2014, 3, 7);
    const CVSpendingOfRange spending(made({food(date, 3)}), ids, {date, date});
    EXPECT_EQ(spending.of(kFood).total, 3);
    EXPECT_EQ(spending.of(kFood).count, 1U);
    EXPECT_EQ(spending.of(2).count, 0U);
    EXPECT_EQ(spending.of(2).firstDay, std::nullopt);
}

TEST(CVSpendingOfRange, KnowsNothingOfACategoryThatItWasNotMadeFor) {
    const QBDate date = day(2014, 3, 7);
    const CVSpendingOfRange spending(made({food(date, 3)}), {}, {date, date});
    EXPECT_EQ(spending.of(kFood).count, 0U);
    EXPECT_EQ(spending.of(kFood).total, 0);
    EXPECT_EQ(spending.grandTotal(), 3);
}

} // namespace
