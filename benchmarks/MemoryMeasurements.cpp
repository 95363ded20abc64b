#include "CVBudgetFixture.h"
#include "CVMeasurements.h"
#include "CVMemoryProbe.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVWriteDocumentText.h"

#include <QFileInfo>

#include <benchmark/benchmark.h>

namespace {

/// The yardstick is the size of the file.
void measureMemory(benchmark::State& state, std::size_t transactions, double CVMemoryUse::*use) {
    const CVScratchFolder folder;
    const QString file = folder.file("budget.corvella");
    if (!CVWriteDocumentText(file, CVDocumentXMLRepresentation(CVBudgetFixture(transactions).document())).ok())
        state.SkipWithError("the budget could not be written");
    for ([[maybe_unused]] auto iteration : state) {
        const auto memory = CVProbeMemory(file, folder.file("copy.corvella"));
        if (!memory) {
            state.SkipWithError("the memory could not be measured");
            return;
        }
        const auto size = static_cast<double>(QFileInfo(file).size());
        state.SetIterationTime(0);
        state.counters["yardstick"] = size;
        state.counters["subject"] = (*memory).*use;
        state.counters["ratio"] = (*memory).*use / size;
    }
}

} // namespace

void CVMeasureSteadyMemory(benchmark::State& state, std::size_t transactions) {
    measureMemory(state, transactions, &CVMemoryUse::loaded);
}

void CVMeasurePeakMemory(benchmark::State& state, std::size_t transactions) {
    measureMemory(state, transactions, &CVMemoryUse::loadingPeak);
}

void CVMeasureMemoryAfterSave(benchmark::State& state, std::size_t transactions) {
    measureMemory(state, transactions, &CVMemoryUse::saved);
}
