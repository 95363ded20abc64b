#include "budget/CVTransactionRange.h"

#include "model/CVCategory.h"
#include "model/CVTransaction.h"

#include <algorithm>
#include <iterator>

namespace {

template <typename Qualifies>
CVDocument::Transactions selected(const CVDocument::Transactions& transactions, const CVDayRange& range,
                                  Qualifies qualifies) {
    CVDocument::Transactions found;
    std::copy_if(transactions.begin(), transactions.end(), std::back_inserter(found), [&](const auto& transaction) {
        return range.contains(transaction->effectiveDate()) && qualifies(transaction->categoryID());
    });
    return found;
}

} // namespace

CVDocument::Transactions transactionsForDateRange(const CVDocument::Transactions& transactions, const CVDayRange& range,
                                                  const CVCategory* category) {
    const quint32 wanted = category ? category->uniqueID() : 0;
    return selected(transactions, range, [wanted](quint32 id) { return wanted == 0 || id == wanted; });
}

CVDocument::Transactions transactionsOfCell(const CVDocument::Transactions& transactions, const CVDayRange& range,
                                            const CVCategory& category) {
    return selected(transactions, range, [&category](quint32 id) { return id == category.uniqueID(); });
}
