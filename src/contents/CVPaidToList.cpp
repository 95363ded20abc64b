#include "contents/CVPaidToList.h"

#include "model/CVTransaction.h"

#include <algorithm>

void CVPaidToList::update(const CVTransactions& transactions, int numberOfItems) {
    mExpenseCreatedTransactionArray.clear();
    mPayees.clear();
    const auto limit = static_cast<std::size_t>(std::max(numberOfItems, 0));
    for (const auto& transaction : transactions) {
        addToExpensePopUp(transaction, limit);
        if (mExpenseCreatedTransactionArray.size() >= limit)
            break;
    }
}

QStringList CVPaidToList::payees() const {
    QStringList payees;
    for (const auto& transaction : mExpenseCreatedTransactionArray)
        payees.append(transaction->payTo());
    return payees;
}

void CVPaidToList::addToExpensePopUp(const std::shared_ptr<CVTransaction>& transaction, std::size_t numberOfItems) {
    if (mPayees.contains(transaction->payTo()))
        return;
    mPayees.insert(transaction->payTo());
    mExpenseCreatedTransactionArray.insert(mExpenseCreatedTransactionArray.begin(), transaction);
    if (mExpenseCreatedTransactionArray.size() > numberOfItems) {
        mPayees.remove(mExpenseCreatedTransactionArray.back()->payTo());
        mExpenseCreatedTransactionArray.pop_back();
    }
}
