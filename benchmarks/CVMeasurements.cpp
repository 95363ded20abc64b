#include "CVMeasurements.h"

namespace {

constexpr std::size_t kSmall = 1'000;
constexpr std::size_t kMiddle = 100'000;
constexpr std::size_t kLarge = 1'000'000;

constexpr std::array<CVMeasurement::Size, 3> kOften{{{kSmall, 501}, {kMiddle, 51}, {kLarge, 15}}};
/// Fewer repetitions, because each needs a sort or a write to the disk.
constexpr std::array<CVMeasurement::Size, 3> kSeldom{{{kSmall, 101}, {kMiddle, 15}, {kLarge, 7}}};
constexpr std::array<CVMeasurement::Size, 3> kWindow{{{kSmall, 101}, {kMiddle, 51}, {kLarge, 15}}};
/// Fewest repetitions, because a million transactions make twenty thousand pages.
constexpr std::array<CVMeasurement::Size, 3> kReport{{{kSmall, 51}, {kMiddle, 5}, {kLarge, 1}}};
constexpr std::array<CVMeasurement::Size, 3> kOnce{{{kSmall, 1}, {kMiddle, 1}, {kLarge, 1}}};

constexpr std::array<CVMeasurement, 35> kMeasurements{{
    {"Load, file in order", 1.5, kSmall, kSeldom, CVMeasureLoadSorted},
    {"Load, file shuffled", CVMeasurement::kNoLimit, kSmall, kSeldom, CVMeasureLoadShuffled},
    {"Memory after loading", 2, kLarge, kOnce, CVMeasureSteadyMemory},
    {"Memory while loading, peak", 3, kLarge, kOnce, CVMeasurePeakMemory},
    {"Memory after the first save", CVMeasurement::kNoLimit, kLarge, kOnce, CVMeasureMemoryAfterSave},
    {"Text, nothing cached", 2, kSmall, kSeldom, CVMeasureTextUncached},
    {"Text, one transaction changed", 2, kSmall, kOften, CVMeasureTextOneChanged},
    {"Snapshot alone, one transaction changed", CVMeasurement::kNoLimit, kSmall, kOften, CVMeasureSnapshotOneChanged},
    {"Safe save", 1.5, kMiddle, kSeldom, CVMeasureSaveAgainstBare},
    {"Safe save, yardstick syncs the folder too", 1.5, kSmall, kSeldom, CVMeasureSaveAgainstSynced},
    {"Record one", 1, kSmall, kOften, CVMeasureRecordOne},
    {"Remove one", 6, kSmall, kOften, CVMeasureRemoveOne},
    {"Remove a list of one", 15, kSmall, kSeldom, CVMeasureRemoveListOfOne},
    {"Remove a list of 1,000", 15, kSmall, kSeldom, CVMeasureRemoveThousand},
    {"Remove a list of half of all", 15, kSmall, kSeldom, CVMeasureRemoveHalf},
    {"Grid, a week of days", 2, kMiddle, kOften, CVMeasureGridOfWeek},
    {"Grid, all transactions in a column", 2, kMiddle, kOften, CVMeasureGridOfAll},
    {"Figures of all categories", 4, kMiddle, kOften, CVMeasureFigures},
    {"Tax, plan and percent columns", 3, kMiddle, kOften, CVMeasureReportColumns},
    {"Rows of the grid and the reports", CVMeasurement::kNoLimit, kMiddle, kOften, CVMeasureBudgetRows},
    {"Sort by date", 3, kMiddle, kSeldom, CVMeasureSortByDate},
    {"Sort by amount", 3, kMiddle, kSeldom, CVMeasureSortByAmount},
    {"Sort by payee", 3, kMiddle, kSeldom, CVMeasureSortByPayee},
    {"Sort by what it was for", 3, kMiddle, kSeldom, CVMeasureSortByFor},
    {"Sort by category", 3, kMiddle, kSeldom, CVMeasureSortByCategory},
    {"Window: record until painted", 5, kMiddle, kWindow, CVMeasureWindowRecord, 8},
    {"Window: search, each key", 5, kMiddle, kWindow, CVMeasureWindowSearch, 8},
    {"Window: another tab", 5, kMiddle, kWindow, CVMeasureWindowTab, 8},
    {"Window: another period", 5, kMiddle, kWindow, CVMeasureWindowPeriod, 8},
    {"Window: scroll, allocations for each cell", 0.5, kMiddle, kOnce, CVMeasureWindowScroll},
    {"Report of the summary, from start to exit", 2, kMiddle, kSeldom, CVMeasureSummaryReport},
    {"Report pages", 2, kMiddle, kOften, CVMeasurePagination},
    {"Report painted, last page", 1.5, kMiddle, kOften, CVMeasurePaintingLastPage},
    {"Report as a PDF", 2, kSmall, kReport, CVMeasurePDF},
    {"Report as a PDF, memory at the end", 1.1, kMiddle, kOnce, CVMeasurePDFMemory},
}};

} // namespace

std::span<const CVMeasurement> CVAllMeasurements() {
    return kMeasurements;
}
