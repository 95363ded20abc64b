#include "contents/CVDuplicates.h"

#include "model/CVTransaction.h"

#include <map>

namespace {

bool areEqualTexts(const QString& a, const QString& b) {
    return !a.isNull() && !b.isNull() && a == b;
}

bool areDuplicates(const CVTransaction& a, const CVTransaction& b) {
    return areEqualTexts(a.payTo(), b.payTo()) && areEqualTexts(a.xfor(), b.xfor()) && a.amount() == b.amount() &&
           a.categoryID() == b.categoryID() && a.effectiveDate() && a.effectiveDate() == b.effectiveDate();
}

} // namespace

CVTransactions CVFindDuplicates(const CVTransactions& transactions) {
    CVTransactions found;
    for (std::size_t later = transactions.size(); later-- > 1;) {
        if (areDuplicates(*transactions[later - 1], *transactions[later]))
            found.push_back(transactions[later]);
    }
    return found;
}

CVTransactions CVFindDuplicatesOfEachSet(const CVTransactions& transactions) {
    std::map<quint32, CVTransactions> sets;
    for (const auto& transaction : transactions)
        sets[transaction->transactionSetID()].push_back(transaction);
    CVTransactions found;
    for (const auto& [id, ofSet] : sets) {
        const CVTransactions duplicates = CVFindDuplicates(ofSet);
        found.insert(found.end(), duplicates.begin(), duplicates.end());
    }
    return found;
}
