#include "model/CVTransactionDateSort.h"

#include "model/CVCategoryLookup.h"
#include "model/CVTransaction.h"

#include <algorithm>

namespace {

/// What the order needs of a transaction, side by side in memory; category names are compared by their rank.
struct SortKey {
    std::optional<QBDate> date;
    quint32 categoryID;
    int rank;
    std::size_t index;
};

/// Whether a stands before b: the later day first, within a day the later name. Missing names equal every other, so
/// this is no strict weak order; std::stable_sort stays in bounds all the same.
bool standsBefore(const SortKey& a, const SortKey& b) {
    if (a.date != b.date)
        return a.date > b.date;
    if (a.categoryID == b.categoryID || a.rank == CVCategoryLookup::kNoRank || b.rank == CVCategoryLookup::kNoRank)
        return false;
    return a.rank > b.rank;
}

std::vector<SortKey> keysOf(const CVDocument::Transactions& transactions, const CVDocument::Categories& categories) {
    const auto ranks = CVCategoryLookup(categories).nameRanks();
    std::vector<SortKey> keys;
    keys.reserve(transactions.size());
    for (const auto& transaction : transactions) {
        const auto found = ranks.find(transaction->categoryID());
        const int rank = found == ranks.end() ? CVCategoryLookup::kNoRank : found->second;
        keys.push_back({transaction->effectiveDate(), transaction->categoryID(), rank, keys.size()});
    }
    return keys;
}

} // namespace

void CVSortTransactionsByDate(CVDocument::Transactions& transactions, const CVDocument::Categories& categories) {
    auto keys = keysOf(transactions, categories);
    if (std::is_sorted(keys.begin(), keys.end(), standsBefore))
        return;
    std::stable_sort(keys.begin(), keys.end(), standsBefore);
    CVDocument::Transactions sorted;
    sorted.reserve(transactions.size());
    for (const SortKey& key : keys)
        sorted.push_back(std::move(transactions[key.index]));
    transactions = std::move(sorted);
}
