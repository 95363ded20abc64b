#pragma once

#include "budget/CVDayRange.h"
#include "model/CVCollections.h"

#include <optional>

class CVDocument;

/// The latest day that the user may enter as the end of a range: today, or the document's latest transaction date when
/// that is later.
[[nodiscard]] QBDate latestSelectableDate(const CVDocument& document);
/// `date`, or `latestSelectableDate` when it comes after that. Reads today's date anew each time.
[[nodiscard]] QBDate verifyEndDate(const QBDate& date, const CVDocument& document);
/// `date`, or the document's earliest transaction date when it comes before that.
[[nodiscard]] QBDate verifyStartDate(const QBDate& date, const CVDocument& document);

/// The number of items in a range pop-up.
inline constexpr int kCVRangePresets = 8;

/// The range of item `index` (0 to 7) of a range pop-up on the day `today`: all, this year and last, last year, this
/// year, last month, this month, last week, this week. Most starts are no earlier than the first transaction, and some
/// ends are no later than `latestSelectableDate`; the table of presets says which, irregularly but deliberately. Absent
/// for any other index. A document without dated transactions has no first and last day: "all" is then `today` alone.
[[nodiscard]] std::optional<CVDayRange> rangeOfPreset(int index, const QBDate& today, const CVDocument& document);
