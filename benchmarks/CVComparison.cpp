#include "CVComparison.h"

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <vector>

namespace {

double secondsNow(CVClock clock) {
    timespec now{};
    clock_gettime(clock == CVClock::Thread ? CLOCK_THREAD_CPUTIME_ID : CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

void CVComparison::run(benchmark::State& state) const {
    const auto measure = [this](const std::function<void()>& action) {
        reset();
        const double start = secondsNow(clock);
        action();
        return secondsNow(clock) - start;
    };
    std::vector<double> yardsticks;
    std::vector<double> subjects;
    for ([[maybe_unused]] auto iteration : state) {
        yardsticks.push_back(measure(yardstick));
        subjects.push_back(measure(subject));
        state.SetIterationTime(subjects.back());
    }
    reset();
    const double base = median(yardsticks);
    const double time = median(subjects);
    state.counters["yardstick"] = base;
    state.counters["subject"] = time;
    state.counters["ratio"] = time / base;
}
