#include "CVMeasurementReporter.h"

#include <iomanip>
#include <ostream>

namespace {

constexpr const char* kHead = "| Figure | Limit | 1,000 | 100,000 | 1,000,000 |\n"
                              "|---|---:|---:|---:|---:|\n";

void printLimit(std::ostream& out, const CVMeasurement& measurement) {
    if (measurement.limit == CVMeasurement::kNoLimit)
        return;
    out << std::setprecision(1) << measurement.limit;
    if (measurement.largestLimit != CVMeasurement::kNoLimit)
        out << " (" << measurement.largestLimit << " for the largest)";
    if (measurement.limitFrom > measurement.sizes.front().transactions)
        out << " from " << measurement.limitFrom;
}

} // namespace

void CVMeasurementReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        const auto ratio = run.counters.find("ratio");
        if (run.error_occurred || ratio == run.counters.end())
            mFailed = true;
        else
            mRatios[{run.run_name.function_name, run.run_name.args}] = ratio->second;
    }
}

std::optional<double> CVMeasurementReporter::ratio(const CVMeasurement& measurement,
                                                   const CVMeasurement::Size& size) const {
    const auto found = mRatios.find({measurement.title, std::to_string(size.transactions)});
    return found == mRatios.end() ? std::nullopt : std::optional(found->second);
}

void CVMeasurementReporter::printTable(std::ostream& out) const {
    out << '\n' << kHead << std::fixed;
    for (const CVMeasurement& measurement : CVAllMeasurements()) {
        out << "| " << measurement.title << " | ";
        printLimit(out, measurement);
        out << std::setprecision(2);
        for (const CVMeasurement::Size& size : measurement.sizes) {
            const auto measured = ratio(measurement, size);
            if (!measured)
                out << " | –";
            else if (measurement.allows(*measured, size.transactions))
                out << " | " << *measured;
            else
                out << " | **" << *measured << "**";
        }
        out << " |\n";
    }
}

bool CVMeasurementReporter::allWithinLimits() const {
    bool within = !mFailed;
    for (const CVMeasurement& measurement : CVAllMeasurements()) {
        for (const CVMeasurement::Size& size : measurement.sizes) {
            const auto measured = ratio(measurement, size);
            within = within && (!measured || measurement.allows(*measured, size.transactions));
        }
    }
    return within;
}
