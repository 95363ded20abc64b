#pragma once

#include <functional>

namespace benchmark {
class State;
}

/// Which time counts: the thread's own, which other programs on the machine hardly disturb, or that of the clock on the
/// wall, for what waits for a disk.
enum class CVClock { Thread, Wall };

/// A piece of the program and its yardstick, the bare minimum of the same work. `reset` runs before each of them and
/// does not count.
struct CVComparison {
    CVClock clock;
    std::function<void()> reset;
    std::function<void()> yardstick;
    std::function<void()> subject;

    /// Runs both in turn, once each per iteration of `state`, and reports the medians (in seconds) and their ratio as
    /// its counters "yardstick", "subject" and "ratio".
    void run(benchmark::State& state) const;
};
