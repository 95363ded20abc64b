#pragma once

#include "importing/delimited/CVAmountRule.h"
#include "importing/delimited/CVStatementColumns.h"

#include <optional>
#include <vector>

/// More lines need not be looked at to tell one rule from another.
inline constexpr std::size_t kCVMostLinesForRules = 400;

/// A rule, and what it makes of the lines.
struct CVTriedRule {
    using Amounts = std::vector<std::optional<qint64>>;

    CVAmountRule rule;
    Amounts amounts = {};
    /// The lines for which the rule finds one text, be it an amount or not.
    int covered = 0;
    CVBalanceAgreement agreement = {};
};

/// The rule, with its column of balances, that the balances prove; none when they do not, or prove another one as well.
/// Two where only the lines of different days could say which of them is money out, and these do not.
[[nodiscard]] std::vector<CVAmountRule> CVAmountRulesProvenByBalances(const CVStatementTable& table,
                                                                      const CVStatementColumns& columns,
                                                                      const std::vector<CVTriedRule>& rules,
                                                                      const CVDaysOfLines& days);
