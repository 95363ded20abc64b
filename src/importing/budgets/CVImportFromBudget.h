#pragma once

#include "differences/CVMergeBudgets.h"
#include "importing/CVImportIntoBudget.h"
#include "importing/budgets/CVFitToBudget.h"

struct CVBudgetDifferences;

/// Joins another budget, of which nothing but its contents is known, with a copy of ours. Nothing of ours is removed or
/// changed; of each transaction there are as many as the budget with more of them has. Sets and categories are the same
/// where their names are; transactions without a set come into ours of that kind, else into the shown one. Changes
/// `other`.
[[nodiscard]] CVMergedBudget CVMergeForImport(const CVDocument& ours, CVDocument& other,
                                              CVPlansOfOther plans = CVPlansOfOther::Known);

/// Brings chosen differences between the merged budget and ours, the copy that was merged, into the present budget as
/// `CVBringIn` does, with an earlier version for the reason `Import`. Returns what has come in, by which it can be
/// taken back.
[[nodiscard]] CVImported CVImportFromBudget(CVDocument& present, const CVDocument& merged, const CVDocument& ours,
                                            const CVBudgetDifferences& chosen);
