#pragma once

#include "model/CVCollections.h"

#include <memory>
#include <vector>

class CVRecordMatching;

/// A transaction that is not the same in two states of a budget. `before` is null for one that was added, `after` for
/// one that was removed.
struct CVTransactionDifference {
    std::shared_ptr<CVTransaction> before;
    std::shared_ptr<CVTransaction> after;
};

struct CVTransactionComparison {
    std::vector<CVTransactionDifference> differences;
    /// Both sides of each that only went to another category of the same name, which nobody can see.
    std::vector<CVTransactionDifference> atNamesakes;
};

/// Compares the transactions of two states, set by set, as multisets of what they say: their order means nothing, but
/// how often a transaction is there does. One that is gone and one that is new in the same set are shown as a change
/// when they have day, payee and purpose in common (with the same amount first), or else day and amount. Newest day
/// first.
[[nodiscard]] CVTransactionComparison CVFindTransactionDifferences(const CVTransactions& before,
                                                                   const CVTransactions& after,
                                                                   const CVRecordMatching& sets,
                                                                   const CVRecordMatching& categories);
