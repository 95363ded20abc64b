#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace benchmark {
class State;
}

/// A line of the table at the end of the benchmarks: the cost of a part of the program as a multiple of its yardstick.
struct CVMeasurement {
    /// A number of transactions and the number of repetitions at that size.
    struct Size {
        std::size_t transactions;
        int rounds;
    };

    static constexpr double kNoLimit = 0;

    const char* title;
    /// The highest allowed multiple, or `kNoLimit`. The limit is the same for all sizes, so it also bounds how the cost
    /// grows.
    double limit;
    /// The number of transactions from which on the limit holds.
    std::size_t limitFrom;
    std::array<Size, 3> sizes;
    /// Measures once per iteration of `state` and reports the counter "ratio".
    void (*measure)(benchmark::State& state, std::size_t transactions);

    /// The limit for the largest budget, where it differs from `limit`.
    double largestLimit = kNoLimit;

    [[nodiscard]] bool allows(double ratio, std::size_t transactions) const {
        const bool isLargest = transactions == sizes.back().transactions && largestLimit != kNoLimit;
        return limit == kNoLimit || transactions < limitFrom || ratio <= (isLargest ? largestLimit : limit);
    }
};

/// All measurements in the order of the table.
[[nodiscard]] std::span<const CVMeasurement> CVAllMeasurements();

void CVMeasureLoadSorted(benchmark::State& state, std::size_t transactions);
void CVMeasureLoadShuffled(benchmark::State& state, std::size_t transactions);
void CVMeasureSteadyMemory(benchmark::State& state, std::size_t transactions);
void CVMeasurePeakMemory(benchmark::State& state, std::size_t transactions);
void CVMeasureMemoryAfterSave(benchmark::State& state, std::size_t transactions);
void CVMeasureTextUncached(benchmark::State& state, std::size_t transactions);
void CVMeasureTextOneChanged(benchmark::State& state, std::size_t transactions);
void CVMeasureSnapshotOneChanged(benchmark::State& state, std::size_t transactions);
void CVMeasureSaveAgainstBare(benchmark::State& state, std::size_t transactions);
void CVMeasureSaveAgainstSynced(benchmark::State& state, std::size_t transactions);
void CVMeasureRecordOne(benchmark::State& state, std::size_t transactions);
void CVMeasureRemoveOne(benchmark::State& state, std::size_t transactions);
void CVMeasureRemoveListOfOne(benchmark::State& state, std::size_t transactions);
void CVMeasureRemoveThousand(benchmark::State& state, std::size_t transactions);
void CVMeasureRemoveHalf(benchmark::State& state, std::size_t transactions);
void CVMeasureGridOfWeek(benchmark::State& state, std::size_t transactions);
void CVMeasureGridOfAll(benchmark::State& state, std::size_t transactions);
void CVMeasureFigures(benchmark::State& state, std::size_t transactions);
void CVMeasureReportColumns(benchmark::State& state, std::size_t transactions);
void CVMeasureBudgetRows(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByDate(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByAmount(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByPayee(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByFor(benchmark::State& state, std::size_t transactions);
void CVMeasureSortByCategory(benchmark::State& state, std::size_t transactions);
void CVMeasureWindowRecord(benchmark::State& state, std::size_t transactions);
void CVMeasureWindowSearch(benchmark::State& state, std::size_t transactions);
void CVMeasureWindowTab(benchmark::State& state, std::size_t transactions);
void CVMeasureWindowPeriod(benchmark::State& state, std::size_t transactions);
void CVMeasureWindowScroll(benchmark::State& state, std::size_t transactions);
void CVMeasureSummaryReport(benchmark::State& state, std::size_t transactions);
void CVMeasurePagination(benchmark::State& state, std::size_t transactions);
void CVMeasurePaintingLastPage(benchmark::State& state, std::size_t transactions);
void CVMeasurePDF(benchmark::State& state, std::size_t transactions);
void CVMeasurePDFMemory(benchmark::State& state, std::size_t transactions);
