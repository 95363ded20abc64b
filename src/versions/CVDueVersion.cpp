#include "versions/CVDueVersion.h"

#include <cstdlib>

namespace {

constexpr qint64 kMinute = 60;
constexpr qint64 kHour = 60 * kMinute;

} // namespace

std::optional<CVVersionReason> CVDueVersion(std::optional<CVVersionReason> asked, const QDateTime& written,
                                            const std::optional<CVVersionName>& newest, const QDateTime& now) {
    // A clock that was set back makes the newest version one of the future, which must not suspend the keeping.
    const qint64 age = newest ? std::abs(newest->kept.secsTo(now)) : 0;
    const bool isSameRemoval = asked == CVVersionReason::Removal && newest && newest->reason == *asked && age < kMinute;
    if (asked && !isSameRemoval)
        return asked;
    if (!newest || (written.date() != now.date() && !isSameRemoval))
        return CVVersionReason::FirstOfDay;
    return age >= kHour ? std::optional(CVVersionReason::Hourly) : std::nullopt;
}
