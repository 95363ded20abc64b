#include "versions/CVSuperfluousVersions.h"

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
    QList<CVVersion> staying;
    QList<CVVersion> superfluous;
    qint64 size = 0;
    for (qsizetype i = 0; i < versions.size(); ++i) {
        const bool goes =
            i > 0 && i + 1 < versions.size() && areInOneSpan(versions[i].name.kept, versions[i + 1].name.kept, now);
        (goes ? superfluous : staying).append(versions[i]);
        size += goes ? 0 : versions[i].size;
    }
    while (size > limit && staying.size() > 1) {
        size -= staying.constLast().size;
        superfluous.append(staying.takeLast());
    }
    return superfluous;
}
