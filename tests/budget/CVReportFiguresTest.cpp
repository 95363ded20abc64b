#include "budget/CVReportFigures.h"

#include "budget/BitsOf.h"
#include "budget/CategoryIds.h"
#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

/// A report over the first quarter of 2014.
struct ReportOfABudget : testing::Test {
    ReportOfABudget() {
        budget.category(QStringLiteral("Food"), kFood, CVExpenseFrequency::kMonthly, 25.255)
            .category(QStringLiteral("Car"), kCar, CVExpenseFrequency::kQuarterly, 0);
    }

    ReportOfABudget& spend(const QBDate& date, double amount, quint32 categoryID = kFood, bool taxFlag = false) {
        budget.transaction({.date = date, .amount = amount, .categoryID = categoryID, .taxFlag = taxFlag});
        return *this;
    }

    [[nodiscard]] CVCategory& food() const { return *budget.categoryNamed(QStringLiteral("Food")); }
    [[nodiscard]] CVCategory& car() const { return *budget.categoryNamed(QStringLiteral("Car")); }
    [[nodiscard]] CVReportFigures figures() {
        return {budget.document().transactions(), budget.document().categories(), range};
    }

    BudgetBuilder budget;
    CVDayRange range{day(2014, 1, 1), day(2014, 3, 31)};
};

TEST_F(ReportOfABudget, FillsTheAveragesOfEveryCategory) {
    spend(day(2014, 1, 1), 60).spend(day(2014, 1, 31), 30).spend(day(2014, 2, 1), 7, kCar);
    EXPECT_EQ(figures().numberOfTransactions(), 3U);
    EXPECT_EQ(food().total(), 90);
    EXPECT_EQ(food().monthly(), 30);
    EXPECT_EQ(food().billFrequency(), QStringLiteral("Monthly"));
    EXPECT_EQ(food().numberOfTransactions(), 2U);
    EXPECT_EQ(car().total(), 7);
    EXPECT_EQ(car().billFrequency(), QStringLiteral("Quarterly"));
}

TEST_F(ReportOfABudget, CountsTheTransactionsOfItsCategoriesInTheRange) {
    spend(day(2014, 1, 1), 1).spend(day(2014, 3, 31), 1, kCar);
    spend(day(2013, 12, 31), 1).spend(day(2014, 4, 1), 1).spend(day(2014, 2, 1), 1, 77);
    EXPECT_EQ(figures().numberOfTransactions(), 2U);
}

TEST_F(ReportOfABudget, CountsTransactionsOnceForEachCategoryThatSharesTheirID) {
    budget.category(QStringLiteral("Food again"), kFood);
    spend(day(2014, 1, 1), 1);
    EXPECT_EQ(figures().numberOfTransactions(), 2U);
    EXPECT_EQ(budget.categoryNamed(QStringLiteral("Food again"))->total(), 1);
}

TEST_F(ReportOfABudget, ShowsTheAverageOfTheCategorysFrequencyAndTheDifferenceUnrounded) {
    spend(day(2014, 1, 1), 60).spend(day(2014, 2, 1), 10, kCar);
    const CVReportFigures figures = this->figures();
    EXPECT_EQ(figures.average(food()), 20);
    EXPECT_THAT(figures.difference(food()), BitsOf(25.255 - 20));
    EXPECT_EQ(figures.average(car()), 10);
    EXPECT_EQ(figures.difference(car()), -10);
}

TEST_F(ReportOfABudget, FollowsAChangeOfFrequencyAndTargetAtOnce) {
    spend(day(2014, 1, 1), 60);
    const CVReportFigures figures = this->figures();
    food().setExpenseFrequency(CVExpenseFrequency::kQuarterly);
    food().setExpenseTarget(61);
    EXPECT_EQ(figures.average(food()), 60);
    EXPECT_EQ(figures.difference(food()), 1);
    food().setExpenseFrequency(CVExpenseFrequency::kUnknown);
    EXPECT_EQ(figures.average(food()), 0);
}

TEST_F(ReportOfABudget, GivesPercentOfAllSpendingInTheRangeUnrounded) {
    spend(day(2014, 1, 1), 1, kFood).spend(day(2014, 2, 1), 1, kCar).spend(day(2014, 3, 31), 1, 77);
    spend(day(2013, 12, 31), 100).spend(day(2014, 4, 1), 100);
    const CVReportFigures figures = this->figures();
    EXPECT_THAT(figures.percent(food()), BitsOf(1.0 / 3.0 * 100));
    EXPECT_THAT(figures.percent(car()), BitsOf(1.0 / 3.0 * 100));
}

TEST_F(ReportOfABudget, RoundsAllSpendingOnceForThePercentage) {
    // The sum 0.0084 is rounded to 0.01; rounding each addition would give 0.
    spend(day(2014, 1, 1), 0.0042).spend(day(2014, 1, 2), 0.0042);
    const CVReportFigures figures = this->figures();
    food().setTotal(2);
    EXPECT_THAT(figures.percent(food()), BitsOf(2 / 0.01 * 100));
}

TEST_F(ReportOfABudget, DividesByOneWhereAllSpendingIsBelowACent) {
    struct Row {
        double all;
        double divisor;
    };
    for (const Row& row : {Row{0.0, 1}, Row{0.004, 1}, Row{-0.01, 1}, Row{-500, 1}, Row{0.01, 0.01}, Row{0.02, 0.02}}) {
        SCOPED_TRACE(row.all);
        BudgetBuilder other;
        other.category(QStringLiteral("Food"), kFood).transaction({.date = day(2014, 1, 1), .amount = row.all});
        const CVReportFigures figures(other.document().transactions(), other.document().categories(), range);
        CVCategory& category = *other.categoryNamed(QStringLiteral("Food"));
        category.setTotal(7);
        EXPECT_THAT(figures.percent(category), BitsOf(7 / row.divisor * 100));
    }
}

TEST_F(ReportOfABudget, WithoutSpendingShowsMonthlyZeroAmountsAndZeroPercent) {
    spend(day(2013, 12, 31), 100);
    const CVReportFigures figures = this->figures();
    EXPECT_EQ(figures.numberOfTransactions(), 0U);
    for (const auto& category : budget.document().categories()) {
        EXPECT_EQ(category->billFrequency(), QStringLiteral("Monthly"));
        EXPECT_EQ(category->total(), 0);
        EXPECT_EQ(category->monthly(), 0);
        EXPECT_EQ(category->biWeekly(), 0);
        EXPECT_EQ(category->weekly(), 0);
        EXPECT_EQ(figures.percent(*category), 0);
    }
}

TEST_F(ReportOfABudget, ShowsTaxAmountsAndItems) {
    spend(day(2014, 1, 1), 1, kFood, true).spend(day(2014, 1, 2), 10, kFood, true).spend(day(2014, 1, 3), 100);
    spend(day(2014, 1, 1), 1000, kCar, false).spend(day(2014, 4, 1), 1e4, kFood, true);
    const CVReportFigures figures = this->figures();
    EXPECT_EQ(figures.taxAmount(food()), 11);
    EXPECT_EQ(figures.taxItems(food()), 2U);
    EXPECT_EQ(figures.taxAmount(car()), 0);
    EXPECT_EQ(figures.taxItems(car()), 0U);
}

TEST_F(ReportOfABudget, WithoutCategoriesIsEmpty) {
    spend(day(2014, 1, 1), 1);
    const CVReportFigures figures(budget.document().transactions(), {}, range);
    EXPECT_EQ(figures.numberOfTransactions(), 0U);
    EXPECT_EQ(food().numberOfTransactions(), 0U);
}

} // namespace
