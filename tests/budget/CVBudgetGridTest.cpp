#include "budget/CVBudgetGrid.h"

#include "budget/CVCategorySlots.h"
#include "budget/CVDisplayPeriods.h"
#include "budget/CVTransactionRange.h"
#include "budget/CategoryIds.h"
#include "kit/BudgetBuilder.h"

#include <gmock/gmock.h>

#include <array>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A grid of weeks from Sunday 2 March 2014 on.
struct GridOfWeeks : testing::Test {
    GridOfWeeks() {
        for (int n = 1; n <= periods.numberOfColumnsForDisplayPeriod(); ++n)
            columns.push_back(periods.column(n));
        budget.category(QStringLiteral("Food"), kFood).category(QStringLiteral("Car"), kCar);
    }

    GridOfWeeks& spend(std::optional<QBDate> date, double amount, quint32 categoryID = kFood) {
        budget.transaction({.date = date, .amount = amount, .categoryID = categoryID});
        return *this;
    }

    [[nodiscard]] CVBudgetGrid grid() {
        const auto ids = CVIDsOfCategories(budget.document().categories());
        return {budget.document().transactions(), ids, columns, periods.displayRange()};
    }

    BudgetBuilder budget;
    CVDisplayPeriods periods{CVDisplayPeriods::Week, day(2014, 3, 5), {}};
    std::vector<CVDayRange> columns;
};

TEST_F(GridOfWeeks, CountsTheFirstAndTheLastDayOfAColumnInThatColumnAlone) {
    spend(day(2014, 3, 1), 1).spend(day(2014, 3, 2), 10).spend(day(2014, 3, 8), 100).spend(day(2014, 3, 9), 1000);
    const CVBudgetGrid grid = this->grid();
    EXPECT_EQ(grid.cell(0, 0), 110);
    EXPECT_EQ(grid.cell(0, 1), 1000);
    EXPECT_EQ(grid.rowTotal(0), 1110);
}

TEST_F(GridOfWeeks, AddsEveryCategoryToTheColumnTotals) {
    spend(day(2014, 3, 3), 1, kFood).spend(day(2014, 3, 4), 10, kCar).spend(day(2014, 3, 5), 100, 77);
    const CVBudgetGrid grid = this->grid();
    EXPECT_EQ(grid.cell(0, 0), 1);
    EXPECT_EQ(grid.cell(1, 0), 10);
    EXPECT_EQ(grid.columnTotal(0), 111);
    EXPECT_EQ(grid.columnTotal(1), std::nullopt);
}

TEST_F(GridOfWeeks, TotalsARowFromTheFirstColumnToTheLastDayOfTheLast) {
    spend(day(2014, 3, 1), 1).spend(day(2014, 3, 2), 10).spend(day(2014, 3, 29), 100).spend(day(2014, 3, 30), 1000);
    EXPECT_EQ(grid().rowTotal(0), 110);
    EXPECT_EQ(grid().rowTotal(1), std::nullopt);
}

TEST_F(GridOfWeeks, ShowsNothingWhereSpendingNetsToZero) {
    spend(day(2014, 3, 3), 10).spend(day(2014, 3, 4), -10);
    const CVBudgetGrid grid = this->grid();
    EXPECT_EQ(grid.cell(0, 0), std::nullopt);
    EXPECT_EQ(grid.rowTotal(0), std::nullopt);
    EXPECT_EQ(grid.columnTotal(0), std::nullopt);
}

TEST_F(GridOfWeeks, RoundsOnceAfterTheLastAddition) {
    spend(day(2014, 3, 3), 0.004).spend(day(2014, 3, 4), 0.004).spend(day(2014, 3, 10), 0.004);
    const CVBudgetGrid grid = this->grid();
    EXPECT_EQ(grid.cell(0, 0), 0.01);
    EXPECT_EQ(grid.cell(0, 1), std::nullopt);
    EXPECT_EQ(grid.columnTotal(0), 0.01);
    EXPECT_EQ(grid.rowTotal(0), 0.01);
}

TEST_F(GridOfWeeks, KeepsTheSignOfAmounts) {
    spend(day(2014, 3, 3), -10).spend(day(2014, 3, 4), 2.5);
    EXPECT_EQ(grid().cell(0, 0), -7.5);
}

TEST_F(GridOfWeeks, LeavesOutTransactionsWithoutADate) {
    spend(std::nullopt, 10);
    EXPECT_EQ(grid().cell(0, 0), std::nullopt);
    EXPECT_EQ(grid().columnTotal(0), std::nullopt);
}

TEST_F(GridOfWeeks, LetsEveryCategoryIntoTheRowOfOneWithIDZero) {
    budget.category(QStringLiteral("Nothing"), 0);
    spend(day(2014, 3, 3), 1, kFood).spend(day(2014, 3, 3), 10, 77).spend(day(2014, 3, 3), 100, 0);
    const CVBudgetGrid grid = this->grid();
    EXPECT_EQ(grid.cell(2, 0), 111);
    EXPECT_EQ(grid.rowTotal(2), 111);
    EXPECT_EQ(grid.cell(0, 0), 1);
}

TEST_F(GridOfWeeks, ShowsTheSameForCategoriesThatShareAnID) {
    budget.category(QStringLiteral("Food again"), kFood);
    spend(day(2014, 3, 3), 1, kFood);
    const CVBudgetGrid grid = this->grid();
    EXPECT_EQ(grid.rows(), 3U);
    EXPECT_EQ(grid.cell(0, 0), 1);
    EXPECT_EQ(grid.cell(2, 0), 1);
    EXPECT_EQ(grid.columnTotal(0), 1);
}

