#include "budget/CVTransactionRange.h"

#include "model/CVCategory.h"
#include "model/CVTransaction.h"

#include <algorithm>
#include <iterator>

namespace {

template <typename Qualifies>
CVTransactions selected(const CVTransactions& transactions, const CVDayRange& range, Qualifies qualifies) {
    CVTransactions found;
    std::copy_if(transactions.begin(), transactions.end(), std::back_inserter(found), [&](const auto& transaction) {
        return range.contains(transaction->effectiveDate()) && qualifies(transaction->categoryID());
    });
    return found;
}

} // namespace

CVTransactions transactionsForDateRange(const CVTransactions& transactions, const CVDayRange& range,
                                        const CVCategory* category) {
    const quint32 wanted = category ? category->uniqueID() : 0;
    return selected(transactions, range, [wanted](quint32 id) { return wanted == 0 || id == wanted; });
}

CVTransactions transactionsOfCell(const CVTransactions& transactions, const CVDayRange& range,
                                  const CVCategory& category) {
    return selected(transactions, range, [&category](quint32 id) { return id == category.uniqueID(); });
}
