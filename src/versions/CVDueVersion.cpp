#include "versions/CVDueVersion.h"

namespace {

constexpr qint64 kMinute = 60;
constexpr qint64 kHour = 60 * kMinute;

} // namespace

std::optional<CVVersionReason> CVDueVersion(std::optional<CVVersionReason> asked, const QDateTime& written,
                                            const std::optional<CVVersionName>& newest, const QDateTime& now) {
    const qint64 age = newest ? newest->kept.secsTo(now) : kHour;
    const bool isSameRemoval = asked == CVVersionReason::Removal && newest && newest->reason == *asked && age < kMinute;
    if (asked && !isSameRemoval)
        return asked;
    // The clock of a file server may be days off, so it alone does not tell that a day has begun.
    const bool isKeptToday =
        newest && newest->kept.date() == now.date() && newest->reason != CVVersionReason::Interruption;
    if (!newest || (written.date() != now.date() && !isKeptToday && !isSameRemoval))
        return CVVersionReason::FirstOfDay;
    return age >= kHour ? std::optional(CVVersionReason::Hourly) : std::nullopt;
}
