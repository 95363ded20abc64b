#pragma once

#include <functional>

namespace benchmark {
class State;
}

/// The clock of a comparison. `Thread` is the thread's own processor time, which other programs hardly disturb; `Wall`
/// is real time, for work that waits for a disk.
enum class CVClock { Thread, Wall };

/// A part of the program and its yardstick, which is the bare minimum of the same work. `reset` runs before each of
/// them and is not measured.
struct CVComparison {
    CVClock clock;
    std::function<void()> reset;
    std::function<void()> yardstick;
    std::function<void()> subject;

    /// Runs yardstick and subject in turn, once each per iteration of `state`. Reports the medians in seconds and their
    /// ratio as the counters "yardstick", "subject" and "ratio".
    void run(benchmark::State& state) const;
};
