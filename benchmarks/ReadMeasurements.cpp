#include "CVBareParse.h"
#include "CVComparison.h"
#include "CVFinishedProgram.h"
#include "CVMeasurements.h"
#include "CVPrivateDisplay.h"
#include "CVScratchHome.h"
#include "CVStartedProgram.h"

#include <QFileInfo>

#include <benchmark/benchmark.h>

namespace {

CVFinishedProgram check(const QString& file, benchmark::State& state) {
    const auto finished = CVFinishedProgram::run({CORVELLA_PROGRAM, "check", "--data", file.toLocal8Bit()});
    if (!finished)
        state.SkipWithError("the program could not read the budget");
    return finished.value_or(CVFinishedProgram());
}

/// Reports the greatest of the values that `peakMemory` measures as a multiple of the file's size.
void measureMemory(benchmark::State& state, const QString& file, const std::function<double()>& peakMemory) {
    const auto size = static_cast<double>(QFileInfo(file).size());
    double most = 0;
    for ([[maybe_unused]] auto iteration : state) {
        most = std::max(most, peakMemory());
        state.SetIterationTime(1);
    }
    state.counters["yardstick"] = size;
    state.counters["subject"] = most;
    state.counters["measured"] = most / size;
}

} // namespace

void CVMeasureCheck(benchmark::State& state, std::size_t transactions) {
    const CVScratchHome home(transactions);
    const QString file = home.dataFile();
    CVCompareSeconds(
        state,
        [&] {
            return CVSecondsOf(CVClock::Thread, [&] {
                if (!CVParseBareFile(file))
                    state.SkipWithError("the budget is damaged");
            });
        },
        [&] { return check(file, state).seconds; });
}

void CVMeasureMemoryOfCheck(benchmark::State& state, std::size_t transactions) {
    const CVScratchHome home(transactions);
    measureMemory(state, home.dataFile(), [&] {
        const auto memory =
            CVPeakMemoryOf({CORVELLA_PROGRAM, QStringLiteral("check"), QStringLiteral("--data"), home.dataFile()});
        if (!memory)
            state.SkipWithError("the program could not read the budget");
        return memory.value_or(0);
    });
}

void CVMeasureMemoryOfWindow(benchmark::State& state, std::size_t transactions) {
    const CVScratchHome home(transactions);
    CVPrivateDisplay display;
    measureMemory(state, home.dataFile(), [&] {
        const auto started =
            CVStartToWindow(display, QStringLiteral(CORVELLA_PROGRAM), home.environment(), "Corvella Main Window");
        if (!started)
            state.SkipWithError("the window was not shown");
        return started.value_or(CVStartedProgram()).peakMemory;
    });
}
