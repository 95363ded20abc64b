#pragma once

#include "importing/delimited/CVAmountRule.h"
#include "importing/delimited/CVStatementColumns.h"
#include "importing/statements/CVStatementQuestion.h"

#include <optional>
#include <vector>

/// Which columns make the amount of a line, and which sign it has, as all lines together tell it.
struct CVSettledAmounts {
    /// The likeliest first; one where it is settled, none where there are no amounts.
    std::vector<CVAmountRule> rules = {};
    /// What the rules differ in, where there are several.
    CVStatementQuestion::About about = CVStatementQuestion::About::Sign;
    /// A row in which they differ.
    std::size_t row = 0;
    /// Whether the balances prove the one rule.
    bool isProven = false;
    /// Whether the texts tell the sign of an amount without one.
    bool isSignProven = false;

    [[nodiscard]] bool isSettled() const { return rules.size() == 1; }
};

/// What is known before the amounts are settled.
struct CVAmountClues {
    QChar mark = u'.';
    std::optional<bool> positiveIsOut = std::nullopt;
    QString outMarker = {};
    CVDaysOfLines days = {};
};
[[nodiscard]] CVSettledAmounts CVSettleAmounts(const CVStatementTable& table, const CVStatementColumns& columns,
                                               const CVAmountClues& clues);
