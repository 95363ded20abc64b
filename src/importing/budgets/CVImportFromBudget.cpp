#include "importing/budgets/CVImportFromBudget.h"

#include "differences/CVBringIn.h"
#include "importing/budgets/CVFitToBudget.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVRecordIDs.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <unordered_set>

namespace {

/// The records whose IDs are new.
template <typename Records>
std::vector<CVImported::Made> madeSince(const std::unordered_set<quint32>& former, const Records& records) {
    std::vector<CVImported::Made> made;
    for (const auto& record : records) {
        if (!former.contains(record->uniqueID()))
            made.push_back({record->uniqueID(), record->xmlRepresentation()});
    }
    return made;
}

} // namespace

CVMergedBudget CVMergeForImport(const CVDocument& ours, CVDocument& other, CVPlansOfOther plans) {
    CVFitToBudget(other, ours, plans);
    return CVMergeBudgets(nullptr, ours, other);
}

CVImported CVImportFromBudget(CVDocument& present, const CVDocument& merged, const CVDocument& ours,
                              const CVBudgetDifferences& chosen) {
    CVImported imported;
    imported.from = CVImported::From::Budget;
    imported.formerSet = present.currentTransactionSet();
    std::unordered_set<const CVTransaction*> former;
    for (const auto& transaction : present.transactions())
        former.insert(transaction.get());
    const auto formerSets = CVIDsOf(present.transactionSets());
    const auto formerCategories = CVIDsOf(present.categories());
    imported.lines = CVBringIn(present, merged, ours, chosen, CVVersionReason::Import);
    for (const auto& transaction : present.transactions()) {
        if (!former.contains(transaction.get()))
            imported.entries.push_back({transaction, CVTransactionContent(*transaction), {}});
    }
    imported.sets = madeSince(formerSets, present.transactionSets());
    // The set of the transactions that had none goes after those that made it necessary.
    std::stable_partition(imported.sets.begin(), imported.sets.end(), [](const auto& made) { return made.id != 0; });
    imported.categories = madeSince(formerCategories, present.categories());
    return imported;
}
