#include "differences/CVTakenRecords.h"

#include "differences/CVBudgetDifferences.h"
#include "differences/CVShowFirstSet.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <unordered_set>

namespace {

template <typename Records>
auto recordWithID(const Records& records, quint32 id) {
    const auto found =
        std::find_if(records.begin(), records.end(), [id](const auto& record) { return record->uniqueID() == id; });
    return found == records.end() ? nullptr : *found;
}

} // namespace

quint32 CVTakenRecords::setFor(quint32 idThere) {
    if (const auto known = mSets.find(idThere); known != mSets.end())
        return known->second;
    const auto set = recordWithID(mOther.transactionSets(), idThere);
    const auto counterpart = mDifferences.setMatching.counterpartOf(idThere);
    if (set && !counterpart)
        make(*set);
    else
        mSets.emplace(idThere, set ? *counterpart : idThere);
    return mSets[idThere];
}

bool CVTakenRecords::hasTransactionsWithoutSet() const {
    const auto& present = mPresent.transactions();
    return std::any_of(present.begin(), present.end(),
                       [](const auto& entry) { return entry->transactionSetID() == 0; });
}

quint32 CVTakenRecords::categoryFor(quint32 idThere) {
    if (const auto known = mCategories.find(idThere); known != mCategories.end())
        return known->second;
    if (const auto category = recordWithID(mOther.categories(), idThere)) {
        if (const auto present = presentCategory(*category))
            mCategories.emplace(idThere, present->uniqueID());
        else
            make(*category);
    } else {
        mCategories.emplace(idThere, noCategoryFor(idThere));
    }
    return mCategories[idThere];
}

/// By the name where a renamed one is another, because after clearing, an ID may mean another category. Of several of
/// that name, the counterpart.
std::shared_ptr<CVCategory> CVTakenRecords::presentCategory(const CVCategory& there) const {
    const auto counterpart = mDifferences.categoryMatching.counterpartOf(there.uniqueID());
    auto same = counterpart ? mPresent.getCategoryByUniqueID(*counterpart) : nullptr;
    if (mRenamed == CVRenamedCategory::IsTheSame || (same && same->categoryName() == there.categoryName()))
        return same;
    return mPresent.doesCategoryNameExist(there.categoryName());
}

quint32 CVTakenRecords::noCategoryFor(quint32 idThere) {
    if (!mPresent.getCategoryByUniqueID(idThere))
        return idThere;
    if (!mNoCategory)
        mNoCategory = newID(&CVDocument::getUniqueCategoryID, &CVTransaction::categoryID);
    return *mNoCategory;
}

void CVTakenRecords::make(const CVTransactionSet& there) {
    if (mSets.contains(there.uniqueID()))
        return;
    CVTransactionSets& sets = mPresent.transactionSets();
    // The set of the transactions that have none comes first.
    const auto ofNone = recordWithID(mOther.transactionSets(), 0);
    if (sets.empty() && ofNone && there.uniqueID() != 0 && hasTransactionsWithoutSet())
        make(*ofNone);
    if (sets.empty())
        CVShowFirstSet(mPresent, there.uniqueID());
    const auto set = std::make_shared<CVTransactionSet>();
    set->setTransactionSetName(there.transactionSetName());
    set->setUniqueID(recordWithID(sets, there.uniqueID())
                         ? newID(&CVDocument::getUniqueTransactionSetID, &CVTransaction::transactionSetID)
                         : there.uniqueID());
    set->setDocument(&mPresent);
    sets.push_back(set);
    mHasMadeSets = true;
    mSets[there.uniqueID()] = set->uniqueID();
}

void CVTakenRecords::make(const CVCategory& there) {
    const auto category = std::make_shared<CVCategory>();
    CVSetNameAndPlan(*category, there);
    category->setUniqueID(mPresent.getCategoryByUniqueID(there.uniqueID())
                              ? newID(&CVDocument::getUniqueCategoryID, &CVTransaction::categoryID)
                              : there.uniqueID());
    category->setDocument(&mPresent);
    mPresent.appendCategory(category);
    mCategories[there.uniqueID()] = category->uniqueID();
}

quint32 CVTakenRecords::newID(quint32 (CVDocument::*issue)(), quint32 (CVTransaction::*idOf)() const) const {
    std::unordered_set<quint32> taken;
    for (const auto& transaction : mOther.transactions())
        taken.insert(((*transaction).*idOf)());
    quint32 id = (mPresent.*issue)();
    while (taken.contains(id))
        id = (mPresent.*issue)();
    return id;
}

void CVSetNameAndPlan(CVCategory& category, const CVCategory& from) {
    // The category announces its name through the document, which is told later.
    CVDocument* const document = category.document();
    category.setDocument(nullptr);
    category.setCategoryName(from.categoryName());
    category.setExpenseFrequency(from.expenseFrequency());
    category.setExpenseTarget(from.expenseTarget());
    category.setDocument(document);
}
