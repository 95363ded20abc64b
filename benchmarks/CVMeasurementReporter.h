#pragma once

#include "CVMeasurements.h"

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

/// Shows each run as it comes and remembers what it measured for the table at the end.
class CVMeasurementReporter final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The table of `CVMeasurements` in Markdown. What was not measured is a dash, what exceeds its limit is bold.
    void printTable(std::ostream& out) const;
    /// Whether no measurement failed or exceeded its limit.
    [[nodiscard]] bool allWithinLimits() const;

private:
    /// Absent when it was not measured.
    [[nodiscard]] std::optional<double> value(const CVMeasurement& measurement, const CVMeasurement::Size& size) const;

    /// By title and size.
    std::map<std::pair<std::string, std::string>, double> mValues;
    bool mFailed = false;
};
