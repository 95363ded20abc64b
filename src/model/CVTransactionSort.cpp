#include "model/CVTransactionSort.h"

#include "model/CVCategoryLookup.h"
#include "model/CVFetchAhead.h"
#include "model/CVTextRanks.h"
#include "model/CVTransaction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <optional>

namespace {

/// How much work it may be to move single lines rather than to sort all of them anew.
constexpr std::size_t kMostMovesPerRow = 4;
/// What finding a place costs, in moves of one line by one place: the next one, and any other.
constexpr std::size_t kMovesPerStep = 3;
constexpr std::size_t kMovesPerSearch = 64;

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

/// Moves single lines forward, within a limit, and back again.
template <typename Pointers>
class Moves {
public:
    explicit Moves(Pointers& transactions)
        : mTransactions(transactions)
        , mLeft(kMostMovesPerRow * transactions.size()) {}

    /// False, with nothing moved, when the limit does not allow it; `cost` is that of having found the place.
    [[nodiscard]] bool move(std::size_t from, std::size_t to, std::size_t cost) {
        cost += from - to;
        if (cost > mLeft)
            return false;
        mLeft -= cost;
        mDone.push_back({from, to});
        std::rotate(at(to), at(from), at(from + 1));
        return true;
    }
    void undo() {
        for (auto move = mDone.rbegin(); move != mDone.rend(); ++move)
            std::rotate(at(move->to), at(move->to + 1), at(move->from + 1));
    }

private:
    struct Move {
        std::size_t from;
        std::size_t to;
    };

    [[nodiscard]] auto at(std::size_t index) { return mTransactions.begin() + static_cast<std::ptrdiff_t>(index); }

    Pointers& mTransactions;
    std::size_t mLeft;
    std::vector<Move> mDone;
};

/// Sorts by moving the few lines that stand in the wrong place: a new one, or one that was edited, is all that there is
/// to sort most of the time. Equal lines keep their order. False, with all as it was, when too many would have to move,
/// or where a key is missing: then neighbours in order do not mean that all lines are.
template <typename Key, typename Pointers, typename KeyOf, typename Before>
bool mendOrder(Pointers& transactions, const KeyOf& keyOf, const Before& before) {
    Moves moves(transactions);
    std::optional<Key> last;
    for (std::size_t i = 0; i < transactions.size(); ++i) {
        const Key key = keyOf(CVFetchAhead(transactions, i));
        bool isInPlace = key.isComplete();
        if (isInPlace && last && before(key, *last)) {
            std::size_t place = i - 1;
            std::size_t cost = kMovesPerStep;
            // Behind a line that belongs further down all others stand in the wrong place, each by one line.
            if (place > 0 && before(key, keyOf(*transactions[place - 1]))) {
                const auto end = transactions.begin() + static_cast<std::ptrdiff_t>(place);
                const auto found = std::upper_bound(transactions.begin(), end, key,
                                                    [&](const Key& a, const auto& b) { return before(a, keyOf(*b)); });
                place = static_cast<std::size_t>(found - transactions.begin());
                cost = kMovesPerSearch;
            }
            isInPlace = moves.move(i, place, cost);
        } else {
            last = key;
        }
        if (!isInPlace) {
            moves.undo();
            return false;
        }
    }
    return true;
}

/// True when no key is missing.
template <typename Key, typename Pointers, typename KeyOf>
bool sortBy(Pointers& transactions, bool descending, KeyOf keyOf) {
    const auto keyBefore = [descending](const Key& a, const Key& b) {
        return descending ? Key::before(b, a) : Key::before(a, b);
    };
    if (mendOrder<Key>(transactions, keyOf, keyBefore))
        return true;
    std::vector<Row<Key>> rows;
    rows.reserve(transactions.size());
    bool areComplete = true;
    for (const auto& transaction : transactions) {
        rows.push_back({keyOf(*transaction), static_cast<quint32>(rows.size())});
        areComplete = areComplete && rows.back().key.isComplete();
    }
    // A merge sort stays in bounds also where the order is no strict weak one.
    std::stable_sort(rows.begin(), rows.end(),
                     [&keyBefore](const Row<Key>& a, const Row<Key>& b) { return keyBefore(a.key, b.key); });
    Pointers sorted;
    sorted.reserve(transactions.size());
    for (const auto& row : rows)
        sorted.push_back(std::move(transactions[row.index]));
    transactions = std::move(sorted);
    return areComplete;
}

template <typename Pointers>
bool sortByDate(Pointers& transactions, bool descending, const CVDocument::Categories& categories) {
    return sortBy<DateKey>(transactions, descending,
                           [keys = CategoryKeys(categories)](const CVTransaction& transaction) -> DateKey {
                               return {transaction.dayKey(), keys.of(transaction)};
                           });
}

template <typename Pointers>
bool sortByAmount(Pointers& transactions, bool descending, const CVDocument::Categories& /*unused*/) {
    return sortBy<AmountKey>(transactions, descending,
                             [](const CVTransaction& transaction) -> AmountKey { return {transaction.amount()}; });
}

template <typename Pointers, typename TextOf>
bool sortByText(Pointers& transactions, bool descending, TextOf textOf) {
    CVTextRanks ranks;
    for (const auto& transaction : transactions)
        ranks.add(textOf(*transaction));
    ranks.rank();
    return sortBy<RankKey>(transactions, descending, [&](const CVTransaction& transaction) -> RankKey {
        return {ranks.rankOf(textOf(transaction))};
    });
}

template <typename Pointers>
bool sortByPayee(Pointers& transactions, bool descending, const CVDocument::Categories& /*unused*/) {
    return sortByText(transactions, descending,
                      [](const CVTransaction& transaction) -> const QString& { return transaction.payTo(); });
}

template <typename Pointers>
bool sortByFor(Pointers& transactions, bool descending, const CVDocument::Categories& /*unused*/) {
    return sortByText(transactions, descending,
                      [](const CVTransaction& transaction) -> const QString& { return transaction.xfor(); });
}

template <typename Pointers>
bool sortByCategory(Pointers& transactions, bool descending, const CVDocument::Categories& categories) {
    return sortBy<RankKey>(
        transactions, descending,
        [keys = CategoryKeys(categories)](const CVTransaction& transaction) { return keys.of(transaction); });
}

template <typename Pointers>
struct SortColumn {
    QLatin1StringView key;
    bool (*sort)(Pointers&, bool, const CVDocument::Categories&) = nullptr;
};

template <typename Pointers>
constexpr std::array<SortColumn<Pointers>, 5> kSortColumns{{{QLatin1StringView("date"), sortByDate<Pointers>},
                                                            {QLatin1StringView("amount"), sortByAmount<Pointers>},
                                                            {QLatin1StringView("tofrom"), sortByPayee<Pointers>},
                                                            {QLatin1StringView("for"), sortByFor<Pointers>},
                                                            {QLatin1StringView("category"), sortByCategory<Pointers>}}};

template <typename Pointers>
bool sort(Pointers& transactions, const CVTransactionSortContext& context, const CVDocument::Categories& categories) {
    for (const auto& column : kSortColumns<Pointers>) {
        if (context.key == column.key)
            return column.sort(transactions, context.descending, categories);
    }
    return true;
}

} // namespace

bool CVSortTransactions(CVDocument::Transactions& transactions, const CVTransactionSortContext& context,
                        const CVDocument::Categories& categories) {
    return sort(transactions, context, categories);
}

bool CVSortTransactions(std::vector<CVTransaction*>& transactions, const CVTransactionSortContext& context,
                        const CVDocument::Categories& categories) {
    return sort(transactions, context, categories);
}
