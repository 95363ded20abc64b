#include "CVMeasurementReporter.h"
#include "CVMeasurements.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <iostream>

namespace {

constexpr int kLimitExceeded = 1;
constexpr int kWrongUsage = 2;

void registerMeasurements() {
    for (const CVMeasurement& measurement : CVMeasurements()) {
        for (const CVMeasurement::Size& size : measurement.sizes) {
            if (size.rounds == 0)
                continue;
            benchmark::RegisterBenchmark(measurement.title, measurement.measure, size.transactions)
                ->Arg(static_cast<int64_t>(size.transactions))
                ->Iterations(size.rounds)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    // Windows are painted into memory.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return kWrongUsage;
    registerMeasurements();
    CVMeasurementReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printTable(std::cout);
    if (reporter.allWithinLimits())
        return 0;
    std::cerr << "A measurement exceeds its limit or could not be measured.\n";
    return kLimitExceeded;
}
