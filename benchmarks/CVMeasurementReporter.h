#pragma once

#include "CVMeasurements.h"

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

/// Shows each measurement at once and keeps its ratio for the table at the end.
class CVMeasurementReporter final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    /// Prints the table of `CVAllMeasurements` in Markdown. A missing measurement is a dash, a ratio above its limit is
    /// bold.
    void printTable(std::ostream& out) const;
    /// Whether all measurements succeeded and stayed within their limits.
    [[nodiscard]] bool allWithinLimits() const;

private:
    /// The measured ratio; absent when it was not measured.
    [[nodiscard]] std::optional<double> ratio(const CVMeasurement& measurement, const CVMeasurement::Size& size) const;

    /// The ratios by title and size.
    std::map<std::pair<std::string, std::string>, double> mRatios;
    bool mFailed = false;
};
