#pragma once

#include "importing/delimited/CVAmountRule.h"
#include "importing/delimited/CVStatementTable.h"
#include "importing/statements/CVStatementMapping.h"

#include <vector>

/// The currency of a statement, where a column names that of each line.
struct CVStatementCurrency {
    /// -1: none, or one that says nothing of the amounts.
    int column = -1;
    /// That of the most lines.
    QString usual = {};

    /// The currency of a row where it is another one than the usual; else empty.
    [[nodiscard]] QString otherOf(const CVStatementRow& row) const;
};

/// Of several columns with currencies the one nearest to the amounts. Balances that agree with the amounts show that
/// all are in one currency.
[[nodiscard]] CVStatementCurrency CVCurrencyOfStatement(const CVStatementTable& table,
                                                        const std::vector<CVColumnRole>& roles,
                                                        const CVAmountRule& amounts);
