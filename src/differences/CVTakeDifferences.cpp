#include "differences/CVTakeDifferences.h"

#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "differences/CVTransactionContent.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>

namespace {

/// The difference of that record that there is at present; null when there is none any more.
template <typename Difference>
const Difference* differenceOf(const std::vector<Difference>& differences, const Difference& chosen) {
    const auto found = std::find_if(differences.begin(), differences.end(), [&chosen](const Difference& difference) {
        return difference.before && difference.before == chosen.before;
    });
    return found == differences.end() ? nullptr : &*found;
}

/// What only the present budget has of the chosen records, which are those of a copy.
template <typename Record>
std::vector<std::shared_ptr<Record>> onlyPresent(const std::vector<CVRecordDifference<Record>>& differences,
                                                 const std::vector<CVRecordDifference<Record>>& chosen) {
    std::vector<std::shared_ptr<Record>> records;
    for (const auto& choice : chosen) {
        const auto found = std::find_if(differences.begin(), differences.end(), [&choice](const auto& difference) {
            return !difference.before && !choice.before && difference.after->uniqueID() == choice.after->uniqueID();
        });
        if (found != differences.end())
            records.push_back(found->after);
    }
    return records;
}

} // namespace

CVTakeDifferences::CVTakeDifferences(CVDocument& present, const CVDocument& other, CVBudgetDifferences differences,
                                     CVRenamedCategory renamed)
    : mPresent(present)
    , mDifferences(std::move(differences))
    , mRenamed(renamed)
    , mRecords(present, other, mDifferences, renamed) {}

void CVTakeDifferences::take(const CVBudgetDifferences& chosen) {
    take(chosen.sets);
    take(chosen.categories);
    take(chosen.transactions);
}

void CVTakeDifferences::take(const std::vector<CVRecordDifference<CVTransactionSet>>& chosen) {
    for (const auto& choice : chosen) {
        const auto* const difference = differenceOf(mDifferences.sets, choice);
        if (!difference)
            continue;
        if (difference->after)
            difference->after->setTransactionSetName(difference->before->transactionSetName());
        else
            mRecords.make(*difference->before);
        mHasChangedSets = true;
        ++mCount;
    }
}

void CVTakeDifferences::take(const std::vector<CVRecordDifference<CVCategory>>& chosen) {
    for (const auto& choice : chosen) {
        const auto* const difference = differenceOf(mDifferences.categories, choice);
        if (!difference)
            continue;
        if (difference->after) {
            if (mRenamed == CVRenamedCategory::IsAnother)
                noteNamesakes(*difference);
            CVSetNameAndPlan(*difference->after, *difference->before);
        } else {
            mRecords.make(*difference->before);
        }
        ++mCount;
    }
}

/// A category that was added since under the former name of a renamed one would stand there twice.
void CVTakeDifferences::noteNamesakes(const CVRecordDifference<CVCategory>& renamed) {
    const QString& name = renamed.before->categoryName();
    if (renamed.after->categoryName() == name)
        return;
    for (const auto& [before, added] : mDifferences.categories) {
        if (!before && added->categoryName() == name)
            mNamesakes.emplace_back(added, renamed.after->uniqueID());
    }
}

/// The transactions of the namesakes join the category that has its name again.
void CVTakeDifferences::joinNamesakes() {
    for (const auto& [namesake, id] : mNamesakes) {
        for (const auto& transaction : mPresent.transactions()) {
            if (transaction->categoryID() == namesake->uniqueID())
                transaction->setCategoryID(id);
        }
        mPresent.dropCategory(namesake);
    }
}

void CVTakeDifferences::take(const std::vector<CVTransactionDifference>& chosen) {
    std::unordered_map<const CVTransaction*, CVTransaction*> present;
    for (const CVTransactionDifference& difference : mDifferences.transactions)
        present.emplace(difference.before.get(), difference.after.get());
    for (const CVTransactionDifference& choice : chosen) {
        const auto found = present.find(choice.before.get());
        if (!choice.before || found == present.end())
            continue;
        // A transaction that is only now taken for the changed one is one that the user has not agreed to lose.
        CVTransaction* const after = choice.after ? found->second : nullptr;
        if (after && !(CVTransactionContent(*after) == CVTransactionContent(*choice.after)))
            continue;
        restore(*choice.before, after);
        ++mCount;
    }
}

/// Gives `after` what the other state says; null stands for a transaction that is not there.
void CVTakeDifferences::restore(const CVTransaction& before, CVTransaction* after) {
    // Copied as a whole, because setters pass over small differences.
    CVTransaction restored(before);
    restored.setTransactionSetID(mRecords.setFor(before.transactionSetID()));
    restored.setCategoryID(mRecords.categoryFor(before.categoryID()));
    restored.setDocument(&mPresent);
    if (after)
        *after = restored;
    else
        mPresent.addTransaction(std::make_shared<CVTransaction>(restored));
}

void CVTakeDifferences::removeRecords(const CVBudgetDifferences& chosen) {
    remove(chosen.sets);
    remove(chosen.categories);
}

/// A chosen transaction is one of a copy, so it is known by what it says.
void CVTakeDifferences::removeTransactions(const CVBudgetDifferences& chosen) {
    QHash<CVTransactionContent, CVTransactions> present;
    for (const auto& [before, after] : mDifferences.transactions) {
        if (!before)
            present[CVTransactionContent(*after)].push_back(after);
    }
    CVTransactions removed;
    for (const auto& [before, after] : chosen.transactions) {
        if (before)
            continue;
        const auto found = present.find(CVTransactionContent(*after));
        if (found == present.end() || found->empty())
            continue;
        removed.push_back(found->back());
        found->pop_back();
    }
    mPresent.dropTransactions(removed);
    mCount += static_cast<int>(removed.size());
}

void CVTakeDifferences::remove(const std::vector<CVRecordDifference<CVTransactionSet>>& chosen) {
    const auto used = idsInUse(&CVTransaction::transactionSetID);
    CVTransactionSets& sets = mPresent.transactionSets();
    for (const auto& set : onlyPresent(mDifferences.sets, chosen)) {
        if (used.contains(set->uniqueID()) || set == sets[mPresent.popupIndexOfCurrentTransactionSet()])
            continue;
        std::erase(sets, set);
        set->setDocument(nullptr);
        mHasChangedSets = true;
        ++mCount;
    }
}

void CVTakeDifferences::remove(const std::vector<CVRecordDifference<CVCategory>>& chosen) {
    const auto used = idsInUse(&CVTransaction::categoryID);
    for (const auto& category : onlyPresent(mDifferences.categories, chosen)) {
        if (!used.contains(category->uniqueID()) && mPresent.dropCategory(category))
            ++mCount;
    }
}

std::unordered_set<quint32> CVTakeDifferences::idsInUse(quint32 (CVTransaction::*idOf)() const) const {
    std::unordered_set<quint32> ids;
    for (const auto& transaction : mPresent.transactions())
        ids.insert(((*transaction).*idOf)());
    return ids;
}

int CVTakeDifferences::finish() {
    if (mCount == 0)
        return 0;
    joinNamesakes();
    mPresent.finishChanges();
    if (mHasChangedSets || mRecords.hasMadeSets())
        mPresent.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet));
    mPresent.workbookSave();
    return mCount;
}
