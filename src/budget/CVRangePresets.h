#pragma once

#include "budget/CVDayRange.h"
#include "model/CVDocument.h"

#include <optional>

/// The last day that a range may be entered to end on: today, or the document's latest transaction date when that is
/// later.
[[nodiscard]] QBDate latestSelectableDate(const CVDocument& document);
/// `date`, or `latestSelectableDate` when it comes after that. Asks for a fresh today each time.
[[nodiscard]] QBDate verifyEndDate(const QBDate& date, const CVDocument& document);
/// `date`, or the document's earliest transaction date when it comes before that.
[[nodiscard]] QBDate verifyStartDate(const QBDate& date, const CVDocument& document);

/// How many items a range pop-up has.
inline constexpr int kCVRangePresets = 8;

/// The range that item `index` (0 to 7) of a range pop-up stands for on the day `today`: all, this year and last, last
/// year, this year, last month, this month, last week, this week. Starts are held back to the first transaction and
/// some ends to today, irregularly but deliberately. Absent for any other index. A document without dated transactions
/// has no first and last day: "all" is then `today` alone.
[[nodiscard]] std::optional<CVDayRange> rangeOfPreset(int index, const QBDate& today, const CVDocument& document);