TEST_F(GridOfWeeks, HasNothingBeyondItsRowsAndColumns) {
    spend(day(2014, 3, 3), 1).spend(day(2014, 4, 1), 1);
    const CVBudgetGrid grid = this->grid();
    EXPECT_EQ(grid.rows(), 2U);
    EXPECT_EQ(grid.columns(), 4U);
    EXPECT_EQ(grid.cell(2, 0), std::nullopt);
    EXPECT_EQ(grid.cell(0, 4), std::nullopt);
    EXPECT_EQ(grid.rowTotal(2), std::nullopt);
    EXPECT_EQ(grid.columnTotal(4), std::nullopt);
}

TEST_F(GridOfWeeks, AddsUpInRangesThatAreEmptyOrOverlap) {
    columns = {
        {day(2014, 3, 4), day(2014, 3, 3)}, {day(2014, 3, 3), day(2014, 3, 4)}, {day(2014, 3, 4), day(2014, 3, 9)}};
    spend(day(2014, 3, 3), 1).spend(day(2014, 3, 4), 10);
    const CVBudgetGrid grid = this->grid();
    EXPECT_EQ(grid.cell(0, 0), std::nullopt);
    EXPECT_EQ(grid.cell(0, 1), 11);
    EXPECT_EQ(grid.cell(0, 2), 10);
}

TEST(CVBudgetGrid, WithoutCategoriesHasNoRows) {
    BudgetBuilder budget;
    budget.transaction({.date = day(2014, 3, 3), .amount = 5});
    const std::array columns{CVDayRange{day(2014, 3, 3), day(2014, 3, 3)}};
    const CVBudgetGrid grid(budget.document().transactions(), {}, columns, columns.front());
    EXPECT_EQ(grid.rows(), 0U);
    EXPECT_EQ(grid.cell(0, 0), std::nullopt);
    EXPECT_EQ(grid.columnTotal(0), 5);
}

TEST(CVBudgetGrid, WithoutColumnsHasRowTotalsAlone) {
    BudgetBuilder budget;
    budget.transaction({.date = day(2014, 3, 3), .amount = 5, .categoryID = kFood});
    const std::array ids{kFood};
    const CVBudgetGrid grid(budget.document().transactions(), ids, {}, {day(2014, 3, 3), day(2014, 3, 3)});
    EXPECT_EQ(grid.rowTotal(0), 5);
    EXPECT_EQ(grid.columnTotal(0), std::nullopt);
}

struct TransactionsOfARange : testing::Test {
    TransactionsOfARange() {
        // The transactions are unsorted, inside and outside the range, with one of each kind of category.
        budget.category(QStringLiteral("Food"), kFood)
            .category(QStringLiteral("Nothing"), 0)
            .transaction({.date = day(2014, 3, 9), .amount = 1, .categoryID = kFood})
            .transaction({.date = day(2014, 3, 7), .amount = 2, .categoryID = kFood})
            .transaction({.date = day(2014, 3, 8), .amount = 3, .categoryID = kCar})
            .transaction({.date = day(2014, 3, 6), .amount = 4, .categoryID = kFood})
            .transaction({.date = day(2014, 3, 10), .amount = 5, .categoryID = kFood})
            .transaction({.amount = 6, .categoryID = kFood})
            .transaction({.date = day(2014, 3, 8), .amount = 7, .categoryID = 0});
    }

    static std::vector<double> amounts(const CVTransactions& transactions) {
        std::vector<double> amounts;
        for (const auto& transaction : transactions)
            amounts.push_back(transaction->amount());
        return amounts;
    }

    BudgetBuilder budget;
    CVDayRange range{day(2014, 3, 7), day(2014, 3, 9)};
};

TEST_F(TransactionsOfARange, AreAllThatLieInItInTheirOrder) {
    EXPECT_THAT(amounts(transactionsForDateRange(budget.document().transactions(), range)), ElementsAre(1, 2, 3, 7));
}

TEST_F(TransactionsOfARange, OfACategoryAreItsOwn) {
    const CVCategory* const food = budget.categoryNamed(QStringLiteral("Food")).get();
    EXPECT_THAT(amounts(transactionsForDateRange(budget.document().transactions(), range, food)), ElementsAre(1, 2));
}

TEST_F(TransactionsOfARange, OfACategoryWithIDZeroAreThoseOfAll) {
    const CVCategory* const nothing = budget.categoryNamed(QStringLiteral("Nothing")).get();
    EXPECT_THAT(amounts(transactionsForDateRange(budget.document().transactions(), range, nothing)),
                ElementsAre(1, 2, 3, 7));
}

TEST_F(TransactionsOfARange, BehindACellAreExactlyThoseOfItsCategory) {
    const auto& transactions = budget.document().transactions();
    EXPECT_THAT(amounts(transactionsOfCell(transactions, range, *budget.categoryNamed(QStringLiteral("Food")))),
                ElementsAre(1, 2));
    EXPECT_THAT(amounts(transactionsOfCell(transactions, range, *budget.categoryNamed(QStringLiteral("Nothing")))),
                ElementsAre(7));
}

TEST_F(TransactionsOfARange, BehindAnEmptyCellAreNone) {
    const auto& transactions = budget.document().transactions();
    const CVDayRange later{day(2014, 4, 1), day(2014, 4, 7)};
    EXPECT_THAT(transactionsOfCell(transactions, later, *budget.categoryNamed(QStringLiteral("Food"))), IsEmpty());
}

} // namespace
