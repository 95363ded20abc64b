#include "importing/statements/CVStatementSummary.h"

#include "format/QBLocale.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDate>

#include <algorithm>
#include <limits>

namespace {

struct SummaryText {
    Q_DECLARE_TR_FUNCTIONS(CVStatementSummary)
};

QString nameOfSeparator(char separator) {
    switch (separator) {
    case ';':
        return SummaryText::tr("Semicolons");
    case '\t':
        return SummaryText::tr("Tabs");
    case '|':
        return SummaryText::tr("Bars");
    default:
        return SummaryText::tr("Commas");
    }
}

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

QString CVSummaryOfStatement(const CVStatement& statement) {
    QString encoding = QString::fromLatin1(statement.mapping.encoding.value_or("UTF-8"));
    if (encoding.startsWith(u"windows"))
        encoding[0] = u'W';
    const auto count = static_cast<int>(statement.lines.size());
    QStringList parts{nameOfSeparator(statement.mapping.separator.value_or(',')), encoding,
                      count == 1 ? SummaryText::tr("1 line") : SummaryText::tr("%1 lines").arg(count)};
    const QString period = periodOf(statement.lines);
    if (!period.isEmpty())
        parts.append(period);
    return parts.join(QStringLiteral(", "));
}

QString CVRemarkOnBalance(const CVStatementTable& table, const CVAmountRule& rule) {
    const CVBalanceAgreement agreement = CVCompareWithBalances(table, rule, std::numeric_limits<std::size_t>::max());
    const auto first = std::find_if(agreement.steps.begin(), agreement.steps.end(),
                                    [](const CVBalanceAgreement::Step& step) { return !step.agrees; });
    // A column in which nothing agrees is no running balance.
    if (first == agreement.steps.end() || agreement.countOfAgreeing() == 0)
        return {};
    const auto wrong = static_cast<int>(agreement.steps.size()) - agreement.countOfAgreeing();
    return SummaryText::tr("%1 of %2 balances differ from the sums of the lines; the first is in line %3.")
        .arg(wrong)
        .arg(agreement.steps.size())
        .arg(table.rows[first->row].line);
}

QByteArray CVDigestOfHeadings(const QStringList& headings, char separator) {
    if (headings.isEmpty())
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArray(1, separator) + headings.join(u'\n').toUtf8());
    return hash.result().toHex();
}
