#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVMeasurements.h"
#include "CVWalkPlainly.h"
#include "generator/CVRandom.h"
#include "model/CVTransaction.h"

#include <benchmark/benchmark.h>

namespace {

void measureRemoveList(benchmark::State& state, std::size_t transactions, std::size_t count) {
    CVBudgetFixture fixture(transactions);
    CVDocument& document = fixture.document();
    CVTransactions selected;
    for (std::size_t i = 0; i < count; ++i)
        selected.push_back(document.transactions()[i * transactions / count]);
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        if (document.transactions().size() == transactions)
            return;
        for (const auto& transaction : selected)
            document.addTransaction(transaction);
        document.sortTransactionsByDate();
    };
    comparison.yardstick = [&] {
        CVWalkPlainly(document.transactions());
        CVWalkPlainly(selected);
    };
    comparison.subject = [&] { document.removeTransactions(selected); };
    comparison.run(state);
}

} // namespace

void CVMeasureRecordOne(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture fixture(transactions);
    CVDocument& document = fixture.document();
    CVRandom random(3);
    std::shared_ptr<CVTransaction> fresh;
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        if (document.transactions().size() > transactions)
            document.removeTransaction(fresh);
        const auto& model = *document.transactions()[random.below(transactions)];
        fresh = std::make_shared<CVTransaction>();
        fresh->setEffectiveDate(model.effectiveDate());
        fresh->setCategoryID(model.categoryID());
    };
    comparison.yardstick = [&] { CVWalkPlainly(document.transactions()); };
    comparison.subject = [&] { document.insertTransaction(fresh); };
    comparison.run(state);
}

void CVMeasureRemoveOne(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture fixture(transactions);
    CVDocument& document = fixture.document();
    CVRandom random(4);
    std::shared_ptr<CVTransaction> victim;
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        if (document.transactions().size() < transactions)
            document.insertTransaction(victim);
        victim = document.transactions()[random.below(transactions)];
    };
    comparison.yardstick = [&] { CVWalkPlainly(document.transactions()); };
    comparison.subject = [&] { document.removeTransaction(victim); };
    comparison.run(state);
}

void CVMeasureRemoveListOfOne(benchmark::State& state, std::size_t transactions) {
    measureRemoveList(state, transactions, 1);
}

void CVMeasureRemoveThousand(benchmark::State& state, std::size_t transactions) {
    measureRemoveList(state, transactions, 1'000);
}

void CVMeasureRemoveHalf(benchmark::State& state, std::size_t transactions) {
    measureRemoveList(state, transactions, transactions / 2);
}
