#include "commands/CVDaysOfText.h"

#include <QRegularExpression>

namespace {

/// The days from `first` to the last one of the given number of years and months.
CVDayRange daysFrom(const QBDate& first, int years, int months) {
    return {first, first.dateByAddingYears(years, months, -1)};
}

std::optional<QBDate> dayOf(const QString& text) {
    return QBDate::optimizedDateWithCStringXMLFormat(text.toStdString());
}

} // namespace

std::optional<CVDayRange> CVDaysOfText(const QString& text, const QBDate& today) {
    if (text == QLatin1String("today"))
        return CVDayRange{today, today};
    if (const auto day = dayOf(text))
        return CVDayRange{*day, *day};
    static const QRegularExpression form(QStringLiteral("^(\\d{4})(?:-(\\d{2})(?:-(\\d{2}))?)?$"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString year = match.captured(1);
    const QString month = match.captured(2);
    const QString day = match.captured(3);
    const auto first = dayOf(year + u'/' + (month.isEmpty() ? QStringLiteral("01") : month) + u'/' +
                             (day.isEmpty() ? QStringLiteral("01") : day));
    if (!first)
        return std::nullopt;
    if (!day.isEmpty())
        return CVDayRange{*first, *first};
    return month.isEmpty() ? daysFrom(*first, 1, 0) : daysFrom(*first, 0, 1);
}
