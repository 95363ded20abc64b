#include "CVMeasurementReporter.h"

#include <iomanip>
#include <ostream>

namespace {

constexpr const char* kHead = "| Measurement | Unit | 100,000 | Limit | 1,000,000 | Limit |\n"
                              "|---|---|---:|---:|---:|---:|\n";

void printLimit(std::ostream& out, const CVMeasurement::Size& size) {
    if (size.limit != CVMeasurement::kNoLimit)
        out << std::defaultfloat << std::setprecision(6) << size.limit;
}

} // namespace

void CVMeasurementReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        const auto measured = run.counters.find("measured");
        if (run.error_occurred || measured == run.counters.end())
            mFailed = true;
        else
            mValues[{run.run_name.function_name, run.run_name.args}] = measured->second;
    }
}

std::optional<double> CVMeasurementReporter::value(const CVMeasurement& measurement,
                                                   const CVMeasurement::Size& size) const {
    const auto found = mValues.find({measurement.title, std::to_string(size.transactions)});
    return size.rounds == 0 || found == mValues.end() ? std::nullopt : std::optional(found->second);
}

void CVMeasurementReporter::printTable(std::ostream& out) const {
    out << '\n' << kHead;
    for (const CVMeasurement& measurement : CVMeasurements()) {
        out << "| " << measurement.title << " | " << measurement.unit;
        for (const CVMeasurement::Size& size : measurement.sizes) {
            out << " | " << std::fixed << std::setprecision(measurement.isTime() ? 1 : 2);
            const auto measured = value(measurement, size);
            if (!measured)
                out << (size.rounds == 0 ? "" : "–");
            else if (size.allows(*measured))
                out << *measured;
            else
                out << "**" << *measured << "**";
            out << " | ";
            printLimit(out, size);
        }
        out << " |\n";
    }
}

bool CVMeasurementReporter::allWithinLimits() const {
    bool within = !mFailed;
    for (const CVMeasurement& measurement : CVMeasurements()) {
        for (const CVMeasurement::Size& size : measurement.sizes) {
            const auto measured = value(measurement, size);
            within = within && (!measured || size.allows(*measured));
        }
    }
    return within;
}
