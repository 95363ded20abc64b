#pragma once

#include "differences/CVMergedRecords.h"
#include "differences/CVTransactionContent.h"

class CVCategory;
class CVDetachedDocument;
class CVDocument;
class CVTransaction;
class CVTransactionSet;

/// Two changed states of a budget in one.
struct CVMergedBudget {
    std::shared_ptr<CVDetachedDocument> budget;
    /// Lines that were changed differently on both sides: both of them stand in `budget`.
    std::vector<CVTwoChanges<CVTransaction>> transactions;
    /// Records of which both sides have changed the same: `budget` holds ours, theirs is what it would be there.
    std::vector<CVTwoChanges<CVCategory>> categories;
    std::vector<CVTwoChanges<CVTransactionSet>> sets;
};

/// Joins two states that both come from `common`, or whose common state is unknown (null). The merged budget has our
/// IDs and shows our set; what is only theirs keeps its ID when that is free.
///
/// Of each content, what a transaction says, with b, o and t its number in the common state, ours and theirs: when both
/// moved the same way there are b plus the larger move, else o + t - b, never below 0. Without a common state b is the
/// smaller of o and t, so that nothing goes. Transactions whose category is gone are without one, whatever its ID was.
/// Names and plans of sets and categories: what one side alone has changed counts, else ours. One that one side has
/// removed and the other has left as it was goes when nothing refers to it; the shown set stays. The last issued ID is
/// the greater one, and no ID in use is above it.
///
[[nodiscard]] CVMergedBudget CVMergeBudgets(const CVDocument* common, const CVDocument& ours, const CVDocument& theirs);

/// The rest of a merge of which our side may have taken over a part since: `merged` is its result, `oursThen` what our
/// side was. All three have our IDs.
[[nodiscard]] CVMergedBudget CVMergeRest(const CVDocument& oursThen, const CVDocument& ours, const CVDocument& merged);
