#pragma once

#include "base/QBDate.h"

/// A range of days, inclusive at both ends; empty when the end is before the start.
struct CVDayRange {
    QBDate start;
    QBDate end;

    /// False for a missing date.
    [[nodiscard]] bool contains(const std::optional<QBDate>& date) const {
        return date && *date >= start && *date <= end;
    }
    /// The days from the start to the day after the end; negative for an empty range that is more than a day wide.
    [[nodiscard]] qint64 days() const;
    [[nodiscard]] qint64 wholeMonths() const;

    friend bool operator==(const CVDayRange&, const CVDayRange&) = default;
};
