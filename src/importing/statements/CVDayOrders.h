#pragma once

#include "importing/statements/CVStatementDay.h"

#include <cstddef>
#include <utility>
#include <vector>

/// A day of a statement, with the row or the line in which it stands.
using CVWrittenDay = std::pair<std::size_t, CVStatementDay>;
/// Days of a statement that are all written in one order.
using CVWrittenDays = std::vector<CVWrittenDay>;

/// The likeliest first.
using CVDayOrders = std::vector<CVDayOrder>;

/// The orders in which the most of the days exist; nearly all of them in the first one.
[[nodiscard]] CVDayOrders CVPossibleDayOrders(const CVWrittenDays& days,
                                              const CVDayOrders& among = {CVDayOrder::DayMonthYear,
                                                                          CVDayOrder::MonthDayYear,
                                                                          CVDayOrder::YearMonthDay});
/// The order in which alone the days run one way. A few days may do so by chance.
[[nodiscard]] CVDayOrders CVDayOrdersByRun(const CVWrittenDays& days, const CVDayOrders& orders);
/// The orders in which a year of two digits does not make a statement last many years.
[[nodiscard]] CVDayOrders CVDayOrdersBySpan(const CVWrittenDays& days, const CVDayOrders& orders);
/// One of each group of orders in which every day is the same one.
[[nodiscard]] CVDayOrders CVDistinctDayOrders(const CVWrittenDays& days, const CVDayOrders& orders);
/// The first of the days that most of the orders take for different ones; null where they agree.
[[nodiscard]] const CVWrittenDay* CVOpenDay(const CVWrittenDays& days, const CVDayOrders& orders);

/// Whether some day is another one, or none, in each other order. A day with the year first or with the month in words
/// proves nothing, and neither does 3/3.
[[nodiscard]] bool CVIsDayOrderProven(const CVWrittenDays& days, CVDayOrder order);

[[nodiscard]] qint64 CVDaysBetween(const QBDate& from, const QBDate& to);
