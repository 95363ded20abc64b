#include "workspace/CVTransactionList.h"

#include "budget/CVRangePresets.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSort.h"
#include "shared/base/CVDefaultsKeys.h"
#include "shared/base/QBMoney.h"
#include "shared/base/QBUserDefaults.h"
#include "workspace/CVTransactionSearch.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace {

constexpr int kAscending = 0;
constexpr int kDescending = 1;
constexpr int kPresetAll = 0;

/// Makes `target` those of `source` that `belongs` accepts, and returns what it lost. Most rebuilds follow the change
/// of one transaction: what stands at either end as before is left alone, as counting a reference anew costs more than
/// all the rest.
template <typename Belongs>
CVDocument::Transactions replaceChangedPart(CVDocument::Transactions& target, const CVDocument::Transactions& source,
                                            Belongs belongs) {
    auto front = source.begin();
    auto targetFront = target.begin();
    for (; front != source.end(); ++front) {
        if (!belongs(*front))
            continue;
        if (targetFront == target.end() || *targetFront != *front)
            break;
        ++targetFront;
    }
    auto back = source.end();
    auto targetBack = target.end();
    for (; back != front; --back) {
        const auto& last = *std::prev(back);
        if (!belongs(last))
            continue;
        if (targetBack == targetFront || *std::prev(targetBack) != last)
            break;
        --targetBack;
    }
    CVDocument::Transactions changed;
    std::copy_if(front, back, std::back_inserter(changed), belongs);
    CVDocument::Transactions lost;
    std::move(targetFront, targetBack, std::back_inserter(lost));
    const auto place = target.erase(targetFront, targetBack);
    target.insert(place, std::make_move_iterator(changed.begin()), std::make_move_iterator(changed.end()));
    return lost;
}

template <typename Transactions>
CVTransactionList::Totals totalsOf(const Transactions& transactions) {
    CVTransactionList::Totals totals{transactions.size()};
    for (const auto& transaction : transactions)
        totals.amount += transaction->amount();
    totals.amount = RoundDoubleToTwoPlaces(totals.amount);
    return totals;
}

} // namespace

CVTransactionList::CVTransactionList(CVDocument& document)
    : mDocument(document)
    , mRange{QBDate::date(), QBDate::date()} {}

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
    const auto belongs = [set = mDocument.shownTransactionSet()](const auto& transaction) {
        return transaction->transactionSetID() == set;
    };
    auto takenOut = replaceChangedPart(mTransactionArray, mDocument.transactions(), belongs);
    mTakenOut.insert(mTakenOut.end(), std::make_move_iterator(takenOut.begin()),
                     std::make_move_iterator(takenOut.end()));
}

void CVTransactionList::getTransactions() {
    mDateSelectedTransactionArray.clear();
    mDateSelectedTransactionArray.reserve(mTransactionArray.size());
    const bool undated = showsUndated();
    for (const auto& transaction : mTransactionArray) {
        const auto& date = transaction->effectiveDate();
        if (date ? mRange.contains(date) : undated)
            mDateSelectedTransactionArray.push_back(transaction.get());
    }
}

void CVTransactionList::filterTransactions() {
    if (mSearchText.isEmpty())
        mDisplayTransactionArray = mDateSelectedTransactionArray;
    else
        mDisplayTransactionArray =
            searchTransactionsWithString(mDateSelectedTransactionArray, mSearchType, mSearchText);
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
    mTransactionSortContext = {*column, descending};
    CVSortTransactions(mDisplayTransactionArray, mTransactionSortContext, mDocument.categories());
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
    return totalsOf(mTransactionArray);
}

CVTransactionList::Totals CVTransactionList::displayTotals() const {
    return totalsOf(mDisplayTransactionArray);
}

CVDocument::Transactions CVTransactionList::owned(const Rows& rows) const {
    const std::unordered_set<const CVTransaction*> wanted(rows.begin(), rows.end());
    CVDocument::Transactions found;
    std::copy_if(mTransactionArray.begin(), mTransactionArray.end(), std::back_inserter(found),
                 [&wanted](const auto& transaction) { return wanted.contains(transaction.get()); });
    return found;
}

CVDocument::Transactions CVTransactionList::sharedDisplayTransactions() const {
    const auto owner = std::make_shared<CVDocument::Transactions>(mTransactionArray);
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
