#pragma once

#include <optional>

class CVCategory;

/// The category's estimate as an amount per period of a display period type (0 to 3: day, week, two weeks, month),
/// rounded to two places. Absent without an estimate (a target of 0), for an unknown frequency and for any other type.
[[nodiscard]] std::optional<double> planPerPeriod(const CVCategory& category, int periodType);
