#include "model/CVCompareTransactions.h"

#include "model/CVTransaction.h"

#include <array>

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

struct Column {
    QLatin1StringView key;
    Comparison compare = nullptr;
};

constexpr std::array<Column, 5> kColumns{{{QLatin1StringView("date"), compareDates},
                                          {QLatin1StringView("amount"), compareAmounts},
                                          {QLatin1StringView("tofrom"), comparePayees},
                                          {QLatin1StringView("for"), compareFors},
                                          {QLatin1StringView("category"), compareCategories}}};

} // namespace

int CVCompareTransactions(const CVTransaction& a, const CVTransaction& b, const CVTransactionSortContext& context) {
    for (const Column& column : kColumns) {
        if (context.key == column.key)
            return context.descending ? -column.compare(a, b) : column.compare(a, b);
    }
    return 0;
}

int CVCompareTexts(const QString& a, const QString& b) {
    if (a.isNull() || b.isNull())
        return 0;
    return compareValues(a.compare(b, Qt::CaseInsensitive), 0);
}
