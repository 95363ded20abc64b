#include "differences/CVBringBack.h"

#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "differences/CVBudgetDifferences.h"
#include "differences/CVTransactionContent.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <QCoreApplication>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace {

struct BringBackText {
    Q_DECLARE_TR_FUNCTIONS(CVBringBack)
};

/// Undoes differences between a version and the present budget, and tells nobody before `finish`.
class BringingBack final {
public:
    BringingBack(CVDocument& present, const CVDocument& version)
        : mPresent(present)
        , mVersion(version)
        , mDifferences(CVBudgetDifferences::since(version, present)) {}

    void undo(const std::vector<CVRecordDifference<CVTransactionSet>>& chosen);
    void undo(const std::vector<CVRecordDifference<CVCategory>>& chosen);
    void undo(const std::vector<CVTransactionDifference>& chosen);
    /// Announces and saves what was undone, and returns how much that is.
    [[nodiscard]] int finish();

private:
    void restore(const CVTransaction& before, CVTransaction* after);
    void noteNamesakes(const CVRecordDifference<CVCategory>& renamed);
    void joinNamesakes();
    [[nodiscard]] quint32 setFor(quint32 idBefore);
    [[nodiscard]] quint32 categoryFor(quint32 idBefore);
    [[nodiscard]] quint32 noCategoryFor(quint32 idBefore);
    quint32 make(const CVTransactionSet& before);
    quint32 make(const CVCategory& before);
    void makeFirstSet(quint32 id);
    /// An ID that is issued and that no record of the version may return under.
    [[nodiscard]] quint32 newID(quint32 (CVDocument::*issue)(), quint32 (CVTransaction::*idOf)() const) const;

    CVDocument& mPresent;
    const CVDocument& mVersion;
    /// As they are now, which may be long after the user saw those to choose from.
    CVBudgetDifferences mDifferences;
    /// The present IDs of the version's sets and categories, as far as they were asked for.
    std::unordered_map<quint32, quint32> mSets;
    std::unordered_map<quint32, quint32> mCategories;
    /// Categories that go, each with the ID of the one that their transactions join.
    std::vector<std::pair<std::shared_ptr<CVCategory>, quint32>> mNamesakes;
    /// An ID that no category has; absent until one is needed.
    std::optional<quint32> mNoCategory;
    bool mHasChangedSets = false;
    int mCount = 0;
};

/// The difference of that record that there is at present; null when there is none any more.
template <typename Difference>
const Difference* differenceOf(const std::vector<Difference>& differences, const Difference& chosen) {
    const auto found = std::find_if(differences.begin(), differences.end(), [&chosen](const Difference& difference) {
        return difference.before && difference.before == chosen.before;
    });
    return found == differences.end() ? nullptr : &*found;
}

template <typename Records>
auto recordWithID(const Records& records, quint32 id) {
    const auto found =
        std::find_if(records.begin(), records.end(), [id](const auto& record) { return record->uniqueID() == id; });
    return found == records.end() ? nullptr : *found;
}

void BringingBack::undo(const std::vector<CVRecordDifference<CVTransactionSet>>& chosen) {
    for (const auto& choice : chosen) {
        const auto* const difference = differenceOf(mDifferences.sets, choice);
        if (!difference)
            continue;
        if (difference->after)
            difference->after->setTransactionSetName(difference->before->transactionSetName());
        else
            mSets[difference->before->uniqueID()] = make(*difference->before);
        mHasChangedSets = true;
        ++mCount;
    }
}

void setNameAndPlan(CVCategory& category, const CVCategory& from) {
    // The category announces its name through the document, which is told later.
    CVDocument* const document = category.document();
    category.setDocument(nullptr);
    category.setCategoryName(from.categoryName());
    category.setExpenseFrequency(from.expenseFrequency());
    category.setExpenseTarget(from.expenseTarget());
    category.setDocument(document);
}

void BringingBack::undo(const std::vector<CVRecordDifference<CVCategory>>& chosen) {
    for (const auto& choice : chosen) {
        const auto* const difference = differenceOf(mDifferences.categories, choice);
        if (!difference)
            continue;
        if (difference->after) {
            noteNamesakes(*difference);
            setNameAndPlan(*difference->after, *difference->before);
        } else {
            mCategories[difference->before->uniqueID()] = make(*difference->before);
        }
        ++mCount;
    }
}

/// A category that was added since under the former name of a renamed one would stand there twice.
void BringingBack::noteNamesakes(const CVRecordDifference<CVCategory>& renamed) {
    const QString& name = renamed.before->categoryName();
    if (renamed.after->categoryName() == name)
        return;
    for (const auto& [before, added] : mDifferences.categories) {
        if (!before && added->categoryName() == name)
            mNamesakes.emplace_back(added, renamed.after->uniqueID());
    }
}

/// The transactions of the namesakes join the category that has its name again.
void BringingBack::joinNamesakes() {
    for (const auto& [namesake, id] : mNamesakes) {
        for (const auto& transaction : mPresent.transactions()) {
            if (transaction->categoryID() == namesake->uniqueID())
                transaction->setCategoryID(id);
        }
        mPresent.dropCategory(namesake);
    }
}

