#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace benchmark {
class State;
}

/// A line of the table that the benchmarks end with.
struct CVMeasurement {
    static constexpr double kNoLimit = 0;
    /// The unit of the measurements that are no multiples of a yardstick.
    static constexpr const char* kMilliseconds = "ms";

    struct Size {
        /// The number of transactions of the budget.
        std::size_t transactions;
        /// The number of measurements; with 0 the measurement is not measured at this size.
        int rounds;
        /// The highest value allowed, or `kNoLimit`.
        double limit;

        [[nodiscard]] bool allows(double value) const { return limit == kNoLimit || value <= limit; }
    };

    const char* title;
    /// The yardstick of which the measurement is a multiple, or `kMilliseconds`.
    const char* unit;
    /// The two sizes of the table's columns, the smaller first.
    std::array<Size, 2> sizes;
    /// Measures once per iteration of `state` and reports the counter "measured".
    void (*measure)(benchmark::State& state, std::size_t transactions);

    [[nodiscard]] bool isTime() const { return unit == kMilliseconds; }
};

/// All measurements, in the order of the table.
[[nodiscard]] std::span<const CVMeasurement> CVMeasurements();

/// These measure a click or a key in the main window.
void CVMeasureRecord(benchmark::State& state, std::size_t transactions);
void CVMeasureCellEdit(benchmark::State& state, std::size_t transactions);
void CVMeasureRemoveOne(benchmark::State& state, std::size_t transactions);
void CVMeasureRemoveHalf(benchmark::State& state, std::size_t transactions);
/// Types the key that adds the letter `letter` of a word, from 1 on.
void CVMeasureSearchKey(benchmark::State& state, std::size_t transactions, int letter);
void CVMeasureSearchCleared(benchmark::State& state, std::size_t transactions);
/// Shows the tab `tab`, a `CVMainWindow::Tab`.
void CVMeasureTab(benchmark::State& state, std::size_t transactions, int tab);
void CVMeasurePeriodOfList(benchmark::State& state, std::size_t transactions);
void CVMeasurePeriodOfSummary(benchmark::State& state, std::size_t transactions);
void CVMeasurePeriodOfReports(benchmark::State& state, std::size_t transactions);
/// From a set with one transaction to the set that has all others, or to all sets.
void CVMeasureSet(benchmark::State& state, std::size_t transactions);
void CVMeasureAllSets(benchmark::State& state, std::size_t transactions);
/// Sorts by the column `column`, a `CVTransactionColumns::Column`.
void CVMeasureSorting(benchmark::State& state, std::size_t transactions, int column);

/// These measure the start of the program.
void CVMeasureStart(benchmark::State& state, std::size_t transactions);
void CVMeasureEmptyStart(benchmark::State& state, std::size_t transactions);

/// These measure the reading of the data file.
void CVMeasureCheck(benchmark::State& state, std::size_t transactions);
void CVMeasureMemoryOfCheck(benchmark::State& state, std::size_t transactions);
void CVMeasureMemoryOfWindow(benchmark::State& state, std::size_t transactions);

void CVMeasureSave(benchmark::State& state, std::size_t transactions);
void CVMeasureText(benchmark::State& state, std::size_t transactions);
void CVMeasurePDF(benchmark::State& state, std::size_t transactions);
void CVMeasureSummaryReport(benchmark::State& state, std::size_t transactions);

/// The sums and orders alone, without a window.
void CVMeasureGridOfWeek(benchmark::State& state, std::size_t transactions);
void CVMeasureGridOfAll(benchmark::State& state, std::size_t transactions);
void CVMeasureFigures(benchmark::State& state, std::size_t transactions);
void CVMeasureReportColumns(benchmark::State& state, std::size_t transactions);
void CVMeasureBudgetRows(benchmark::State& state, std::size_t transactions);
void CVMeasurePagination(benchmark::State& state, std::size_t transactions);
void CVMeasurePaintingLastPage(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByDate(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByAmount(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByPayee(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByFor(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByCategory(benchmark::State& state, std::size_t transactions);

void CVMeasureMerge(benchmark::State& state, std::size_t transactions);
/// These measure an import of 10,000 lines without its window, and what is known of categories for it and for the
/// strip.
void CVMeasureImport(benchmark::State& state, std::size_t transactions);
void CVMeasureMemoryOfCategories(benchmark::State& state, std::size_t transactions);
