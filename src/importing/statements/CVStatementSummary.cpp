#include "importing/statements/CVStatementSummary.h"

#include "format/QBLocale.h"

#include <QCoreApplication>
#include <QDate>

#include <algorithm>

namespace {

struct SummaryText {
    Q_DECLARE_TR_FUNCTIONS(CVStatementSummary)
};

/// Years that the calendar of the toolkit does not have, such as 0, are written with digits.
QString dayInWords(const QBDate& day, const QString& format) {
    const QDate date(static_cast<int>(day.yearOfCommonEra()), day.monthOfYear(), day.dayOfMonth());
    return date.isValid() ? QBDateLocaleInForce().toString(date, format)
                          : QString::fromLatin1(day.corvellaXMLRepresentation());
}

QString periodOf(const std::vector<CVStatementLine>& lines) {
    std::vector<QBDate> days;
    for (const CVStatementLine& line : lines) {
        if (line.day && line.unreadable.isEmpty())
            days.push_back(*line.day);
    }
    if (days.empty())
        return {};
    const auto [first, last] = std::minmax_element(days.begin(), days.end());
    return CVPeriodInWords(*first, *last);
}

} // namespace

QString CVSummaryOfStatement(QStringList parts, const std::vector<CVStatementLine>& lines) {
    const auto count = static_cast<int>(lines.size());
    parts.append(count == 1 ? SummaryText::tr("1 line") : SummaryText::tr("%1 lines").arg(count));
    const QString period = periodOf(lines);
    if (!period.isEmpty())
        parts.append(period);
    return parts.join(QStringLiteral(", "));
}

QString CVPeriodInWords(const QBDate& first, const QBDate& last) {
    const qint64 thisYear = QBDate::date().yearOfCommonEra();
    const bool isThisYear = first.yearOfCommonEra() == thisYear && last.yearOfCommonEra() == thisYear;
    const QString format = isThisYear ? QStringLiteral("d MMMM") : QStringLiteral("d MMMM yyyy");
    const QString from = dayInWords(first, format);
    return first == last ? from : SummaryText::tr("%1 to %2").arg(from, dayInWords(last, format));
}

QString CVNameOfEncoding(const QByteArray& encoding) {
    QString name = QString::fromLatin1(encoding);
    if (name.startsWith(u"windows"))
        name[0] = u'W';
    return name;
}
