#include "differences/CVMergeBudgets.h"

#include "differences/CVBudgetDifferences.h"
#include "differences/CVMatchRecords.h"
#include "differences/CVMergedCount.h"
#include "differences/CVShowFirstSet.h"
#include "model/CVCategory.h"
#include "model/CVDetachedDocument.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <utility>

namespace {

struct Counts {
    int common = 0;
    int ours = 0;
    int theirs = 0;
    /// How many of the merged budget are still to be placed.
    int left = 0;
};

struct ThreeBudgets {
    /// Null where it is unknown.
    const CVDocument* common;
    const CVDocument& ours;
    const CVDocument& theirs;
    /// Whether theirs was made of the common state, with its IDs.
    bool isMadeOfCommon;

    /// The common state where it tells that a record of that side was renamed. A budget that was begun anew has other
    /// records with the same IDs.
    [[nodiscard]] const CVDocument* descentOfOurs() const {
        return common && CVBudgetDifferences::isLaterState(*common, ours) ? common : nullptr;
    }
    [[nodiscard]] const CVDocument* descentOfTheirs() const {
        return common && (isMadeOfCommon || CVBudgetDifferences::isLaterState(*common, theirs)) ? common : nullptr;
    }
};

/// The sets or categories of three states, each ID once.
template <typename Record, typename RecordsOf, typename Match>
CVMergedRecords<Record> mergedRecords(const ThreeBudgets& budgets, RecordsOf recordsOf, Match match,
                                      const std::unordered_set<quint32>& refused, CVFreeIDs& ids) {
    using Records = typename CVMergedRecords<Record>::Records;
    const typename CVMergedRecords<Record>::Sides sides{
        budgets.common ? CVFirstOfEachID(recordsOf(*budgets.common)) : Records(),
        CVFirstOfEachID(recordsOf(budgets.ours)), CVFirstOfEachID(recordsOf(budgets.theirs))};
    const CVDocument* const ofUs = budgets.descentOfOurs();
    const CVDocument* const ofThem = budgets.descentOfTheirs();
    return {sides,
            {match(sides.theirs, sides.ours, ofUs ? ofThem : nullptr), match(sides.common, sides.ours, ofUs),
             match(sides.common, sides.theirs, ofThem)},
            refused,
            ids};
}

const CVTransactionSets& setsOf(const CVDocument& document) {
    return document.transactionSets();
}

const CVCategories& categoriesOf(const CVDocument& document) {
    return document.categories();
}

/// The IDs of categories that transactions name and that no category has.
std::unordered_set<quint32> namedWithoutCategory(const CVDocument& document) {
    const auto known = CVIDsOf(document.categories());
    std::unordered_set<quint32> ids;
    for (const auto& transaction : document.transactions()) {
        if (!known.contains(transaction->categoryID()))
            ids.insert(transaction->categoryID());
    }
    return ids;
}

CVFreeIDs freeIDs(const ThreeBudgets& budgets) {
    CVFreeIDs ids{std::max(budgets.ours.uniqueID(), budgets.theirs.uniqueID()), {}};
    for (const CVDocument* const side : {budgets.common, &budgets.ours, &budgets.theirs}) {
        if (!side)
            continue;
        ids.taken.merge(CVIDsOf(side->transactionSets()));
        ids.taken.merge(CVIDsOf(side->categories()));
        for (const auto& transaction : side->transactions()) {
            ids.taken.insert(transaction->transactionSetID());
            ids.taken.insert(transaction->categoryID());
        }
    }
    return ids;
}

class Merging final {
public:
    explicit Merging(const ThreeBudgets& budgets)
        : mBudgets(budgets)
        , mIDs(freeIDs(budgets))
        , mNoCategory(mIDs.issue())
        , mSets(mergedRecords<CVTransactionSet>(budgets, setsOf, CVMatchSets, {}, mIDs))
        , mCategories(mergedRecords<CVCategory>(budgets, categoriesOf, CVMatchCategories,
                                                namedWithoutCategory(budgets.ours), mIDs)) {}

