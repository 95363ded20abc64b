#pragma once

#include "base/QBDate.h"

/// The day of that date, short enough for tables.
[[nodiscard]] inline QBDate day(qint64 year, int month, int dayOfMonth) {
    return QBDate::dateWithYear(year, month, dayOfMonth);
}

[[nodiscard]] inline QBDate daysLater(const QBDate& date, qint64 days) {
    return date.dateByAddingYears(0, 0, days);
}
