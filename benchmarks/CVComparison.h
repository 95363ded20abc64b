#pragma once

#include "CVStopwatch.h"

#include <functional>

namespace benchmark {
class State;
}

/// Runs a yardstick and the piece of the program that is measured by it in turn, once each per iteration of `state`;
/// both functions return the seconds that they took. Reports the ratio of their medians as the counter "measured", and
/// both as "yardstick" and "subject".
void CVCompareSeconds(benchmark::State& state, const std::function<double()>& yardstick,
                      const std::function<double()>& subject);

/// A piece of the program and its yardstick, the bare minimum of the same work. `reset` runs before each of them and
/// does not count.
struct CVComparison {
    CVClock clock;
    std::function<void()> reset;
    std::function<void()> yardstick;
    std::function<void()> subject;

    void run(benchmark::State& state) const;
};
