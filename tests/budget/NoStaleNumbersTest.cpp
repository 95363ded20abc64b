#include "budget/CVBudgetGrid.h"
#include "budget/CVCategorySlots.h"
#include "budget/CVReportFigures.h"
#include "budget/CategoryIds.h"
#include "contents/CVBudgetRows.h"
#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

#include <array>

namespace {

/// Every change shows in the next grid, rows and report, which keep nothing from the earlier ones.
struct NumbersAfterAChange : testing::Test {
    NumbersAfterAChange() {
        budget.category(QStringLiteral("Food"), kFood, CVExpenseFrequency::kMonthly, 50)
            .category(QStringLiteral("Car"), kCar, CVExpenseFrequency::kMonthly, 50)
            .transaction({.date = day(2014, 3, 7), .amount = 10, .categoryID = kFood})
            .transaction({.date = day(2014, 3, 20), .amount = 20, .categoryID = kFood});
        expectNumbers({30, 30, 0, 2, 0});
    }

    struct Numbers {
        double all;
        double food;
        double car;
        quint64 inRange;
        double foodTax;
    };

    void expectNumbers(const Numbers& expected) {
        const auto& transactions = budget.document().transactions();
        const auto& categories = budget.document().categories();
        const CVBudgetGrid grid(transactions, CVIDsOfCategories(categories), std::array{range}, range);
        EXPECT_EQ(grid.cell(0, 0).value_or(0), expected.food);
        EXPECT_EQ(grid.rowTotal(0).value_or(0), expected.food);
        EXPECT_EQ(grid.cell(1, 0).value_or(0), expected.car);
        EXPECT_EQ(grid.columnTotal(0).value_or(0), expected.all);

        const CVReportFigures figures(transactions, categories, range);
        EXPECT_EQ(figures.numberOfTransactions(), expected.inRange);
        EXPECT_EQ(categories[0]->total(), expected.food);
        EXPECT_EQ(categories[1]->total(), expected.car);
        EXPECT_EQ(figures.average(*categories[0]), expected.food);
        EXPECT_EQ(figures.difference(*categories[0]), categories[0]->expenseTarget() - expected.food);
        EXPECT_EQ(figures.taxAmount(*categories[0]), expected.foodTax);
    }

    BudgetBuilder budget;
    CVDayRange range{day(2014, 3, 1), day(2014, 3, 31)};
};

TEST_F(NumbersAfterAChange, FollowAnAmount) {
    budget.transactionAt(0)->setAmount(5);
    expectNumbers({25, 25, 0, 2, 0});
}

TEST_F(NumbersAfterAChange, FollowADate) {
    budget.transactionAt(0)->setEffectiveDate(day(2014, 4, 1));
    expectNumbers({20, 20, 0, 1, 0});
    budget.transactionAt(0)->setEffectiveDate(std::nullopt);
    expectNumbers({20, 20, 0, 1, 0});
}

TEST_F(NumbersAfterAChange, FollowATransactionsCategory) {
    budget.transactionAt(0)->setCategoryID(kCar);
    expectNumbers({30, 20, 10, 2, 0});
}

TEST_F(NumbersAfterAChange, FollowATaxFlag) {
    budget.transactionAt(1)->setTaxFlag(true);
    expectNumbers({30, 30, 0, 2, 20});
    budget.transactionAt(1)->setTaxFlag(false);
    expectNumbers({30, 30, 0, 2, 0});
}

TEST_F(NumbersAfterAChange, FollowAnInsertionAndARemoval) {
    const auto added = makeTransaction({.date = day(2014, 3, 8), .amount = 7, .categoryID = kCar});
    budget.document().insertTransaction(added);
    expectNumbers({37, 30, 7, 3, 0});
    budget.document().removeTransaction(added);
    expectNumbers({30, 30, 0, 2, 0});
}

TEST_F(NumbersAfterAChange, FollowACategorysID) {
    budget.categoryNamed(QStringLiteral("Food"))->setUniqueID(3);
    expectNumbers({30, 0, 0, 0, 0});
}

TEST_F(NumbersAfterAChange, FollowATarget) {
    budget.categoryNamed(QStringLiteral("Food"))->setExpenseTarget(60);
    expectNumbers({30, 30, 0, 2, 0});
}

TEST_F(NumbersAfterAChange, FollowTheRange) {
    range.start = day(2014, 3, 8);
    range.end = day(2014, 4, 7);
    expectNumbers({20, 20, 0, 1, 0});
}

TEST_F(NumbersAfterAChange, FollowTheSetAndTheUseOfCategories) {
    const auto rows = [this] { return buildCategoryArray(budget.document(), CVShowUnused::No).size(); };
    EXPECT_EQ(rows(), 1U);
    budget.transactionAt(0)->setCategoryID(kCar);
    EXPECT_EQ(rows(), 2U);
    budget.transactionAt(1)->setTransactionSetID(5);
    EXPECT_EQ(rows(), 1U);
    budget.currentSet(6);
    EXPECT_EQ(rows(), 0U);
}

} // namespace
