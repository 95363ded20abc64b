#pragma once

#include "importing/delimited/CVAmountRule.h"
#include "importing/delimited/CVStatementTable.h"
#include "importing/statements/CVStatement.h"

/// "Semicolons, Windows-1252, 148 lines, 12 March to 9 April"
[[nodiscard]] QString CVSummaryOfDelimited(const CVStatement& statement);

/// What the balance column says against the sums; empty when they agree.
[[nodiscard]] QString CVRemarkOnBalance(const CVStatementTable& table, const CVAmountRule& rule);

/// By which a mapping is remembered.
[[nodiscard]] QByteArray CVDigestOfHeadings(const CVStatementTable& table, char separator);
