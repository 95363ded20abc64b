#pragma once

#include "base/QBDate.h"

#include <optional>

/// How often the program checks for newer versions by itself; the values of the preference.
namespace CVUpdateFrequency {
enum Code : int { kNever, kDaily, kWeekly, kMonthly };
} // namespace CVUpdateFrequency

/// Whether an automatic check is due on that day. `last` is the day of the last successful one; without it the check is
/// due at any frequency but "never". A frequency outside the table is never due once there was a check.
[[nodiscard]] bool CVUpdateIsDue(const std::optional<QBDate>& last, const QBDate& today, int frequency);
