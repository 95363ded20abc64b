#include "model/CVCompareTransactions.h"

#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"

namespace {

using Comparison = int (*)(const CVTransaction&, const CVTransaction&);

template <typename Value>
int compareValues(const Value& a, const Value& b) {
    if (a > b)
        return 1;
    return a < b ? -1 : 0;
}

int compareCategories(const CVTransaction& a, const CVTransaction& b) {
    return a.categoryID() == b.categoryID() ? 0 : CVCompareTexts(a.categoryName(), b.categoryName());
}

int compareDates(const CVTransaction& a, const CVTransaction& b) {
    const int byDay = compareValues(a.effectiveDate(), b.effectiveDate());
    return byDay != 0 ? byDay : compareCategories(a, b);
}

int compareAmounts(const CVTransaction& a, const CVTransaction& b) {
    return compareValues(a.amount(), b.amount());
}

int comparePayees(const CVTransaction& a, const CVTransaction& b) {
    return CVCompareTexts(a.payTo(), b.payTo());
}

int compareFors(const CVTransaction& a, const CVTransaction& b) {
    return CVCompareTexts(a.xfor(), b.xfor());
}

Comparison comparisonOf(int column) {
    switch (column) {
    case CVTransactionColumns::Date:
        return compareDates;
    case CVTransactionColumns::Amount:
        return compareAmounts;
    case CVTransactionColumns::ToFrom:
        return comparePayees;
    case CVTransactionColumns::For:
        return compareFors;
    case CVTransactionColumns::Category:
        return compareCategories;
    default:
        return nullptr;
    }
}

} // namespace

int CVCompareTransactions(const CVTransaction& a, const CVTransaction& b, const CVTransactionSortContext& context) {
    const Comparison compare = comparisonOf(CVTransactionColumns::columnOfIdentifier(context.key));
    if (!compare)
        return 0;
    return context.descending ? -compare(a, b) : compare(a, b);
}

int CVCompareTexts(const QString& a, const QString& b) {
    if (a.isNull() || b.isNull())
        return 0;
    return compareValues(a.compare(b, Qt::CaseInsensitive), 0);
}
