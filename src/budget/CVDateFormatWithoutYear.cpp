#include "budget/CVDateFormatWithoutYear.h"

#include <algorithm>
#include <array>

namespace {

/// The place of a field in a format.
struct Field {
    qsizetype start = -1;
    qsizetype length = 0;

    [[nodiscard]] bool found() const { return start >= 0; }
    [[nodiscard]] qsizetype end() const { return start + length; }
};

Field findFirst(const QString& format, std::initializer_list<QLatin1StringView> names,
                Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) {
    for (const QLatin1StringView name : names) {
        const qsizetype start = format.indexOf(name, 0, sensitivity);
        if (start >= 0)
            return {start, name.size()};
    }
    return {};
}

QString without(const QString& format, qsizetype start, qsizetype end) {
    return QString(format).remove(start, end - start);
}

QString percentStyle(const QString& format) {
    const Field year = findFirst(format, {QLatin1StringView("%y")}, Qt::CaseInsensitive);
    if (!year.found())
        return format;
    if (year.start == 0) {
        const qsizetype next = format.indexOf(u'%', year.end());
        return format.sliced(next < 0 ? year.end() : next);
    }
    const Field day = findFirst(format, {QLatin1StringView("%d"), QLatin1StringView("%e")});
    const Field month = findFirst(format, {QLatin1StringView("%m"), QLatin1StringView("%1m")});
    const bool afterMonth =
        (month.start < day.start && year.start <= day.start) || (day.start <= month.start && year.start > month.start);
    const Field& kept = afterMonth ? month : day;
    return without(format, std::min(kept.found() ? kept.end() : year.start, year.start), year.end());
}

bool isDayOrMonth(QChar c) {
    return c == u'M' || c == u'd' || c == u'E';
}

QString patternStyle(const QString& format) {
    const Field year = findFirst(
        format, {QLatin1StringView("yyyy"), QLatin1StringView("yyy"), QLatin1StringView("yy"), QLatin1StringView("y")});
    const auto* const first = std::find_if(format.begin(), format.end(), isDayOrMonth);
    if (!year.found() || first == format.end())
        return format;
    const qsizetype firstAt = first - format.begin();
    if (firstAt > year.start)
        return format.sliced(firstAt);
    qsizetype last = year.start;
    while (last > 0 && !isDayOrMonth(format.at(last - 1)))
        --last;
    return without(format, last, year.end());
}

} // namespace

QString CVDateFormatWithoutYear(const QString& format) {
    return format.contains(u'%') ? percentStyle(format) : patternStyle(format);
}
