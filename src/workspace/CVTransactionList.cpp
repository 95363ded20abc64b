#include "workspace/CVTransactionList.h"

#include "budget/CVRangePresets.h"
#include "model/CVFetchAhead.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSort.h"
#include "shared/base/CVDefaultsKeys.h"
#include "shared/base/QBUserDefaults.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace {

constexpr int kAscending = 0;
constexpr int kDescending = 1;
constexpr int kPresetAll = 0;

} // namespace

CVTransactionList::CVTransactionList(CVDocument& document)
    : mDocument(document)
    , mRange{QBDate::date(), QBDate::date()}
    , mSetTransactions(document) {}

void CVTransactionList::setRangeFromPreset(const QBDate& today) {
    if (const auto range = rangeOfPreset(mTransactionPeriod, today, mDocument))
        mRange = *range;
}

void CVTransactionList::updateDisplayDatesWithTransaction(const CVTransaction& transaction) {
    const auto date = transaction.effectiveDate();
    if (mTransactionPeriod != kPresetAll || !date)
        return;
    if (date->comesBefore(mRange.start))
        mRange.start = *date;
    if (date->comesAfter(mRange.end))
        mRange.end = *date;
}

void CVTransactionList::collectTransactions() {
    mSetTransactions.collect();
    mRangeHoldsAll = false;
}

void CVTransactionList::getTransactions() {
    mSearched.reset();
    mDateSelectedTransactionArray.clear();
    mDateSelectedTransactionArray.reserve(transactions().size());
    const bool undated = showsUndated();
    if (mSetTransactions.lieIn(mRange) && (undated || !mSetTransactions.haveUndated())) {
        for (const auto& transaction : transactions())
            mDateSelectedTransactionArray.push_back(transaction.get());
    } else {
        for (std::size_t i = 0; i < transactions().size(); ++i) {
            const auto date = CVFetchAhead(transactions(), i).effectiveDate();
            if (date ? mRange.contains(date) : undated)
                mDateSelectedTransactionArray.push_back(transactions()[i].get());
        }
    }
    mRangeHoldsAll = mDateSelectedTransactionArray.size() == transactions().size();
}

void CVTransactionList::filterTransactions() {
    const bool narrows = searchNarrows();
    const Rows& source = narrows ? mDisplayTransactionArray : mDateSelectedTransactionArray;
    mDisplayTransactionArray =
        mQuery.text.isEmpty() ? source : searchTransactionsWithString(source, mQuery.kind, mQuery.text);
    if (!narrows)
        mSortedAt.reset();
    mSearched = Search{mDocument.changeCount(), mQuery};
}

void CVTransactionList::doUserSort() {
    QBUserDefaults& defaults = mDocument.userDefaults();
    auto column = defaults.stringForKey(CVDefaultsKeys::kTransactionSortColumn);
    if (!column) {
        column = QStringLiteral("date");
        defaults.setString(CVDefaultsKeys::kTransactionSortColumn, *column);
        defaults.setInteger(CVDefaultsKeys::kTransactionSortOrder, kDescending);
    }
    const bool descending = defaults.integerForKey(CVDefaultsKeys::kTransactionSortOrder) == kDescending;
    const CVTransactionSortContext before = std::exchange(mTransactionSortContext, {*column, descending});
    // What a search leaves of sorted lines is sorted, where each line has what it is sorted by.
    if (mSortedAt == mDocument.changeCount() && before == mTransactionSortContext)
        return;
    mSortedAt.reset();
    if (CVSortTransactions(mDisplayTransactionArray, mTransactionSortContext, mDocument.categories()))
        mSortedAt = mDocument.changeCount();
}

void CVTransactionList::refilter() {
    filterTransactions();
    doUserSort();
}

void CVTransactionList::rebuild() {
    getTransactions();
    refilter();
}

void CVTransactionList::chooseSortColumn(const QString& identifier) {
    QBUserDefaults& defaults = mDocument.userDefaults();
    defaults.setInteger(CVDefaultsKeys::kTransactionSortOrder,
                        mTransactionSortContext.descending ? kAscending : kDescending);
    defaults.setString(CVDefaultsKeys::kTransactionSortColumn, identifier);
}

CVTransactionList::Totals CVTransactionList::totals() const {
    return {transactions().size(), mSetTransactions.total()};
}

CVTransactionList::Totals CVTransactionList::displayTotals() const {
    const bool showsAll = mRangeHoldsAll && mSearched && mSearched->query.text.isEmpty();
    if (const auto total = showsAll ? mSetTransactions.totalInAnyOrder() : std::nullopt)
        return {mDisplayTransactionArray.size(), *total};
    return {mDisplayTransactionArray.size(), CVSumRoundedOnce(mDisplayTransactionArray)};
}

CVDocument::Transactions CVTransactionList::owned(const Rows& rows) const {
    const std::unordered_set<const CVTransaction*> wanted(rows.begin(), rows.end());
    CVDocument::Transactions found;
    std::copy_if(transactions().begin(), transactions().end(), std::back_inserter(found),
                 [&wanted](const auto& transaction) { return wanted.contains(transaction.get()); });
    return found;
}

CVDocument::Transactions CVTransactionList::sharedDisplayTransactions() const {
    const auto owner = std::make_shared<CVDocument::Transactions>(transactions());
    CVDocument::Transactions shared;
    shared.reserve(mDisplayTransactionArray.size());
    for (CVTransaction* const transaction : mDisplayTransactionArray)
        shared.emplace_back(owner, transaction);
    return shared;
}

/// A transaction without a date lies in no range, but "All" is to show every line that there is.
bool CVTransactionList::showsUndated() const {
    const auto all = rangeOfPreset(kPresetAll, mRange.end, mDocument);
    return mTransactionPeriod == kPresetAll && all && mRange.start <= all->start && mRange.end >= all->end;
}

/// Whether all that the search can find is listed already, in order, as it was made from the search before by typing
/// on.
bool CVTransactionList::searchNarrows() const {
    const quint64 now = mDocument.changeCount();
    return !mQuery.text.isEmpty() && mSearched && mSearched->changeCount == now && mSortedAt == now &&
           CVSearchNarrows(mSearched->query, mQuery);
}
