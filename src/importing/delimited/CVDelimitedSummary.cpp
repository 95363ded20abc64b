#include "importing/delimited/CVDelimitedSummary.h"

#include "importing/statements/CVStatementSummary.h"

#include <QCoreApplication>
#include <QCryptographicHash>

#include <algorithm>
#include <limits>

namespace {

struct DelimitedSummaryText {
    Q_DECLARE_TR_FUNCTIONS(CVDelimitedSummary)
};

QString nameOfSeparator(char separator) {
    switch (separator) {
    case ';':
        return DelimitedSummaryText::tr("Semicolons");
    case '\t':
        return DelimitedSummaryText::tr("Tabs");
    case '|':
        return DelimitedSummaryText::tr("Bars");
    default:
        return DelimitedSummaryText::tr("Commas");
    }
}

} // namespace

QString CVSummaryOfDelimited(const CVStatement& statement) {
    return CVSummaryOfStatement({nameOfSeparator(statement.mapping.separator.value_or(',')),
                                 CVNameOfEncoding(statement.mapping.encoding.value_or("UTF-8"))},
                                statement.lines);
}

QString CVRemarkOnBalance(const CVStatementTable& table, const CVAmountRule& rule) {
    const CVBalanceAgreement agreement = CVCompareWithBalances(table, rule, std::numeric_limits<std::size_t>::max());
    const auto first = std::find_if(agreement.steps.begin(), agreement.steps.end(),
                                    [](const CVBalanceAgreement::Step& step) { return !step.agrees; });
    // A column in which nothing agrees is no running balance.
    if (first == agreement.steps.end() || agreement.countOfAgreeing() == 0)
        return {};
    const auto wrong = static_cast<int>(agreement.steps.size()) - agreement.countOfAgreeing();
    return DelimitedSummaryText::tr("%1 of %2 balances differ from the sums of the lines; the first is in line %3.")
        .arg(wrong)
        .arg(agreement.steps.size())
        .arg(table.rows[first->row].line);
}

QByteArray CVDigestOfHeadings(const CVStatementTable& table, char separator) {
    const QByteArray headings =
        table.headings.isEmpty() ? QByteArray::number(table.columns) : table.headings.join(u'\n').toUtf8();
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArray(1, separator) + headings);
    return hash.result().toHex();
}
