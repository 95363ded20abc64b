#include "contents/CVTransactionList.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBMoney.h"
#include "base/QBUserDefaults.h"
#include "budget/CVRangePresets.h"
#include "contents/CVTransactionSearch.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"
#include "model/CVTransactionSort.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int kAscending = 0;
constexpr int kDescending = 1;
constexpr int kPresetAll = 0;

} // namespace

CVTransactionList::Totals CVTransactionList::Totals::of(const CVTransactions& transactions) {
    double amount = 0;
    for (const auto& transaction : transactions)
        amount += transaction->amount();
    return {transactions.size(), RoundDoubleToTwoPlaces(amount)};
}

CVTransactionList::CVTransactionList(CVDocument& document)
    : mDocument(document)
    , mRange{QBDate::date(), QBDate::date()} {}

void CVTransactionList::setShownSets(CVShownSets shownSets) {
    mShownSets = shownSets;
    if (shownSets == CVShownSets::Current)
        mOrderBySet.reset();
}

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
    if (mShownSets == CVShownSets::All) {
        mTransactions = mDocument.transactions();
        return;
    }
    const quint32 set = mDocument.shownTransactionSet();
    mTransactions.clear();
    mTransactions.reserve(mDocument.transactions().size());
    std::copy_if(mDocument.transactions().begin(), mDocument.transactions().end(), std::back_inserter(mTransactions),
                 [set](const auto& transaction) { return transaction->transactionSetID() == set; });
}

void CVTransactionList::getTransactions() {
    const bool undated = showsUndated();
    mDateSelectedTransactionArray.clear();
    mDateSelectedTransactionArray.reserve(mTransactions.size());
    std::copy_if(mTransactions.begin(), mTransactions.end(), std::back_inserter(mDateSelectedTransactionArray),
                 [this, undated](const auto& transaction) {
                     const auto date = transaction->effectiveDate();
                     return date ? mRange.contains(date) : undated;
                 });
}

void CVTransactionList::filterTransactions() {
    mDisplayTransactionArray =
        mSearchText.isEmpty()
            ? mDateSelectedTransactionArray
            : searchTransactionsWithString(mDateSelectedTransactionArray, mSearchType, mSearchText, mShownSets);
}

void CVTransactionList::doUserSort() {
    mTransactionSortContext = mOrderBySet ? *mOrderBySet : storedOrder();
    CVSortTransactions(mDisplayTransactionArray, mTransactionSortContext);
}

/// Without a stored choice this is the newest first, which is stored.
CVTransactionSortContext CVTransactionList::storedOrder() {
    QBUserDefaults& defaults = mDocument.userDefaults();
    auto column = defaults.stringForKey(CVDefaultsKeys::kTransactionSortColumn);
    if (!column) {
        column = QStringLiteral("date");
        defaults.setString(CVDefaultsKeys::kTransactionSortColumn, *column);
        defaults.setInteger(CVDefaultsKeys::kTransactionSortOrder, kDescending);
    }
    const bool descending = defaults.integerForKey(CVDefaultsKeys::kTransactionSortOrder) == kDescending;
    return {*column, descending};
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
    const bool descending = !mTransactionSortContext.descending;
    if (CVTransactionColumns::columnOfIdentifier(identifier) == CVTransactionColumns::Set) {
        mOrderBySet = {identifier, descending};
        return;
    }
    mOrderBySet.reset();
    QBUserDefaults& defaults = mDocument.userDefaults();
    defaults.setInteger(CVDefaultsKeys::kTransactionSortOrder, descending ? kDescending : kAscending);
    defaults.setString(CVDefaultsKeys::kTransactionSortColumn, identifier);
}

CVTransactionList::Totals CVTransactionList::totals() const {
    return Totals::of(mTransactions);
}

CVTransactionList::Totals CVTransactionList::displayTotals() const {
    return Totals::of(mDisplayTransactionArray);
}

/// "All" shows undated transactions too, although they are in no range, unless the user has narrowed the range.
bool CVTransactionList::showsUndated() const {
    const auto all = rangeOfPreset(kPresetAll, mRange.end, mDocument);
    return mTransactionPeriod == kPresetAll && all && mRange.start <= all->start && mRange.end >= all->end;
}
