#include "importing/delimited/CVStatementCurrency.h"

#include "importing/delimited/CVProvenAmounts.h"
#include "importing/statements/CVStatementAmount.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace {

int currencyColumn(const std::vector<CVColumnRole>& roles, const CVAmountRule& amounts) {
    const int amount = amounts.amount >= 0 ? amounts.amount : std::max(amounts.moneyIn, amounts.moneyOut);
    int nearest = -1;
    for (int column = 0; column < static_cast<int>(roles.size()); ++column) {
        const bool isCurrency = roles[static_cast<std::size_t>(column)] == CVColumnRole::Currency;
        if (isCurrency && (nearest < 0 || std::abs(column - amount) <= std::abs(nearest - amount)))
            nearest = column;
    }
    return nearest;
}

bool agreesWithBalances(const CVStatementTable& table, const CVAmountRule& amounts) {
    const CVBalanceAgreement agreement = CVCompareWithBalances(table, amounts, kCVMostLinesForRules);
    return !agreement.steps.empty() && agreement.countOfAgreeing() == static_cast<int>(agreement.steps.size());
}

QString currencyIn(const CVStatementRow& row, int column) {
    const QString text = CVStatementTable::cell(row, column).trimmed().toUpper();
    return CVIsCurrencyName(text) ? text : QString();
}

} // namespace

QString CVStatementCurrency::otherOf(const CVStatementRow& row) const {
    const QString here = currencyIn(row, column);
    return here == usual ? QString() : here;
}

CVStatementCurrency CVCurrencyOfStatement(const CVStatementTable& table, const std::vector<CVColumnRole>& roles,
                                          const CVAmountRule& amounts) {
    CVStatementCurrency currency{currencyColumn(roles, amounts)};
    std::map<QString, int> counts;
    for (const std::size_t row : table.likely) {
        const QString here = currencyIn(table.rows[row], currency.column);
        if (here.isEmpty())
            continue;
        const int count = ++counts[here];
        if (currency.usual.isEmpty() || count > counts[currency.usual])
            currency.usual = here;
    }
    if (counts.size() < 2 || agreesWithBalances(table, amounts))
        return {};
    return currency;
}
