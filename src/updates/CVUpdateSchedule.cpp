#include "updates/CVUpdateSchedule.h"

#include <algorithm>
#include <array>

namespace {

/// The time between checks: a check is due when the last one is before today less this interval.
struct Interval {
    int frequency;
    int months;
    int days;
};

constexpr std::array<Interval, 3> kIntervals{
    {{CVUpdateFrequency::kDaily, 0, 0}, {CVUpdateFrequency::kWeekly, 0, 7}, {CVUpdateFrequency::kMonthly, 1, 0}}};

} // namespace

bool CVUpdateIsDue(const std::optional<QBDate>& last, const QBDate& today, int frequency) {
    if (frequency == CVUpdateFrequency::kNever)
        return false;
    if (!last)
        return true;
    const auto* const interval =
        std::find_if(kIntervals.begin(), kIntervals.end(),
                     [frequency](const Interval& candidate) { return candidate.frequency == frequency; });
    return interval != kIntervals.end() &&
           today.dateByAddingYears(0, -interval->months, -interval->days).comesAfter(*last);
}