    [[nodiscard]] CVMergedBudget merge();

private:
    /// Contents name sets and categories by their IDs in the merged budget.
    [[nodiscard]] CVTransactionContent ofOurs(const CVTransaction& transaction) const;
    [[nodiscard]] CVTransactionContent ofTheirs(const CVTransaction& transaction) const;
    [[nodiscard]] CVTransactionContent ofCommon(const CVTransaction& transaction) const;
    void count();
    void findLinesChangedTwice();
    void placeTransactions();
    void place(const CVTransaction& transaction, const CVTransactionContent& content);
    void placeRecords();
    void setLastID();
    [[nodiscard]] CVDocument& budget() const { return **mMerged.budget; }

    ThreeBudgets mBudgets;
    CVFreeIDs mIDs;
    /// In contents, what stands for all IDs that no category has.
    quint32 mNoCategory;
    CVMergedRecords<CVTransactionSet> mSets;
    CVMergedRecords<CVCategory> mCategories;
    QHash<CVTransactionContent, Counts> mCounts;
    /// What the line is that each side has changed to, ours and theirs.
    std::vector<std::pair<CVTransactionContent, CVTransactionContent>> mChangedTwice;
    /// The first transaction in the merged budget of each content that is asked for.
    QHash<CVTransactionContent, std::shared_ptr<CVTransaction>> mFirst;
    /// The sets and categories that transactions of the merged budget refer to.
    std::unordered_set<quint32> mUsedSets;
    std::unordered_set<quint32> mUsedCategories;
    /// Transactions of the merged budget.
    CVTransactions mWithoutCategory;
    CVMergedBudget mMerged{std::make_shared<CVDetachedDocument>(), {}, {}, {}};
};

CVMergedBudget Merging::merge() {
    count();
    findLinesChangedTwice();
    placeTransactions();
    placeRecords();
    setLastID();
    budget().sortCategories();
    budget().sortTransactionsByDate();
    budget().updateDates();
    for (const auto& [here, there] : mChangedTwice)
        if (mFirst[here] && mFirst[there])
            mMerged.transactions.push_back({mFirst[here], mFirst[there]});
    mMerged.sets = mSets.changedTwice();
    mMerged.categories = mCategories.changedTwice();
    return std::move(mMerged);
}

/// An ID that no set has means the set with that ID, if there is one on another side.
CVTransactionContent Merging::ofOurs(const CVTransaction& transaction) const {
    const quint32 set = transaction.transactionSetID();
    return {transaction, mSets.ofOurs(set).value_or(set),
            mCategories.ofOurs(transaction.categoryID()).value_or(mNoCategory)};
}

CVTransactionContent Merging::ofTheirs(const CVTransaction& transaction) const {
    const quint32 set = transaction.transactionSetID();
    return {transaction, mSets.ofTheirs(set).value_or(set),
            mCategories.ofTheirs(transaction.categoryID()).value_or(mNoCategory)};
}

CVTransactionContent Merging::ofCommon(const CVTransaction& transaction) const {
    const quint32 set = transaction.transactionSetID();
    return {transaction, mSets.ofCommon(set).value_or(set),
            mCategories.ofCommon(transaction.categoryID()).value_or(mNoCategory)};
}

void Merging::count() {
    mCounts.reserve(
        static_cast<qsizetype>(std::max(mBudgets.ours.transactions().size(), mBudgets.theirs.transactions().size())));
    for (const auto& transaction : mBudgets.ours.transactions())
        ++mCounts[ofOurs(*transaction)].ours;
    for (const auto& transaction : mBudgets.theirs.transactions())
        ++mCounts[ofTheirs(*transaction)].theirs;
    if (mBudgets.common) {
        for (const auto& transaction : mBudgets.common->transactions())
            ++mCounts[ofCommon(*transaction)].common;
    }
    for (Counts& counts : mCounts) {
        if (!mBudgets.common)
            counts.common = std::min(counts.ours, counts.theirs);
        counts.left = CVMergedCount(counts.common, counts.ours, counts.theirs);
    }
}

/// Ours first, as far as they stay, then what is theirs.
void Merging::placeTransactions() {
    for (const auto& transaction : mBudgets.ours.transactions())
        place(*transaction, ofOurs(*transaction));
    for (const auto& transaction : mBudgets.theirs.transactions())
        place(*transaction, ofTheirs(*transaction));
}

void Merging::place(const CVTransaction& transaction, const CVTransactionContent& content) {
    Counts& counts = mCounts[content];
    if (counts.left == 0)
        return;
    --counts.left;
    const auto copy = std::make_shared<CVTransaction>(transaction);
    copy->setTransactionSetID(*content.set);
    mUsedSets.insert(*content.set);
    if (content.category == mNoCategory) {
        mWithoutCategory.push_back(copy);
    } else {
        copy->setCategoryID(*content.category);
        mUsedCategories.insert(*content.category);
    }
    copy->setDocument(&budget());
    budget().addTransaction(copy);
    if (const auto first = mFirst.find(content); first != mFirst.end() && !*first)
        *first = copy;
}

void Merging::placeRecords() {
    if (!mBudgets.ours.transactionSets().empty())
        mUsedSets.insert(
            mBudgets.ours.transactionSets()[mBudgets.ours.popupIndexOfCurrentTransactionSet()]->uniqueID());
    budget().transactionSets() = mSets.merged(mUsedSets);
    for (const auto& set : budget().transactionSets())
        set->setDocument(&budget());
    budget().setCurrentTransactionSet(mBudgets.ours.currentTransactionSet());
    if (mBudgets.ours.transactionSets().empty() && !budget().transactionSets().empty())
        CVShowFirstSet(budget(), budget().transactionSets().front()->uniqueID());
    for (const auto& category : mCategories.merged(mUsedCategories)) {
        category->setDocument(&budget());
        budget().appendCategory(category);
    }
    const auto known = CVIDsOf(budget().categories());
    for (const auto& transaction : mWithoutCategory) {
        if (known.contains(transaction->categoryID()))
            transaction->setCategoryID(mNoCategory);
    }
}

void Merging::setLastID() {
    quint32 last = std::max(mBudgets.ours.uniqueID(), mBudgets.theirs.uniqueID());
    for (const auto& set : budget().transactionSets())
        last = std::max(last, set->uniqueID());
    for (const auto& category : budget().categories())
        last = std::max(last, category->uniqueID());
    for (const auto& transaction : budget().transactions())
        last = std::max({last, transaction->transactionSetID(), transaction->categoryID()});
    budget().setUniqueID(last);
}

/// A line of the common state that each side has made another one of.
void Merging::findLinesChangedTwice() {
    if (!mBudgets.common)
        return;
    const CVBudgetDifferences byUs = CVBudgetDifferences::since(*mBudgets.common, mBudgets.ours);
    const CVBudgetDifferences byThem = CVBudgetDifferences::since(*mBudgets.common, mBudgets.theirs);
    std::unordered_map<const CVTransaction*, const CVTransaction*> ours;
    for (const auto& [before, after] : byUs.transactions) {
        if (before && after)
            ours.emplace(before.get(), after.get());
    }
    for (const auto& [before, after] : byThem.transactions) {
        const auto change = ours.find(before.get());
        if (!before || !after || change == ours.end())
            continue;
        const CVTransactionContent here = ofOurs(*change->second);
        const CVTransactionContent there = ofTheirs(*after);
        if (here == there)
            continue;
        mChangedTwice.emplace_back(here, there);
        mFirst.insert(here, nullptr);
        mFirst.insert(there, nullptr);
    }
}

} // namespace

CVMergedBudget CVMergeBudgets(const CVDocument* common, const CVDocument& ours, const CVDocument& theirs) {
    return Merging({common, ours, theirs, false}).merge();
}

CVMergedBudget CVMergeRest(const CVDocument& oursThen, const CVDocument& ours, const CVDocument& merged) {
    return Merging({&oursThen, ours, merged, true}).merge();
}
