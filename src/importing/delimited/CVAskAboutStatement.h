#pragma once

#include "importing/delimited/CVSettleAmounts.h"
#include "importing/delimited/CVSettleYears.h"
#include "importing/delimited/CVStatementNotation.h"
#include "importing/statements/CVStatementQuestion.h"

/// The questions about what a statement does not settle, in its own words. Each answer completes the mapping `known`.
[[nodiscard]] CVStatementQuestion CVAskForDayColumn(const CVStatementTable& table, const CVSettledDayColumn& days,
                                                    const CVStatementMapping& known);
[[nodiscard]] CVStatementQuestion CVAskForYear(const CVStatementTable& table, const QString& day,
                                               const CVStatementMapping& known);
[[nodiscard]] CVStatementQuestion CVAskForOtherYear(const CVStatementTable& table, const CVSettledYears& years,
                                                    const CVStatementMapping& known);
[[nodiscard]] CVStatementQuestion CVAskForAmounts(const CVStatementTable& table, const CVSettledAmounts& amounts,
                                                  const CVStatementMapping& known);
