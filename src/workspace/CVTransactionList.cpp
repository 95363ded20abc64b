#include "workspace/CVTransactionList.h"

#include "model/CVTransaction.h"
#include "model/CVTransactionSort.h"
#include "shared/base/CVDefaultsKeys.h"
#include "shared/base/QBMoney.h"
#include "shared/base/QBUserDefaults.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int kAscending = 0;
constexpr int kDescending = 1;

} // namespace

void CVTransactionList::collectTransactions() {
    mTransactionArray.clear();
    const auto& all = mDocument.transactions();
    std::copy_if(all.begin(), all.end(), std::back_inserter(mTransactionArray),
                 [set = mDocument.currentTransactionSet()](const auto& transaction) {
                     return transaction->transactionSetID() == set;
                 });
}

void CVTransactionList::getTransactions() {
    mDateSelectedTransactionArray = mTransactionArray;
}

void CVTransactionList::filterTransactions() {
    mDisplayTransactionArray = mDateSelectedTransactionArray;
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

void CVTransactionList::chooseSortColumn(const QString& identifier) {
    QBUserDefaults& defaults = mDocument.userDefaults();
    defaults.setInteger(CVDefaultsKeys::kTransactionSortOrder,
                        mTransactionSortContext.descending ? kAscending : kDescending);
    defaults.setString(CVDefaultsKeys::kTransactionSortColumn, identifier);
}

CVTransactionList::Totals CVTransactionList::totalsOf(const CVDocument::Transactions& transactions) {
    Totals totals{transactions.size()};
    for (const auto& transaction : transactions)
        totals.amount += transaction->amount();
    totals.amount = RoundDoubleToTwoPlaces(totals.amount);
    return totals;
}
