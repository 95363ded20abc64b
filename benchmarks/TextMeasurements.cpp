#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVMeasurements.h"
#include "model/CVTransaction.h"
#include "storage/CVDocumentXML.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

/// Changes a transaction and changes it back, so that its text must be made anew.
void touch(CVTransaction& transaction) {
    const bool flag = transaction.userFlag();
    transaction.setUserFlag(!flag);
    transaction.setUserFlag(flag);
}

struct FreeBlock {
    void operator()(char* block) const { std::free(block); }
};

} // namespace

void CVMeasureText(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture fixture(transactions);
    const QByteArray text = fixture.text();
    const auto size = static_cast<std::size_t>(text.size());
    std::unique_ptr<char, FreeBlock> copy;
    QByteArray made;
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        copy = nullptr;
        made = QByteArray();
        // Gives freed memory back to the system, so that both functions write to fresh memory.
        malloc_trim(0);
        const auto& all = fixture.document().transactions();
        touch(*all[all.size() / 2]);
    };
    comparison.yardstick = [&] {
        copy.reset(static_cast<char*>(std::malloc(size)));
        std::memcpy(copy.get(), text.constData(), size);
        benchmark::DoNotOptimize(copy.get());
        benchmark::ClobberMemory();
    };
    comparison.subject = [&] { made = CVDocumentXMLRepresentation(fixture.document()).joined(); };
    comparison.run(state);
}
