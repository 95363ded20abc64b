#include "CVStopwatch.h"

#include <time.h>

#include <algorithm>

double CVSecondsNow(CVClock clock) {
    timespec now{};
    clock_gettime(clock == CVClock::Thread ? CLOCK_THREAD_CPUTIME_ID : CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double CVMedian(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
