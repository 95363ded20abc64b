#include "CVPlainWalk.h"

#include "model/CVTransaction.h"

#include <benchmark/benchmark.h>

void CVPlainWalk(const CVTransactions& transactions) {
    double amounts = 0;
    quint64 categories = 0;
    qint64 days = 0;
    for (const auto& transaction : transactions) {
        amounts += transaction->amount();
        categories += transaction->categoryID();
        if (const auto& date = transaction->effectiveDate())
            days += date->dayOfMonth();
    }
    benchmark::DoNotOptimize(amounts);
    benchmark::DoNotOptimize(categories);
    benchmark::DoNotOptimize(days);
}
