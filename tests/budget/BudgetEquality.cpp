#include "budget/BudgetEquality.h"

#include "budget/BitsOf.h"
#include "budget/CVBudgetGrid.h"
#include "budget/CVCategoryAverages.h"
#include "budget/CVReportFigures.h"
#include "budget/CVTransactionRange.h"
#include "budget/PlainScan.h"
#include "contents/CVBudgetRows.h"
#include "kit/Printers.h"
#include "model/CVCategory.h"

namespace {

void expectSame(const std::optional<double>& quick, const std::optional<double>& plain) {
    const bool same = quick && plain ? sameBits(*quick, *plain) : quick.has_value() == plain.has_value();
    EXPECT_TRUE(same) << testing::PrintToString(quick) << " in place of " << testing::PrintToString(plain);
}

void expectSame(const PlainScan::Figures& quick, const PlainScan::Figures& plain) {
    EXPECT_EQ(quick.billFrequency, plain.billFrequency);
    EXPECT_EQ(quick.budgetExpenseFrequency, plain.budgetExpenseFrequency);
    EXPECT_THAT(quick.total, BitsOf(plain.total));
    EXPECT_THAT(quick.monthly, BitsOf(plain.monthly));
    EXPECT_THAT(quick.biWeekly, BitsOf(plain.biWeekly));
    EXPECT_THAT(quick.weekly, BitsOf(plain.weekly));
    EXPECT_EQ(quick.monthlyPeriods, plain.monthlyPeriods);
    EXPECT_EQ(quick.biWeeklyPeriods, plain.biWeeklyPeriods);
    EXPECT_EQ(quick.weeklyPeriods, plain.weeklyPeriods);
    EXPECT_EQ(quick.numberOfTransactions, plain.numberOfTransactions);
}

void expectColumnsAsPlain(const CVCategory& category, const CVReportFigures& figures,
                          const CVTransactions& transactions, const CVDayRange& range) {
    const double average = PlainScan::averagePerFrequency(category, transactions, range);
    const double comparison = PlainScan::comparisonValue(category.monthly(), category.expenseFrequency());
    EXPECT_THAT(figures.average(category), BitsOf(average));
    EXPECT_THAT(figures.difference(category), BitsOf(category.expenseTarget() - average));
    EXPECT_THAT(figures.percent(category),
                BitsOf(category.total() / PlainScan::percentDivisor(transactions, range) * 100));
    EXPECT_THAT(figures.taxAmount(category), BitsOf(PlainScan::taxExpense(category, transactions, range)));
    EXPECT_EQ(figures.taxItems(category), PlainScan::taxItems(category, transactions, range));
    EXPECT_EQ(targetIsBelowMonthlyAverage(category), category.expenseTarget() - comparison < 0);
}

/// Expects the same results from walks for this category alone.
void expectQueriesAsPlain(CVCategory& category, const CVTransactions& transactions, const CVDayRange& range) {
    const PlainScan::Figures plain = PlainScan::averages(category, transactions, range);
    EXPECT_EQ(computeAveragesForArray(category, transactions, range.start, range.end), plain.numberOfTransactions);
    expectSame(PlainScan::Figures::of(category), plain);
    EXPECT_THAT(computeAverageForTransactions(category, transactions, range.start, range.end),
                BitsOf(PlainScan::averagePerFrequency(category, transactions, range)));
    EXPECT_THAT(taxExpenseForCategoryFromTransactions(category, transactions, range.start, range.end),
                BitsOf(PlainScan::taxExpense(category, transactions, range)));
    EXPECT_EQ(taxItemsForCategoryFromTransactions(category, transactions, range.start, range.end),
              PlainScan::taxItems(category, transactions, range));
}

} // namespace

void expectGridAsPlain(const CVDocument& document, std::span<const CVDayRange> columns, const CVDayRange& total) {
    const auto& transactions = document.transactions();
    const auto& categories = document.categories();
    const CVBudgetGrid grid(transactions, CVIDsOfCategories(categories), columns, total);
    ASSERT_EQ(grid.rows(), categories.size());
    ASSERT_EQ(grid.columns(), columns.size());
    for (std::size_t column = 0; column < columns.size(); ++column) {
        SCOPED_TRACE(testing::Message() << "column " << column);
        expectSame(grid.columnTotal(column), PlainScan::cell(transactions, columns[column], nullptr));
        for (std::size_t row = 0; row < categories.size(); ++row)
            expectSame(grid.cell(row, column), PlainScan::cell(transactions, columns[column], categories[row].get()));
    }
    for (std::size_t row = 0; row < categories.size(); ++row)
        expectSame(grid.rowTotal(row), PlainScan::cell(transactions, total, categories[row].get()));
}

void expectFiguresAsPlain(const CVDocument& document, const CVDayRange& range) {
    const auto& transactions = document.transactions();
    const CVReportFigures figures(transactions, document.categories(), range);
    quint64 count = 0;
    for (const auto& category : document.categories()) {
        SCOPED_TRACE(testing::Message() << "category with ID " << category->uniqueID());
        const PlainScan::Figures plain = PlainScan::averages(*category, transactions, range);
        count += plain.numberOfTransactions;
        expectSame(PlainScan::Figures::of(*category), plain);
        expectColumnsAsPlain(*category, figures, transactions, range);
    }
    EXPECT_EQ(figures.numberOfTransactions(), count);
    for (const auto& category : document.categories())
        expectQueriesAsPlain(*category, transactions, range);
}

void expectSelectionsAsPlain(const CVDocument& document, const CVDayRange& range) {
    const auto& transactions = document.transactions();
    EXPECT_EQ(buildCategoryArray(document, CVShowUnused::No), PlainScan::rows(document, 0));
    EXPECT_EQ(buildCategoryArray(document, CVShowUnused::Yes), PlainScan::rows(document, 1));
    EXPECT_EQ(transactionsForDateRange(transactions, range),
              PlainScan::transactionsForDateRange(transactions, range, nullptr));
    for (const auto& category : document.categories())
        EXPECT_EQ(transactionsForDateRange(transactions, range, category.get()),
                  PlainScan::transactionsForDateRange(transactions, range, category.get()));
}
