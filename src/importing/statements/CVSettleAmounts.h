#pragma once

#include "importing/statements/CVAmountRule.h"
#include "importing/statements/CVStatementColumns.h"
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

    [[nodiscard]] bool isSettled() const { return rules.size() == 1; }
};

/// `positiveIsOut` and `outMarker` are what is known already.
[[nodiscard]] CVSettledAmounts CVSettleAmounts(const CVStatementTable& table, const CVStatementColumns& columns,
                                               QChar mark, std::optional<bool> positiveIsOut, const QString& outMarker);
