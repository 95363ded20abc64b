#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVMeasurements.h"
#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "contents/CVTransactionList.h"
#include "model/CVCategory.h"
#include "model/CVTransaction.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

/// What one order needs of a transaction, in a plain record.
template <typename Key>
struct Plain {
    Key key;
    std::size_t index;
};

bool before(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) < 0;
}

template <typename Key>
bool before(const Key& a, const Key& b) {
    return a < b;
}

/// Sorting the whole list by a column, from the order of the document, against std::stable_sort of plain records that
/// hold the same keys.
template <typename KeyOf>
void measureSort(benchmark::State& state, std::size_t transactions, const char* column, KeyOf keyOf) {
    CVBudgetFixture fixture(transactions);
    CVDocument& document = fixture.document();
    document.userDefaults().setString(CVDefaultsKeys::kTransactionSortColumn, QLatin1String(column));
    CVTransactionList list(document);
    list.collectTransactions();
    list.setRangeFromPreset(QBDate::date());
    list.getTransactions();

    using Key = decltype(keyOf(*document.transactions().front()));
    std::vector<Plain<Key>> unsorted;
    for (const auto& transaction : (list.filterTransactions(), list.displayTransactions()))
        unsorted.push_back({keyOf(*transaction), unsorted.size()});
    std::vector<Plain<Key>> records;
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        records = unsorted;
        list.filterTransactions();
    };
    comparison.yardstick = [&] {
        std::stable_sort(records.begin(), records.end(),
                         [](const auto& a, const auto& b) { return before(a.key, b.key); });
    };
    comparison.subject = [&] { list.doUserSort(); };
    comparison.run(state);
}

} // namespace

void CVMeasureSortByDate(benchmark::State& state, std::size_t transactions) {
    measureSort(state, transactions, "date", [](const CVTransaction& transaction) {
        return std::pair(transaction.effectiveDate(), transaction.categoryID());
    });
}

void CVMeasureSortByAmount(benchmark::State& state, std::size_t transactions) {
    measureSort(state, transactions, "amount", [](const CVTransaction& transaction) { return transaction.amount(); });
}

void CVMeasureSortByPayee(benchmark::State& state, std::size_t transactions) {
    measureSort(state, transactions, "tofrom", [](const CVTransaction& transaction) { return transaction.payTo(); });
}

void CVMeasureSortByFor(benchmark::State& state, std::size_t transactions) {
    measureSort(state, transactions, "for", [](const CVTransaction& transaction) { return transaction.xfor(); });
}

void CVMeasureSortByCategory(benchmark::State& state, std::size_t transactions) {
    measureSort(state, transactions, "category",
                [](const CVTransaction& transaction) { return transaction.categoryID(); });
}
