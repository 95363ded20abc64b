#include "CVBareParse.h"
#include "CVComparison.h"
#include "CVMeasurements.h"
#include "CVPrivateDisplay.h"
#include "CVScratchHome.h"
#include "CVStartedProgram.h"

#include <benchmark/benchmark.h>

namespace {

enum class Yardstick { EmptyWindow, EmptyWindowAndParse };

void measureStart(benchmark::State& state, std::size_t transactions, Yardstick yardstick) {
    const CVScratchHome home(transactions);
    const QByteArray text = home.text();
    CVPrivateDisplay display;
    bool complete = true;
    const auto start = [&](const char* program, const char* title) {
        const auto started = CVStartToWindow(display, QLatin1String(program), home.environment(), title);
        complete = complete && started;
        return started.value_or(CVStartedProgram()).seconds;
    };
    const auto parse = [&] { return CVSecondsOf(CVClock::Thread, [&] { complete = CVParseBare(text) && complete; }); };
    const auto yardstickSeconds = [&] {
        const double window = start(CORVELLA_EMPTY_WINDOW, "Empty Window");
        return yardstick == Yardstick::EmptyWindow ? window : window + parse();
    };
    // The caches of fonts and of the disk are filled once.
    start(CORVELLA_PROGRAM, "Corvella Main Window");
    CVCompareSeconds(state, yardstickSeconds, [&] { return start(CORVELLA_PROGRAM, "Corvella Main Window"); });
    if (!complete)
        state.SkipWithError("a window was not shown");
}

} // namespace

void CVMeasureStart(benchmark::State& state, std::size_t transactions) {
    measureStart(state, transactions, Yardstick::EmptyWindowAndParse);
}

void CVMeasureEmptyStart(benchmark::State& state, std::size_t transactions) {
    measureStart(state, transactions, Yardstick::EmptyWindow);
}
