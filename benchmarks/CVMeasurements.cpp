#include "CVMeasurements.h"

#include "model/CVTransactionColumns.h"
#include "workspace/CVMainWindow.h"

namespace {

using Measure = void (*)(benchmark::State& state, std::size_t transactions);
using benchmark::State;

constexpr std::size_t kMiddle = 100'000;
constexpr std::size_t kLarge = 1'000'000;
constexpr int kRounds = 20;
/// Few rounds, because the two thousand pages of 100,000 transactions take many seconds.
constexpr int kRoundsOfPages = 5;

/// Few rounds, because the need of memory varies little.
constexpr int kRoundsOfMemory = 3;

constexpr const char* kFileSize = "size of the file";
constexpr const char* kWalk = "plain walk";
constexpr const char* kPlainSort = "stable sort of plain records";
constexpr const char* kPage = "first page";

constexpr CVMeasurement measurement(const char* title, const char* unit, double limit, double largeLimit,
                                    Measure measure) {
    return {title, unit, {{{kMiddle, kRounds, limit}, {kLarge, kRounds, largeLimit}}}, measure};
}

/// One small change, or another view of the budget.
constexpr CVMeasurement step(const char* title, Measure measure) {
    return measurement(title, CVMeasurement::kMilliseconds, 50, 400, measure);
}

/// A change that moves or removes very many lines.
constexpr CVMeasurement largeStep(const char* title, Measure measure) {
    return measurement(title, CVMeasurement::kMilliseconds, 100, 1000, measure);
}

constexpr CVMeasurement withoutLimit(const char* title, const char* unit, Measure measure) {
    return measurement(title, unit, CVMeasurement::kNoLimit, CVMeasurement::kNoLimit, measure);
}

template <int letter>
void measureKey(State& state, std::size_t transactions) {
    CVMeasureSearchKey(state, transactions, letter);
}

template <CVMainWindow::Tab tab>
void measureTab(State& state, std::size_t transactions) {
    CVMeasureTab(state, transactions, tab);
}

template <CVTransactionColumns::Column column>
void measureSorting(State& state, std::size_t transactions) {
    CVMeasureSorting(state, transactions, column);
}

constexpr auto kMeasurements = std::to_array<CVMeasurement>({
    step("Record", CVMeasureRecord),
    step("Search, first letter", measureKey<1>),
    step("Search, second letter", measureKey<2>),
    step("Search, third letter", measureKey<3>),
    step("Search, fourth letter", measureKey<4>),
    step("Search, field cleared", CVMeasureSearchCleared),
    step("Another tab: the list", measureTab<CVMainWindow::kTransactions>),
    step("Another tab: the summary", measureTab<CVMainWindow::kSummary>),
    step("Another tab: the reports", measureTab<CVMainWindow::kReports>),
    step("Another period of the list", CVMeasurePeriodOfList),
    step("Another period of the summary", CVMeasurePeriodOfSummary),
    step("Another period of the reports", CVMeasurePeriodOfReports),
    step("Another set", CVMeasureSet),
    step("All sets", CVMeasureAllSets),
    step("Edit a cell", CVMeasureCellEdit),
    step("Remove one", CVMeasureRemoveOne),
    largeStep("Sort by date", measureSorting<CVTransactionColumns::Date>),
    largeStep("Sort by amount", measureSorting<CVTransactionColumns::Amount>),
    largeStep("Sort by payee", measureSorting<CVTransactionColumns::ToFrom>),
    largeStep("Sort by what it was for", measureSorting<CVTransactionColumns::For>),
    largeStep("Sort by category", measureSorting<CVTransactionColumns::Category>),
    largeStep("Remove half of all", CVMeasureRemoveHalf),
    measurement("From start to usable window", "CPU of an empty window and a bare SAX parse", 2.2, 1.8, CVMeasureStart),
    {"From start to usable window, empty budget",
     "CPU of an empty window",
     {{{0, kRounds, 2.5}, {0, 0, CVMeasurement::kNoLimit}}},
     CVMeasureEmptyStart},
    measurement("Check a data file, from start to exit", "bare SAX read of the file", 2, 2, CVMeasureCheck),
    {"Peak memory of a check",
     kFileSize,
     {{{kMiddle, kRoundsOfMemory, CVMeasurement::kNoLimit}, {kLarge, kRoundsOfMemory, 1}}},
     CVMeasureMemoryOfCheck},
    {"Peak memory of the window",
     kFileSize,
     {{{kMiddle, kRoundsOfMemory, CVMeasurement::kNoLimit}, {kLarge, kRoundsOfMemory, 1.3}}},
     CVMeasureMemoryOfWindow},
    measurement("Safe save", "write, fsync, rename", 1.5, 1.5, CVMeasureSave),
    measurement("Text after one change", "memcpy into fresh memory", 2, 2, CVMeasureText),
    {"Report as a PDF", "QPdfWriter, same strings", {{{kMiddle, kRoundsOfPages, 2}, {kLarge, 1, 2}}}, CVMeasurePDF},
    measurement("Month by category, from start to exit", "bare SAX parse and 30 ms", 2, 2, CVMeasureSummaryReport),
    withoutLimit("Grid, a week of days", kWalk, CVMeasureGridOfWeek),
    withoutLimit("Grid, all transactions in a column", kWalk, CVMeasureGridOfAll),
    withoutLimit("Figures of all categories", kWalk, CVMeasureFigures),
    withoutLimit("Tax, plan and percent columns", kWalk, CVMeasureReportColumns),
    withoutLimit("Rows of the grid and the reports", kWalk, CVMeasureBudgetRows),
    withoutLimit("Report pages", kWalk, CVMeasurePagination),
    withoutLimit("Report painted, last page", kPage, CVMeasurePaintingLastPage),
    withoutLimit("Order by date", kPlainSort, CVMeasureSortByDate),
    withoutLimit("Order by amount", kPlainSort, CVMeasureSortByAmount),
    withoutLimit("Order by payee", kPlainSort, CVMeasureSortByPayee),
    withoutLimit("Order by what it was for", kPlainSort, CVMeasureSortByFor),
    withoutLimit("Order by category", kPlainSort, CVMeasureSortByCategory),
    measurement("Remember categories, and ask once", CVMeasurement::kMilliseconds, 50, CVMeasurement::kNoLimit,
                CVMeasureMemoryOfCategories),
    measurement("Import 10,000 lines", CVMeasurement::kMilliseconds, 1000, CVMeasurement::kNoLimit, CVMeasureImport),
    withoutLimit("Merge with another file", "comparison of both", CVMeasureMerge),
});

} // namespace

std::span<const CVMeasurement> CVMeasurements() {
    return kMeasurements;
}
