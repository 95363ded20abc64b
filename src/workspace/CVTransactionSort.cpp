#include "workspace/CVTransactionSort.h"

#include "model/CVCategoryLookup.h"
#include "model/CVTransaction.h"

#include <algorithm>

namespace {

/// A transaction with the place of its category's name among all names, so that no name is looked up per comparison.
struct Row {
    std::shared_ptr<CVTransaction> transaction;
    int rank;
};

/// As `CVCompareTexts` of the two category names; equal for one and the same category.
int compareCategories(const Row& a, const Row& b) {
    if (a.transaction->categoryID() == b.transaction->categoryID() || a.rank == CVCategoryLookup::kNoRank ||
        b.rank == CVCategoryLookup::kNoRank)
        return 0;
    return a.rank - b.rank;
}

int compareByCategory(const Row& a, const Row& b, const CVTransactionSortContext& context) {
    if (context.key == QLatin1String("date")) {
        const auto byDay = a.transaction->effectiveDate() <=> b.transaction->effectiveDate();
        if (byDay != 0)
            return byDay < 0 ? -1 : 1;
    }
    return compareCategories(a, b);
}

template <typename Compare>
void sortRows(std::vector<Row>& rows, bool descending, Compare compare) {
    // The comparison is no strict weak order where texts are missing; a merge sort stays in bounds all the same.
    std::stable_sort(rows.begin(), rows.end(),
                     [&](const Row& a, const Row& b) { return descending ? compare(a, b) > 0 : compare(a, b) < 0; });
}

} // namespace

void CVSortTransactions(CVDocument::Transactions& transactions, const CVTransactionSortContext& context,
                        const CVDocument::Categories& categories) {
    const bool usesCategories = context.key == QLatin1String("date") || context.key == QLatin1String("category");
    const auto ranks = CVCategoryLookup(categories).nameRanks();
    std::vector<Row> rows;
    rows.reserve(transactions.size());
    for (auto& transaction : transactions) {
        const auto found = ranks.find(transaction->categoryID());
        const int rank = found == ranks.end() ? CVCategoryLookup::kNoRank : found->second;
        rows.push_back({std::move(transaction), rank});
    }
    if (usesCategories) {
        sortRows(rows, context.descending,
                 [&context](const Row& a, const Row& b) { return compareByCategory(a, b, context); });
    } else {
        const CVTransactionSortContext ascending{context.key};
        sortRows(rows, context.descending, [&ascending](const Row& a, const Row& b) {
            return CVCompareTransactions(*a.transaction, *b.transaction, ascending);
        });
    }
    for (std::size_t i = 0; i < rows.size(); ++i)
        transactions[i] = std::move(rows[i].transaction);
}
