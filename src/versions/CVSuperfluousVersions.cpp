#include "versions/CVSuperfluousVersions.h"

#include <algorithm>
#include <iterator>

namespace {

// Days, because months that are counted back from the end of a long one do not always go forward.
constexpr int kDaysInWhichOneADayStays = 31;
constexpr int kDaysInWhichOneAMonthStays = 731;

enum class Span { Moment, Day, Month, Year };

Span spanFor(const QDateTime& kept, const QDateTime& now) {
    if (kept > now.addDays(-1))
        return Span::Moment;
    if (kept > now.addDays(-kDaysInWhichOneADayStays))
        return Span::Day;
    return kept > now.addDays(-kDaysInWhichOneAMonthStays) ? Span::Month : Span::Year;
}

/// Whether only one of the two stays.
bool areInOneSpan(const QDateTime& kept, const QDateTime& earlier, const QDateTime& now) {
    const Span span = spanFor(kept, now);
    if (span == Span::Moment || span != spanFor(earlier, now))
        return false;
    const QDate day = kept.date();
    const QDate earlierDay = earlier.date();
    return day.year() == earlierDay.year() && (span == Span::Year || day.month() == earlierDay.month()) &&
           (span != Span::Day || day.day() == earlierDay.day());
}

} // namespace

QList<CVVersion> CVSuperfluousVersions(const QList<CVVersion>& versions, const QDateTime& now, qint64 limit) {
    const auto isOfFuture = [&now](const CVVersion& version) { return version.name.kept > now; };
    const auto newest = std::find_if_not(versions.begin(), versions.end(), isOfFuture);
    QList<CVVersion> staying;
    QList<CVVersion> superfluous;
    qint64 size = 0;
    for (auto version = versions.begin(); version != versions.end(); ++version) {
        const bool goes = version != newest && std::next(version) != versions.end() &&
                          areInOneSpan(version->name.kept, std::next(version)->name.kept, now);
        (goes ? superfluous : staying).append(*version);
        size += goes ? 0 : version->size;
    }
    // Those of the future, which a wrong clock has made, go last.
    while (size > limit && staying.size() > 1) {
        const bool isNewestLast = newest != versions.end() && staying.constLast().path == newest->path;
        superfluous.append(staying.takeAt(staying.size() - (isNewestLast ? 2 : 1)));
        size -= superfluous.constLast().size;
    }
    return superfluous;
}
