#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVMeasurements.h"
#include "CVPlainWalk.h"
#include "budget/CVBudgetGrid.h"
#include "budget/CVCategoryAverages.h"
#include "budget/CVDisplayPeriods.h"
#include "budget/CVReportFigures.h"
#include "contents/CVBudgetRows.h"
#include "model/CVCategory.h"
#include "model/CVTransaction.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 kColumns = 7;

CVDayRange wholeRange(const CVDocument& document) {
    return {document.earliestTransactionDate().value(), document.latestTransactionDate().value()};
}

template <typename Subject>
void measureAgainstWalk(benchmark::State& state, std::size_t transactions, Subject subject) {
    CVBudgetFixture fixture(transactions);
    const CVDocument& document = fixture.document();
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [] {};
    comparison.yardstick = [&] { CVPlainWalk(document.transactions()); };
    comparison.subject = [&] { subject(document); };
    comparison.run(state);
}

/// Makes the grid and reads all of it.
void showGrid(const CVDocument& document, std::span<const CVDayRange> columns, const CVDayRange& total) {
    const CVBudgetGrid grid(document.transactions(), CVIDsOfCategories(document.categories()), columns, total);
    double shown = 0;
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        for (std::size_t column = 0; column < grid.columns(); ++column)
            shown += grid.cell(row, column).value_or(0);
        shown += grid.rowTotal(row).value_or(0);
    }
    for (std::size_t column = 0; column < grid.columns(); ++column)
        shown += grid.columnTotal(column).value_or(0);
    benchmark::DoNotOptimize(shown);
}

void showLastWeek(const CVDocument& document) {
    const CVDisplayPeriods periods(CVDisplayPeriods::Day, document.latestTransactionDate().value(), {});
    std::vector<CVDayRange> columns;
    for (int n = 1; n <= periods.numberOfColumnsForDisplayPeriod(); ++n)
        columns.push_back(periods.column(n));
    showGrid(document, columns, periods.displayRange());
}

/// Shows columns that hold all transactions, which is the most work for this number of columns.
void showAllInColumns(const CVDocument& document) {
    const CVDayRange whole = wholeRange(document);
    std::vector<CVDayRange> columns;
    for (qint64 n = 0; n < kColumns; ++n)
        columns.push_back({whole.start.dateByAddingYears(0, 0, whole.days() * n / kColumns),
                           whole.start.dateByAddingYears(0, 0, whole.days() * (n + 1) / kColumns - 1)});
    showGrid(document, columns, whole);
}

void showColumns(const CVDocument& document) {
    const CVSpendingOfRange spending(document.transactions(), CVIDsOfCategories(document.categories()),
                                     wholeRange(document));
    double shown = 0;
    for (const auto& category : document.categories()) {
        const CVSpending& own = spending.of(category->uniqueID());
        const double average = averagePerFrequency(*category, spending);
        shown += own.taxTotal + static_cast<double>(own.taxCount);
        shown += average + (category->expenseTarget() - average);
        shown += category->total() / spending.grandTotal() * 100;
    }
    benchmark::DoNotOptimize(shown);
}

} // namespace

void CVMeasureGridOfWeek(benchmark::State& state, std::size_t transactions) {
    measureAgainstWalk(state, transactions, showLastWeek);
}

void CVMeasureGridOfAll(benchmark::State& state, std::size_t transactions) {
    measureAgainstWalk(state, transactions, showAllInColumns);
}

void CVMeasureFigures(benchmark::State& state, std::size_t transactions) {
    measureAgainstWalk(state, transactions, [](const CVDocument& document) {
        const CVReportFigures figures(document.transactions(), document.categories(), wholeRange(document));
        benchmark::DoNotOptimize(figures.numberOfTransactions());
    });
}

void CVMeasureReportColumns(benchmark::State& state, std::size_t transactions) {
    measureAgainstWalk(state, transactions, showColumns);
}

void CVMeasureBudgetRows(benchmark::State& state, std::size_t transactions) {
    measureAgainstWalk(state, transactions, [](const CVDocument& document) {
        benchmark::DoNotOptimize(buildCategoryArray(document, CVShowUnused::No).data());
    });
}
