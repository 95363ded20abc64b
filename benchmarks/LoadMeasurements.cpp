#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVMeasurements.h"
#include "CVParseBare.h"
#include "generator/CVRandom.h"
#include "model/CVTransaction.h"
#include "storage/CVDocumentFile.h"
#include "storage/CVDocumentXML.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <memory>
#include <utility>

namespace {

struct Loading {
    CVDetachedDocument document;
    CVDocumentFile file{{}, document.userDefaults()};

    bool load(const QByteArray& bytes) {
        if (!file.readFromData(*document, bytes, QLatin1String(CVDocumentFile::kDocumentType)))
            return false;
        document->sortTransactionsByDate();
        document->updateDates();
        return true;
    }
};

void measureLoad(benchmark::State& state, const QByteArray& bytes, std::size_t transactions) {
    std::unique_ptr<Loading> loading;
    bool complete = true;
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        loading = nullptr;
        // Frees the memory of an earlier document, which a program that has just started would not have.
        malloc_trim(0);
        loading = std::make_unique<Loading>();
    };
    comparison.yardstick = [&] { complete = CVParseBare(bytes) && complete; };
    comparison.subject = [&] {
        complete = loading->load(bytes) && loading->document->transactions().size() == transactions && complete;
    };
    comparison.run(state);
    if (!complete)
        state.SkipWithError("the budget was not read whole");
}

/// The text of the same budget with its transactions shuffled.
QByteArray shuffledText(CVDocument& document) {
    CVDetachedDocument shuffled;
    shuffled->setUniqueID(document.uniqueID());
    for (const auto& category : document.categories())
        shuffled->addCategory(category);
    for (const auto& set : document.transactionSets())
        shuffled->transactionSets().push_back(set);
    auto transactions = document.transactions();
    CVRandom random(2);
    for (std::size_t left = transactions.size(); left > 0; --left) {
        std::swap(transactions[random.below(left)], transactions[left - 1]);
        shuffled->addTransaction(transactions[left - 1]);
    }
    return CVDocumentXMLRepresentation(*shuffled).joined();
}

} // namespace

void CVMeasureLoadSorted(benchmark::State& state, std::size_t transactions) {
    const QByteArray bytes = CVBudgetFixture(transactions).text();
    measureLoad(state, bytes, transactions);
}

void CVMeasureLoadShuffled(benchmark::State& state, std::size_t transactions) {
    const QByteArray bytes = shuffledText(CVBudgetFixture(transactions).document());
    measureLoad(state, bytes, transactions);
}