void BringingBack::undo(const std::vector<CVTransactionDifference>& chosen) {
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

/// Gives `after` what the version says; null stands for a transaction that is gone.
void BringingBack::restore(const CVTransaction& before, CVTransaction* after) {
    // Copied as a whole, because setters pass over small differences.
    CVTransaction restored(before);
    restored.setTransactionSetID(setFor(before.transactionSetID()));
    restored.setCategoryID(categoryFor(before.categoryID()));
    restored.setDocument(&mPresent);
    if (after)
        *after = restored;
    else
        mPresent.addTransaction(std::make_shared<CVTransaction>(restored));
}

/// A transaction without a set keeps its ID.
quint32 BringingBack::setFor(quint32 idBefore) {
    const auto [entry, isNew] = mSets.emplace(idBefore, idBefore);
    if (!isNew)
        return entry->second;
    if (const auto set = recordWithID(mVersion.transactionSets(), idBefore)) {
        const auto counterpart = mDifferences.setMatching.counterpartOf(idBefore);
        entry->second = counterpart ? *counterpart : make(*set);
    }
    return entry->second;
}

/// By its name, because after clearing, an ID may mean another category. Of several of that name, the counterpart.
quint32 BringingBack::categoryFor(quint32 idBefore) {
    const auto [entry, isNew] = mCategories.emplace(idBefore, idBefore);
    if (!isNew)
        return entry->second;
    if (const auto category = recordWithID(mVersion.categories(), idBefore)) {
        const auto counterpart = mDifferences.categoryMatching.counterpartOf(idBefore);
        const auto same = counterpart ? mPresent.getCategoryByUniqueID(*counterpart) : nullptr;
        const auto named = same && same->categoryName() == category->categoryName()
                               ? same
                               : mPresent.doesCategoryNameExist(category->categoryName());
        entry->second = named ? named->uniqueID() : make(*category);
    } else {
        entry->second = noCategoryFor(idBefore);
    }
    return entry->second;
}

quint32 BringingBack::noCategoryFor(quint32 idBefore) {
    if (!mPresent.getCategoryByUniqueID(idBefore))
        return idBefore;
    if (!mNoCategory)
        mNoCategory = newID(&CVDocument::getUniqueCategoryID, &CVTransaction::categoryID);
    return *mNoCategory;
}

quint32 BringingBack::make(const CVTransactionSet& before) {
    CVTransactionSets& sets = mPresent.transactionSets();
    if (sets.empty())
        makeFirstSet(before.uniqueID());
    const auto set = std::make_shared<CVTransactionSet>();
    set->setTransactionSetName(before.transactionSetName());
    set->setUniqueID(recordWithID(sets, before.uniqueID())
                         ? newID(&CVDocument::getUniqueTransactionSetID, &CVTransaction::transactionSetID)
                         : before.uniqueID());
    set->setDocument(&mPresent);
    sets.push_back(set);
    mHasChangedSets = true;
    return set->uniqueID();
}

/// Before there are sets, the transactions without a set are shown, and they stay so in a set that has their ID.
/// Without any, the set with that ID is shown from now on.
void BringingBack::makeFirstSet(quint32 id) {
    const auto& shown = mPresent.transactions();
    if (std::none_of(shown.begin(), shown.end(), [](const auto& entry) { return entry->transactionSetID() == 0; }))
        return mPresent.setCurrentTransactionSet(id);
    const auto initial = std::make_shared<CVTransactionSet>();
    initial->setTransactionSetName(BringBackText::tr("Initial Transaction Set"));
    initial->setDocument(&mPresent);
    mPresent.transactionSets().push_back(initial);
    mPresent.setCurrentTransactionSet(initial->uniqueID());
}

quint32 BringingBack::make(const CVCategory& before) {
    const auto category = std::make_shared<CVCategory>();
    setNameAndPlan(*category, before);
    category->setUniqueID(mPresent.getCategoryByUniqueID(before.uniqueID())
                              ? newID(&CVDocument::getUniqueCategoryID, &CVTransaction::categoryID)
                              : before.uniqueID());
    category->setDocument(&mPresent);
    mPresent.appendCategory(category);
    return category->uniqueID();
}

quint32 BringingBack::newID(quint32 (CVDocument::*issue)(), quint32 (CVTransaction::*idOf)() const) const {
    std::unordered_set<quint32> taken;
    for (const auto& transaction : mVersion.transactions())
        taken.insert(((*transaction).*idOf)());
    quint32 id = (mPresent.*issue)();
    while (taken.contains(id))
        id = (mPresent.*issue)();
    return id;
}

int BringingBack::finish() {
    if (mCount == 0)
        return 0;
    joinNamesakes();
    mPresent.finishChanges();
    if (mHasChangedSets)
        mPresent.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet));
    mPresent.workbookSave();
    return mCount;
}

} // namespace

int CVBringBack(CVDocument& present, const CVDocument& version, const CVBudgetDifferences& chosen) {
    BringingBack bringingBack(present, version);
    bringingBack.undo(chosen.sets);
    bringingBack.undo(chosen.categories);
    bringingBack.undo(chosen.transactions);
    return bringingBack.finish();
}
