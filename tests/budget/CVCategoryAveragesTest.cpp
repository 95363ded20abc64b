#include "budget/CVCategoryAverages.h"

#include "budget/BitsOf.h"
#include "budget/CVSpending.h"
#include "budget/CategoryIds.h"
#include "budget/PlainScan.h"
#include "kit/BudgetBuilder.h"

#include <QTranslator>

#include <gmock/gmock.h>

#include <array>
#include <limits>

namespace {

/// One transaction of the category for each amount, the first on `first` and the others `daysApart` days apart.
CVTransactions spent(const QBDate& first, std::initializer_list<double> amounts, int daysApart = 0) {
    CVTransactions transactions;
    QBDate date = first;
    for (const double amount : amounts) {
        transactions.push_back(makeTransaction({.date = date, .amount = amount, .categoryID = kFood}));
        date = date.dateByAddingYears(0, 0, daysApart);
    }
    return transactions;
}

struct AveragesOfACategory : testing::Test {
    AveragesOfACategory() {
        category.setUniqueID(kFood);
        // The values of an earlier range.
        category.setBudgetExpenseFrequency(CVExpenseFrequency::kAnnually);
        category.setNumberOfTransactions(99);
        category.setTotal(99);
        category.setMonthlyPeriods(99);
    }

    quint64 compute(const CVTransactions& transactions) {
        return computeAveragesForArray(category, transactions, start, end);
    }

    void expectOnceAMonth(double amount) const {
        EXPECT_EQ(category.billFrequency(), QStringLiteral("Monthly"));
        EXPECT_EQ(category.total(), amount);
        EXPECT_EQ(category.monthly(), amount);
        EXPECT_THAT(category.biWeekly(), BitsOf(amount * 12 / 26));
        EXPECT_THAT(category.weekly(), BitsOf(amount * 12 / 52));
        EXPECT_EQ(category.monthlyPeriods(), 1U);
        EXPECT_EQ(category.biWeeklyPeriods(), 1U);
        EXPECT_EQ(category.weeklyPeriods(), 1U);
    }

