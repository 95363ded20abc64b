#include "importing/statements/CVStatementSummary.h"

#include "format/QBLocale.h"

#include <QCoreApplication>
#include <QDate>

#include <algorithm>

namespace {

struct SummaryText {
    Q_DECLARE_TR_FUNCTIONS(CVStatementSummary)
};

QDate dateOf(const QBDate& day) {
    return {static_cast<int>(day.yearOfCommonEra()), day.monthOfYear(), day.dayOfMonth()};
}

/// The first and the last day; with the year where it is not this one.
QString periodOf(const std::vector<CVStatementLine>& lines) {
    std::vector<QBDate> days;
    for (const CVStatementLine& line : lines) {
        if (line.day && line.unreadable.isEmpty())
            days.push_back(*line.day);
    }
    if (days.empty())
        return {};
    const auto [first, last] = std::minmax_element(days.begin(), days.end());
    const qint64 thisYear = QBDate::date().yearOfCommonEra();
    const bool isThisYear = first->yearOfCommonEra() == thisYear && last->yearOfCommonEra() == thisYear;
    const QString format = isThisYear ? QStringLiteral("d MMMM") : QStringLiteral("d MMMM yyyy");
    const QLocale locale = QBDateLocaleInForce();
    const QString from = locale.toString(dateOf(*first), format);
    return *first == *last ? from : SummaryText::tr("%1 to %2").arg(from, locale.toString(dateOf(*last), format));
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

QString CVNameOfEncoding(const QByteArray& encoding) {
    QString name = QString::fromLatin1(encoding);
    if (name.startsWith(u"windows"))
        name[0] = u'W';
    return name;
}
