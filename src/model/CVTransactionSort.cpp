#include "model/CVTransactionSort.h"

#include "model/CVCategoryLookup.h"
#include "model/CVTransaction.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// The keys below hold what one order needs of a transaction, side by side in memory. `before` says whether a stands
/// before b in ascending order; `isComplete` whether the key compares with all others as a strict weak order demands.

struct CategoryKey {
    quint32 id;
    int rank;

    [[nodiscard]] bool isComplete() const { return rank != CVCategoryLookup::kNoRank; }
    [[nodiscard]] static bool before(const CategoryKey& a, const CategoryKey& b) {
        return a.id != b.id && a.isComplete() && b.isComplete() && a.rank < b.rank;
    }
};

struct DateKey {
    qint64 day;
    CategoryKey category;

    [[nodiscard]] bool isComplete() const { return category.isComplete(); }
    [[nodiscard]] static bool before(const DateKey& a, const DateKey& b) {
        return a.day == b.day ? CategoryKey::before(a.category, b.category) : a.day < b.day;
    }
};

struct AmountKey {
    double amount;

    [[nodiscard]] bool isComplete() const { return !std::isnan(amount); }
    [[nodiscard]] static bool before(const AmountKey& a, const AmountKey& b) { return a.amount < b.amount; }
};

/// Refers to a text of the transaction.
struct TextKey {
    const QString* text;

    [[nodiscard]] bool isComplete() const { return !text->isNull(); }
    [[nodiscard]] static bool before(const TextKey& a, const TextKey& b) {
        return CVCompareTexts(*a.text, *b.text) < 0;
    }
};

/// Makes the category keys of one sort.
class CategoryKeys {
public:
    explicit CategoryKeys(const CVDocument::Categories& categories) {
        for (const auto& [id, rank] : CVCategoryLookup(categories).nameRanks())
            mRanks.insert(id, rank);
    }

    [[nodiscard]] CategoryKey of(const CVTransaction& transaction) const {
        return {transaction.categoryID(), mRanks.find(transaction.categoryID())};
    }

private:
    CVIDMap<int> mRanks{CVCategoryLookup::kNoRank};
};

template <typename Key>
struct Row {
    Key key;
    std::size_t index;
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
        rows.push_back({keyOf(*transaction), rows.size()});
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

template <typename Pointers>
void sortByPayee(Pointers& transactions, bool descending, const CVDocument::Categories& /*unused*/) {
    sortBy<TextKey>(transactions, descending,
                    [](const CVTransaction& transaction) -> TextKey { return {&transaction.payTo()}; });
}

template <typename Pointers>
void sortByFor(Pointers& transactions, bool descending, const CVDocument::Categories& /*unused*/) {
    sortBy<TextKey>(transactions, descending,
                    [](const CVTransaction& transaction) -> TextKey { return {&transaction.xfor()}; });
}

template <typename Pointers>
void sortByCategory(Pointers& transactions, bool descending, const CVDocument::Categories& categories) {
    sortBy<CategoryKey>(transactions, descending, [keys = CategoryKeys(categories)](const CVTransaction& transaction) {
        return keys.of(transaction);
    });
}

template <typename Pointers>
struct Column {
    QLatin1StringView key;
    void (*sort)(Pointers&, bool, const CVDocument::Categories&) = nullptr;
};

template <typename Pointers>
constexpr std::array<Column<Pointers>, 5> kColumns{{{QLatin1StringView("date"), sortByDate<Pointers>},
                                                    {QLatin1StringView("amount"), sortByAmount<Pointers>},
                                                    {QLatin1StringView("tofrom"), sortByPayee<Pointers>},
                                                    {QLatin1StringView("for"), sortByFor<Pointers>},
                                                    {QLatin1StringView("category"), sortByCategory<Pointers>}}};

template <typename Pointers>
void sort(Pointers& transactions, const CVTransactionSortContext& context, const CVDocument::Categories& categories) {
    for (const auto& column : kColumns<Pointers>) {
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
