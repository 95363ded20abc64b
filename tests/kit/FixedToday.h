#pragma once

#include "base/QBDate.h"

/// Makes `QBDate::date()` return a given day as long as this object lives; the real clock returns afterwards. At most
/// one lives at a time.
class FixedToday final {
public:
    explicit FixedToday(const QBDate& today) { QBDate::setToday(today); }
    ~FixedToday() { QBDate::setToday(std::nullopt); }
    FixedToday(const FixedToday&) = delete;
    FixedToday& operator=(const FixedToday&) = delete;

    void set(const QBDate& today) { QBDate::setToday(today); }
};
