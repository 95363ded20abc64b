#include "importing/budgets/CVFitToBudget.h"

#include "differences/CVMergedRecords.h"
#include "differences/CVShowFirstSet.h"
#include "differences/CVTakenRecords.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVRecordIDs.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <unordered_set>

namespace {

/// An ID that no set of either budget has and no transaction names.
quint32 freeSetID(const CVDocument& other, const CVDocument& ours) {
    CVFreeIDs ids{std::max(other.uniqueID(), ours.uniqueID()), {}};
    for (const CVDocument* const budget : {static_cast<const CVDocument*>(&other), &ours}) {
        ids.taken.merge(CVIDsOf(budget->transactionSets()));
        for (const auto& transaction : budget->transactions())
            ids.taken.insert(transaction->transactionSetID());
    }
    return ids.issue();
}

void giveID(CVTransactionSet& set, quint32 id, CVDocument& other) {
    for (const auto& transaction : other.transactions()) {
        if (transaction->transactionSetID() == set.uniqueID())
            transaction->setTransactionSetID(id);
    }
    set.setUniqueID(id);
}

/// Transactions of ours whose ID no set of ours has would be in the set of theirs that has it. The ID 0 is that of the
/// transactions that never had a set; the current one may be that of a set that is gone.
void renumberSetsOfOurLost(CVDocument& other, const CVDocument& ours) {
    std::unordered_set<quint32> lost{0, ours.currentTransactionSet()};
    for (const auto& transaction : ours.transactions())
        lost.insert(transaction->transactionSetID());
    for (const auto& set : ours.transactionSets())
        lost.erase(set->uniqueID());
    for (const auto& set : other.transactionSets()) {
        const bool isOfBoth =
            ours.transactionSets().empty() && set->uniqueID() == 0 && set->transactionSetName() == CVNameOfInitialSet();
        if (lost.contains(set->uniqueID()) && !isOfBoth)
            giveID(*set, freeSetID(other, ours), other);
    }
}

/// Our set of what never had one, else the shown set. We have sets.
const CVTransactionSet& setOfNone(const CVDocument& ours) {
    const auto& sets = ours.transactionSets();
    const auto found = std::find_if(sets.begin(), sets.end(), [](const auto& set) { return set->uniqueID() == 0; });
    return found == sets.end() ? *sets[ours.popupIndexOfCurrentTransactionSet()] : **found;
}

/// The ID there of our set for what has none; that set is added where they have none of its name.
quint32 setOfNoneThere(CVDocument& other, const CVDocument& ours) {
    if (ours.transactionSets().empty())
        return 0;
    const CVTransactionSet& place = setOfNone(ours);
    for (const auto& set : other.transactionSets()) {
        if (set->transactionSetName() == place.transactionSetName())
            return set->uniqueID();
    }
    const auto set = std::make_shared<CVTransactionSet>(place);
    if (CVIDsOf(other.transactionSets()).contains(place.uniqueID()))
        set->setUniqueID(freeSetID(other, ours));
    set->setDocument(&other);
    other.transactionSets().push_back(set);
    return set->uniqueID();
}

void takePlans(CVDocument& other, const CVDocument& ours) {
    for (const auto& category : other.categories()) {
        const auto same = ours.doesCategoryNameExist(category->categoryName());
        if (same)
            CVSetNameAndPlan(*category, *same);
    }
}

} // namespace

void CVFitToBudget(CVDocument& other, const CVDocument& ours, CVPlansOfOther plans) {
    if (plans == CVPlansOfOther::Unknown)
        takePlans(other, ours);
    renumberSetsOfOurLost(other, ours);
    const auto sets = CVIDsOf(other.transactionSets());
    CVTransactions withoutSet;
    for (const auto& transaction : other.transactions()) {
        if (!sets.contains(transaction->transactionSetID()))
            withoutSet.push_back(transaction);
    }
    if (withoutSet.empty())
        return;
    const quint32 place = setOfNoneThere(other, ours);
    for (const auto& transaction : withoutSet)
        transaction->setTransactionSetID(place);
}
