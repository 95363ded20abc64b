#pragma once

#include "base/QBDate.h"

/// Makes `QBDate::date()` answer a given day as long as this object lives; the clock rules again afterwards. At most
/// one lives at a time.
class FixedToday final {
public:
    explicit FixedToday(const QBDate& today) { QBDate::setToday(today); }
    ~FixedToday() { QBDate::setToday(std::nullopt); }
    FixedToday(const FixedToday&) = delete;
    FixedToday& operator=(const FixedToday&) = delete;

    /// Moves to another day.
    void set(const QBDate& today) { QBDate::setToday(today); }
};
