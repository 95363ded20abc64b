#include "model/CVCompareTransactions.h"

#include "model/CVTransactionColumns.h"

namespace {

template <typename Value>
int compareValues(const Value& a, const Value& b) {
    if (a > b)
        return 1;
    return a < b ? -1 : 0;
}

int compareKeys(const CVTransactionOrderKey& a, const CVTransactionOrderKey& b) {
    const int byNumber = compareValues(a.number, b.number);
    return byNumber != 0 ? byNumber : CVCompareTexts(a.text, b.text);
}

} // namespace

int CVCompareTransactions(const CVTransaction& a, const CVTransaction& b, const CVTransactionSortContext& context) {
    const int column = CVTransactionColumns::columnOfIdentifier(context.key);
    if (column < 0)
        return 0;
    const int order = compareKeys(CVTransactionColumns::orderKey(a, column), CVTransactionColumns::orderKey(b, column));
    return context.descending ? -order : order;
}

int CVCompareTexts(const QString& a, const QString& b) {
    if (a.isNull() || b.isNull())
        return 0;
    return compareValues(a.compare(b, Qt::CaseInsensitive), 0);
}