    QBDate start = day(2014, 1, 1);
    QBDate end = day(2014, 12, 31);
    CVCategory category;
};

TEST_F(AveragesOfACategory, WithoutTransactionsInTheRangeAreMonthlyAndZero) {
    auto transactions = spent(day(2013, 12, 31), {5});
    transactions.push_back(makeTransaction({.date = day(2015, 1, 1), .amount = 7, .categoryID = kFood}));
    EXPECT_EQ(compute(transactions), 0U);
    expectOnceAMonth(0);
    EXPECT_EQ(category.numberOfTransactions(), 0U);
    EXPECT_EQ(category.budgetExpenseFrequency(), CVExpenseFrequency::kMonthly);
}

TEST_F(AveragesOfACategory, WithoutAnyTransactionAreMonthlyAndZero) {
    EXPECT_EQ(compute({}), 0U);
    expectOnceAMonth(0);
    EXPECT_EQ(category.numberOfTransactions(), 0U);
}

TEST_F(AveragesOfACategory, OfSeveralTransactionsOnOneDayAreTheirSumOnceAMonth) {
    EXPECT_EQ(compute(spent(day(2014, 3, 7), {10, 20.5})), 2U);
    expectOnceAMonth(30.5);
    EXPECT_EQ(category.numberOfTransactions(), 2U);
    EXPECT_EQ(category.budgetExpenseFrequency(), CVExpenseFrequency::kMonthly);
}

TEST_F(AveragesOfACategory, OfMoreTransactionsThanDaysBetweenThemAreTheirSumOnceAMonth) {
    auto transactions = spent(day(2014, 3, 7), {1, 1, 1});
    transactions.push_back(makeTransaction({.date = day(2014, 3, 9), .amount = 1, .categoryID = kFood}));
    EXPECT_EQ(compute(transactions), 4U);
    expectOnceAMonth(4);
    EXPECT_EQ(category.numberOfTransactions(), 4U);
}

TEST_F(AveragesOfACategory, OfOneTransactionInARangeOf400DaysAreYearlyByTheMonthsOfTheRange) {
    end = start.dateByAddingYears(0, 0, 399);
    EXPECT_EQ(compute(spent(day(2014, 6, 1), {1300})), 1U);
    EXPECT_EQ(category.billFrequency(), QStringLiteral("Yearly"));
    EXPECT_EQ(category.budgetExpenseFrequency(), CVExpenseFrequency::kAnnually);
    EXPECT_EQ(category.total(), 1300);
    EXPECT_EQ(category.monthly(), 100);
    EXPECT_EQ(category.biWeekly(), 46.15);
    EXPECT_EQ(category.numberOfTransactions(), 1U);
    // The count is that of one year, although the range is longer.
    EXPECT_EQ(category.weeklyPeriods(), 52U);
    EXPECT_EQ(category.biWeeklyPeriods(), 26U);
    EXPECT_EQ(category.monthlyPeriods(), 12U);
}

TEST_F(AveragesOfACategory, OfOneTransactionInARangeOfFiveDaysAreWeeklyAndZero) {
    end = start.dateByAddingYears(0, 0, 4);
    EXPECT_EQ(compute(spent(start, {50})), 1U);
    EXPECT_EQ(category.billFrequency(), QStringLiteral("Weekly"));
    EXPECT_EQ(category.budgetExpenseFrequency(), CVExpenseFrequency::kWeekly);
    EXPECT_EQ(category.total(), 50);
    EXPECT_EQ(category.weekly(), 0);
    EXPECT_EQ(category.biWeekly(), 0);
    EXPECT_EQ(category.monthly(), 0);
    EXPECT_EQ(category.weeklyPeriods(), 0U);
    EXPECT_EQ(category.numberOfTransactions(), 1U);
}

TEST_F(AveragesOfACategory, InARangeOfOneDayCountItsTransactions) {
    end = start;
    EXPECT_EQ(compute(spent(start, {50})), 1U);
    EXPECT_EQ(category.billFrequency(), QStringLiteral("Weekly"));
    EXPECT_EQ(category.total(), 50);
    EXPECT_EQ(category.weekly(), 0);
    EXPECT_EQ(compute(spent(start, {50, 1})), 2U);
    expectOnceAMonth(51);
}

TEST_F(AveragesOfACategory, CountTheFirstAndTheLastDayOfTheRangeAndNoneBeyond) {
    const auto transactions = spent(start.dateByAddingYears(0, 0, -1), {1, 10, 100, 1000}, 1);
    end = start.dateByAddingYears(0, 0, 1);
    EXPECT_EQ(compute(transactions), 2U);
    EXPECT_EQ(category.total(), 110);
}

TEST_F(AveragesOfACategory, LeaveOutOtherCategoriesAndTransactionsWithoutADate) {
    auto transactions = spent(day(2014, 3, 7), {1});
    transactions.push_back(makeTransaction({.date = day(2014, 3, 7), .amount = 10, .categoryID = kFood + 1}));
    transactions.push_back(makeTransaction({.amount = 100, .categoryID = kFood}));
    EXPECT_EQ(compute(transactions), 1U);
    EXPECT_EQ(category.total(), 1);
}

TEST_F(AveragesOfACategory, RoundTheSumAfterEveryAddition) {
    // The average is not 0.01, which the rounded sum of all three would give.
    EXPECT_EQ(compute(spent(day(2014, 3, 7), {0.004, 0.004, 0.004}, 1)), 3U);
    EXPECT_EQ(category.total(), 0);
    EXPECT_EQ(compute(spent(day(2014, 3, 7), {0.006, 0.006}, 1)), 2U);
    EXPECT_EQ(category.total(), 0.02);
}

TEST_F(AveragesOfACategory, AddInTheOrderOfTheArray) {
    const double huge = 1e17;
    EXPECT_EQ(compute(spent(day(2014, 3, 7), {huge, 1, -huge}, 1)), 3U);
    EXPECT_EQ(category.total(), 0);
    EXPECT_EQ(compute(spent(day(2014, 3, 7), {huge, -huge, 1}, 1)), 3U);
    EXPECT_EQ(category.total(), 1);
}

TEST_F(AveragesOfACategory, DoNotMoveWithTransactionsOutsideTheRangeHoweverHugeTheSum) {
    // Rounding a rounded amount changes nothing; these are large amounts just below the limit of rounding.
    for (const double amount : {20000000000000.02, 35000000000000.07, 40000000000000.02, 44999999999999.97}) {
        auto transactions = spent(day(2014, 3, 7), {amount});
        for (int i = 0; i < 5; ++i)
            transactions.push_back(makeTransaction({.date = day(2013, 1, 1), .amount = 1, .categoryID = kFood}));
        EXPECT_EQ(compute(transactions), 1U);
        EXPECT_THAT(category.total(), BitsOf(amount));
        EXPECT_THAT(category.total(), BitsOf(PlainScan::averages(category, transactions, {start, end}).total));
    }
}

TEST_F(AveragesOfACategory, DoNotDependOnTheOrderOfTheDays) {
    auto transactions = spent(day(2014, 3, 1), {1, 2, 3}, 30);
    std::swap(transactions[0], transactions[1]);
    EXPECT_EQ(compute(transactions), 3U);
    EXPECT_EQ(category.billFrequency(), QStringLiteral("Monthly"));
    EXPECT_EQ(category.monthlyPeriods(), 2U);
}

TEST_F(AveragesOfACategory, CountPeriodsFromTheFirstTransactionToTheLast) {
    EXPECT_EQ(compute(spent(day(2014, 3, 1), {1, 1, 1}, 41)), 3U);
    EXPECT_EQ(category.weeklyPeriods(), 11U);
    EXPECT_EQ(category.biWeeklyPeriods(), 5U);
    EXPECT_EQ(category.monthlyPeriods(), 2U);
}

TEST_F(AveragesOfACategory, GiveTheDefaultAmountsUnrounded) {
    category.setBudgetExpenseFrequency(CVExpenseFrequency::kQuarterly);
    category.setNumberOfTransactions(7);
    setDefaultAmounts(category, 100.01);
    expectOnceAMonth(100.01);
    EXPECT_EQ(category.budgetExpenseFrequency(), CVExpenseFrequency::kQuarterly);
    EXPECT_EQ(category.numberOfTransactions(), 7U);
}

/// A translator that writes every text in capitals.
class LoudTranslator final : public QTranslator {
public:
    [[nodiscard]] QString translate(const char* context, const char* sourceText, const char* /*disambiguation*/,
                                    int /*n*/) const override {
        return qstrcmp(context, "CVCategoryAverages") == 0 ? QString::fromLatin1(sourceText).toUpper() : QString();
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

TEST_F(AveragesOfACategory, NameThePatternInTheUsersLanguage) {
    LoudTranslator translator;
    QCoreApplication::installTranslator(&translator);
    setDefaultAmounts(category, 1);
    EXPECT_EQ(category.billFrequency(), QStringLiteral("MONTHLY"));
    compute(spent(day(2014, 1, 1), {1, 1}, 70));
    EXPECT_EQ(category.billFrequency(), QStringLiteral("2 MONTHS"));
    QCoreApplication::removeTranslator(&translator);
}

TEST_F(AveragesOfACategory, FromSpendingThatWasAddedUpForOthersAreThoseOfNothing) {
    const std::array<quint32, 1> other{kFood + 1};
    const CVSpendingOfRange spending(spent(day(2014, 3, 7), {10}), other, {start, end});
    EXPECT_EQ(computeAverages(category, spending), 0U);
    expectOnceAMonth(0);
}

} // namespace
