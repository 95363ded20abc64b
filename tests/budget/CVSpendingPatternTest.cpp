#include "budget/CVCategoryAverages.h"
#include "budget/CategoryIds.h"
#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct IntervalRow {
    int days;
    const char* label;
    qint64 frequency;
};

constexpr std::array kIntervals{
    IntervalRow{1, "Weekly", CVExpenseFrequency::kWeekly},
    IntervalRow{11, "Weekly", CVExpenseFrequency::kWeekly},
    IntervalRow{12, "Bi-Weekly", CVExpenseFrequency::kBiWeekly},
    IntervalRow{21, "Bi-Weekly", CVExpenseFrequency::kBiWeekly},
    IntervalRow{22, "Monthly", CVExpenseFrequency::kMonthly},
    IntervalRow{44, "Monthly", CVExpenseFrequency::kMonthly},
    IntervalRow{45, "2 Months", CVExpenseFrequency::kBiMonthly},
    IntervalRow{75, "2 Months", CVExpenseFrequency::kBiMonthly},
    IntervalRow{76, "Quarterly", CVExpenseFrequency::kQuarterly},
    IntervalRow{125, "Quarterly", CVExpenseFrequency::kQuarterly},
    IntervalRow{126, "Semi-Annually", CVExpenseFrequency::kSemiAnnually},
    IntervalRow{250, "Semi-Annually", CVExpenseFrequency::kSemiAnnually},
    IntervalRow{251, "Yearly", CVExpenseFrequency::kAnnually},
    IntervalRow{100'000, "Yearly", CVExpenseFrequency::kAnnually},
};

/// Transactions of the category: `total` on the first day and nothing on the others.
CVTransactions spentOn(double total, std::initializer_list<QBDate> days) {
    CVTransactions transactions;
    for (const QBDate& date : days)
        transactions.push_back(
            makeTransaction({.date = date, .amount = transactions.empty() ? total : 0, .categoryID = kFood}));
    return transactions;
}

TEST(CVSpendingPattern, IsThatOfTheDaysBetweenTwoTransactions) {
    const QBDate first = day(2014, 1, 1);
    for (const IntervalRow& row : kIntervals) {
        SCOPED_TRACE(row.days);
        CVCategory category;
        category.setUniqueID(kFood);
        const QBDate last = first.dateByAddingYears(0, 0, row.days);
        computeAveragesForArray(category, spentOn(1, {first, last}), first, last);
        EXPECT_EQ(category.billFrequency(), QLatin1String(row.label));
        EXPECT_EQ(category.budgetExpenseFrequency(), row.frequency);
    }
}

TEST(CVSpendingPattern, OfOneTransactionIsThatOfTheLengthOfTheRange) {
    const QBDate first = day(2014, 1, 1);
    for (const IntervalRow& row : kIntervals) {
        SCOPED_TRACE(row.days);
        CVCategory category;
        category.setUniqueID(kFood);
        computeAveragesForArray(category, spentOn(1, {first}), first, first.dateByAddingYears(0, 0, row.days - 1));
        EXPECT_EQ(category.billFrequency(), QLatin1String(row.label));
        EXPECT_EQ(category.budgetExpenseFrequency(), row.frequency);
    }
}

TEST(CVSpendingPattern, IsThatOfTheMeanIntervalWithoutItsFraction) {
    const QBDate first = day(2014, 1, 1);
    CVCategory category;
    category.setUniqueID(kFood);
    // 23 days in two gaps are 11.5 days each, which count as 11.
    const QBDate last = first.dateByAddingYears(0, 0, 23);
    computeAveragesForArray(category, spentOn(1, {first, first.dateByAddingYears(0, 0, 20), last}), first, last);
    EXPECT_EQ(category.billFrequency(), QStringLiteral("Weekly"));
    // 24 days in two gaps.
    const QBDate later = first.dateByAddingYears(0, 0, 24);
    computeAveragesForArray(category, spentOn(1, {first, first.dateByAddingYears(0, 0, 20), later}), first, later);
    EXPECT_EQ(category.billFrequency(), QStringLiteral("Bi-Weekly"));
}

struct AverageRow {
    const char* name;
    /// The days between two transactions.
    int interval;
    int daysOfRange;
    double total;
    double weekly;
    double biWeekly;
    double monthly;
};

// Every average is rounded before the next is computed from it.
constexpr std::array kAverages{
    AverageRow{"weekly, three weeks", 10, 21, 10, 3.33, 6.66, 14.43},
    AverageRow{"weekly, a day short of three weeks", 10, 20, 10, 5, 10, 21.67},
    AverageRow{"weekly, one week", 6, 7, 10.01, 10.01, 20.02, 43.38},
    AverageRow{"weekly, a day short of a week", 5, 6, 10, 0, 0, 0},
    AverageRow{"bi-weekly, three times", 13, 42, 10.01, 1.67, 3.34, 7.24},
    AverageRow{"bi-weekly, once", 13, 14, 10, 5, 10, 21.67},
    AverageRow{"monthly, three months", 30, 90, 100, 7.69, 15.38, 33.33},
    AverageRow{"monthly, a day short of three months", 30, 89, 100, 11.54, 23.08, 50},
    AverageRow{"monthly, a day short of a month", 25, 30, 100, 0, 0, 0},
    AverageRow{"monthly, one month", 25, 31, 100, 23.08, 46.15, 100},
    AverageRow{"two months", 50, 90, 100, 7.69, 15.38, 33.33},
    AverageRow{"quarterly", 80, 90, 100, 7.69, 15.38, 33.33},
    AverageRow{"semi-annually", 180, 365, -100, -1.92, -3.84, -8.33},
    AverageRow{"yearly", 300, 365, 100, 1.92, 3.84, 8.33},
};

TEST(CVSpendingPattern, DecidesWhichAverageIsDividedOutAndWhichFollow) {
    const QBDate first = day(2014, 1, 1);
    for (const AverageRow& row : kAverages) {
        SCOPED_TRACE(row.name);
        CVCategory category;
        category.setUniqueID(kFood);
        const auto transactions = spentOn(row.total, {first, first.dateByAddingYears(0, 0, row.interval)});
        computeAveragesForArray(category, transactions, first, first.dateByAddingYears(0, 0, row.daysOfRange - 1));
        EXPECT_EQ(category.total(), row.total);
        EXPECT_EQ(category.weekly(), row.weekly);
        EXPECT_EQ(category.biWeekly(), row.biWeekly);
        EXPECT_EQ(category.monthly(), row.monthly);
    }
}

TEST(CVSpendingPattern, OfOneTransactionInTooShortARangeHasNoAverages) {
    const QBDate first = day(2014, 2, 1);
    for (const int daysOfRange : {6, 12, 13, 22, 27}) {
        SCOPED_TRACE(daysOfRange);
        CVCategory category;
        category.setUniqueID(kFood);
        computeAveragesForArray(category, spentOn(10, {first}), first, first.dateByAddingYears(0, 0, daysOfRange - 1));
        EXPECT_EQ(category.total(), 10);
        EXPECT_EQ(category.weekly(), 0);
        EXPECT_EQ(category.biWeekly(), 0);
        EXPECT_EQ(category.monthly(), 0);
    }
}

} // namespace
