#pragma once

#include "budget/CVDayRange.h"

#include <QString>

#include <optional>

/// The days that a text on the command line names: a day (2014-01-31 or 2014/01/31), a month (2014-01), a year (2014)
/// or "today". Absent for any other text.
[[nodiscard]] std::optional<CVDayRange> CVDaysOfText(const QString& text, const QBDate& today);
