#include "CVComparison.h"

#include <benchmark/benchmark.h>

void CVCompareSeconds(benchmark::State& state, const std::function<double()>& yardstick,
                      const std::function<double()>& subject) {
    std::vector<double> yardsticks;
    std::vector<double> subjects;
    for ([[maybe_unused]] auto iteration : state) {
        yardsticks.push_back(yardstick());
        subjects.push_back(subject());
        state.SetIterationTime(subjects.back());
    }
    const double base = CVMedian(std::move(yardsticks));
    const double time = CVMedian(std::move(subjects));
    state.counters["yardstick"] = base;
    state.counters["subject"] = time;
    state.counters["measured"] = time / base;
}

void CVComparison::run(benchmark::State& state) const {
    const auto seconds = [this](const std::function<void()>& action) {
        reset();
        return CVSecondsOf(clock, action);
    };
    CVCompareSeconds(
        state, [&] { return seconds(yardstick); }, [&] { return seconds(subject); });
    reset();
}
