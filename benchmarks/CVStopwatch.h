#pragma once

#include <vector>

/// Which time counts: the thread's own, which other programs on the machine hardly disturb, or that of the clock on the
/// wall, for what a person waits for or what waits for a disk.
enum class CVClock { Thread, Wall };

/// Seconds since some moment in the past.
[[nodiscard]] double CVSecondsNow(CVClock clock);

/// How long `action` takes, in seconds.
template <typename Action>
[[nodiscard]] double CVSecondsOf(CVClock clock, const Action& action) {
    const double start = CVSecondsNow(clock);
    action();
    return CVSecondsNow(clock) - start;
}

/// Of an even number of values the upper one of the two in the middle. There is at least one.
[[nodiscard]] double CVMedian(std::vector<double> values);
