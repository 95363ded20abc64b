#pragma once

#include <QtGlobal>

#include <string_view>

/// Expense-frequency codes as the data file and the conversions use them.
namespace CVExpenseFrequency {

inline constexpr qint64 kWeekly = 0;
inline constexpr qint64 kBiWeekly = 1;
inline constexpr qint64 kSemiMonthly = 2;
inline constexpr qint64 kMonthly = 3;
inline constexpr qint64 kBiMonthly = 4;
inline constexpr qint64 kQuarterly = 5;
inline constexpr qint64 kSemiAnnually = 6;
inline constexpr qint64 kAnnually = 7;
/// A frequency that no known name stands for; it can only come from a file.
inline constexpr qint64 kUnknown = -1;

/// The name of a code in the data file; null (data() is null) for a code outside 0 to 7.
[[nodiscard]] std::string_view nameOfCode(qint64 code);
/// The code whose name is exactly `name`; `kUnknown` when there is none.
[[nodiscard]] qint64 codeOfName(std::string_view name);

} // namespace CVExpenseFrequency
