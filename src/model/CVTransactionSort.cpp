#include "model/CVTransactionSort.h"

#include "model/CVCategoryLookup.h"
#include "model/CVTextRanks.h"
#include "model/CVTransaction.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// The keys below hold what one order needs of a transaction, side by side in memory. `before` says whether a stands
/// before b in ascending order; `isComplete` whether the key compares with all others as a strict weak order demands.

/// The place of a name or a text among all of them; without one it equals every other.
struct RankKey {
    int rank;

    [[nodiscard]] bool isComplete() const { return rank != CVCategoryLookup::kNoRank; }
    [[nodiscard]] static bool before(const RankKey& a, const RankKey& b) {
        return a.rank < b.rank && a.isComplete() && b.isComplete();
    }
};
static_assert(CVTextRanks::kNoRank == CVCategoryLookup::kNoRank);

struct DateKey {
    qint64 day;
    RankKey category;

    [[nodiscard]] bool isComplete() const { return category.isComplete(); }
    [[nodiscard]] static bool before(const DateKey& a, const DateKey& b) {
        return a.day == b.day ? RankKey::before(a.category, b.category) : a.day < b.day;
    }
};

struct AmountKey {
    double amount;

    [[nodiscard]] bool isComplete() const { return !std::isnan(amount); }
    [[nodiscard]] static bool before(const AmountKey& a, const AmountKey& b) { return a.amount < b.amount; }
};

/// Makes the category keys of one sort.
class CategoryKeys {
public:
    explicit CategoryKeys(const CVDocument::Categories& categories) {
        for (const auto& [id, rank] : CVCategoryLookup(categories).nameRanks())
            mRanks.insert(id, rank);
    }

    [[nodiscard]] RankKey of(const CVTransaction& transaction) const { return {mRanks.find(transaction.categoryID())}; }

private:
    CVIDMap<int> mRanks{CVCategoryLookup::kNoRank};
};

template <typename Key>
struct Row {
    Key key;
    /// Four thousand million transactions do not fit into the memory of a machine.
    quint32 index;
};

/// Whether nothing is to be sorted, told without making a key for each at once. Where keys are missing, neighbours in
/// order do not mean that all are: then it is not so.
template <typename Key, typename Pointers, typename KeyOf>
bool isInOrder(const Pointers& transactions, bool descending, const KeyOf& keyOf) {
    std::optional<Key> last;
    for (const auto& transaction : transactions) {
        const Key key = keyOf(*transaction);
        if (!key.isComplete() || (last && (descending ? Key::before(*last, key) : Key::before(key, *last))))
            return false;
        last = key;
    }
    return true;
}

template <typename Key, typename Pointers, typename KeyOf>
void sortBy(Pointers& transactions, bool descending, KeyOf keyOf) {
    if (isInOrder<Key>(transactions, descending, keyOf))
        return;
    std::vector<Row<Key>> rows;
    rows.reserve(transactions.size());
    for (const auto& transaction : transactions)
        rows.push_back({keyOf(*transaction), static_cast<quint32>(rows.size())});
    const auto before = [descending](const Row<Key>& a, const Row<Key>& b) {
        return descending ? Key::before(b.key, a.key) : Key::before(a.key, b.key);
    };
    // A merge sort stays in bounds also where the order is no strict weak one.
    std::stable_sort(rows.begin(), rows.end(), before);
    Pointers sorted;
    sorted.reserve(transactions.size());
    for (const auto& row : rows)
        sorted.push_back(std::move(transactions[row.index]));
    transactions = std::move(sorted);
}

template <typename Pointers>
void sortByDate(Pointers& transactions, bool descending, const CVDocument::Categories& categories) {
    sortBy<DateKey>(transactions, descending,
                    [keys = CategoryKeys(categories)](const CVTransaction& transaction) -> DateKey {
                        return {transaction.dayKey(), keys.of(transaction)};
                    });
}

template <typename Pointers>
void sortByAmount(Pointers& transactions, bool descending, const CVDocument::Categories& /*unused*/) {
    sortBy<AmountKey>(transactions, descending,
                      [](const CVTransaction& transaction) -> AmountKey { return {transaction.amount()}; });
}

template <typename Pointers, typename TextOf>
void sortByText(Pointers& transactions, bool descending, TextOf textOf) {
    CVTextRanks ranks;
    for (const auto& transaction : transactions)
        ranks.add(textOf(*transaction));
    ranks.rank();
    sortBy<RankKey>(transactions, descending,
                    [&](const CVTransaction& transaction) -> RankKey { return {ranks.rankOf(textOf(transaction))}; });
}

template <typename Pointers>
void sortByPayee(Pointers& transactions, bool descending, const CVDocument::Categories& /*unused*/) {
    sortByText(transactions, descending,
               [](const CVTransaction& transaction) -> const QString& { return transaction.payTo(); });
}

template <typename Pointers>
void sortByFor(Pointers& transactions, bool descending, const CVDocument::Categories& /*unused*/) {
    sortByText(transactions, descending,
               [](const CVTransaction& transaction) -> const QString& { return transaction.xfor(); });
}

template <typename Pointers>
void sortByCategory(Pointers& transactions, bool descending, const CVDocument::Categories& categories) {
    sortBy<RankKey>(transactions, descending, [keys = CategoryKeys(categories)](const CVTransaction& transaction) {
        return keys.of(transaction);
    });
}

template <typename Pointers>
struct SortColumn {
    QLatin1StringView key;
    void (*sort)(Pointers&, bool, const CVDocument::Categories&) = nullptr;
};

template <typename Pointers>
constexpr std::array<SortColumn<Pointers>, 5> kSortColumns{{{QLatin1StringView("date"), sortByDate<Pointers>},
                                                            {QLatin1StringView("amount"), sortByAmount<Pointers>},
                                                            {QLatin1StringView("tofrom"), sortByPayee<Pointers>},
                                                            {QLatin1StringView("for"), sortByFor<Pointers>},
                                                            {QLatin1StringView("category"), sortByCategory<Pointers>}}};

template <typename Pointers>
void sort(Pointers& transactions, const CVTransactionSortContext& context, const CVDocument::Categories& categories) {
    for (const auto& column : kSortColumns<Pointers>) {
        if (context.key == column.key)
            column.sort(transactions, context.descending, categories);
    }
}

} // namespace

void CVSortTransactions(CVDocument::Transactions& transactions, const CVTransactionSortContext& context,
                        const CVDocument::Categories& categories) {
    sort(transactions, context, categories);
}

void CVSortTransactions(std::vector<CVTransaction*>& transactions, const CVTransactionSortContext& context,
                        const CVDocument::Categories& categories) {
    sort(transactions, context, categories);
}
