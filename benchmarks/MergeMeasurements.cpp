#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVMeasurements.h"
#include "differences/CVBudgetDifferences.h"
#include "differences/CVMergeBudgets.h"
#include "model/CVTransaction.h"

#include <benchmark/benchmark.h>

namespace {

constexpr std::size_t kEveryChanged = 10;

/// Changes some of the amounts, beginning with that of the transaction at `first`.
void changeSome(CVDocument& document, std::size_t first, double by) {
    const CVTransactions& transactions = document.transactions();
    for (std::size_t place = first; place < transactions.size(); place += kEveryChanged)
        transactions[place]->setAmount(transactions[place]->amount() + by);
}

} // namespace

/// Two states in which one transaction of ten was changed, half of them on both sides, against comparing the two.
void CVMeasureMerge(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture common(transactions);
    CVBudgetFixture ours(transactions);
    CVBudgetFixture theirs(transactions);
    changeSome(ours.document(), 0, 1);
    changeSome(theirs.document(), kEveryChanged / 2, 2);
    changeSome(theirs.document(), 0, 3);
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [] {};
    comparison.yardstick = [&] {
        benchmark::DoNotOptimize(
            CVBudgetDifferences::between(ours.document(), theirs.document(), &common.document()).isEmpty());
    };
    comparison.subject = [&] {
        benchmark::DoNotOptimize(
            CVMergeBudgets(&common.document(), ours.document(), theirs.document()).transactions.size());
    };
    comparison.run(state);
}
