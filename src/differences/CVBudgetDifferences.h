#pragma once

#include "differences/CVRecordMatching.h"
#include "differences/CVTransactionDifferences.h"

#include <memory>
#include <vector>

class CVCategory;
class CVDocument;
class CVTransactionSet;

/// A category or a set that is not the same in two states of a budget. `before` is null for one that was added, `after`
/// for one that was removed.
template <typename Record>
struct CVRecordDifference {
    std::shared_ptr<Record> before;
    std::shared_ptr<Record> after;
};

/// What is not the same in two states of a budget. Holds the records of both, not their documents.
struct CVBudgetDifferences {
    CVRecordMatching setMatching;
    CVRecordMatching categoryMatching;
    std::vector<CVRecordDifference<CVTransactionSet>> sets;
    /// Also those whose plan changed.
    std::vector<CVRecordDifference<CVCategory>> categories;
    std::vector<CVTransactionDifference> transactions;
    /// No differences to a reader: `before` and `after` belong to two categories of the same name.
    std::vector<CVTransactionDifference> transactionsAtNamesakes;

    [[nodiscard]] bool isEmpty() const { return sets.empty() && categories.empty() && transactions.empty(); }

    /// Whether `after` seems to come from `before`: at least half of the categories of `before` are in `after` with ID
    /// and name. In files of different origin, or after a budget was begun anew, an ID means something else.
    [[nodiscard]] static bool isLaterState(const CVDocument& before, const CVDocument& after);
    /// What has to be done to `before` to get `after`. `common` is an earlier state of both, for instance `before`
    /// itself when `after` came from it; null when they have none in common, as two files of different origin. Of
    /// several categories or sets with one ID, only the first counts, as in the data file.
    [[nodiscard]] static CVBudgetDifferences between(const CVDocument& before, const CVDocument& after,
                                                     const CVDocument* common);
    /// The same, with `before` as the common state when `after` seems to come from it.
    [[nodiscard]] static CVBudgetDifferences since(const CVDocument& before, const CVDocument& after);
};
