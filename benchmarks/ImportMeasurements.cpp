#include "CVBudgetFixture.h"
#include "CVMeasurements.h"
#include "CVStopwatch.h"
#include "importing/CVImportIntoBudget.h"
#include "importing/CVPrepareImport.h"
#include "importing/CVTakeBackImport.h"
#include "model/CVTransaction.h"

#include <benchmark/benchmark.h>

namespace {

constexpr std::size_t kLinesOfStatement = 10'000;
constexpr double kMillisecondsOfSecond = 1000;
/// One line of so many has a payee that nobody knows, and one of so many is recorded already.
constexpr std::size_t kEveryUnknown = 10;
constexpr std::size_t kEveryRecorded = 3;
constexpr std::size_t kLetters = 26;

/// The newest transactions, as a bank would write them.
std::vector<CVStatementLine> statementOf(const CVDocument& document) {
    std::vector<CVStatementLine> lines;
    for (std::size_t at = 0; at < kLinesOfStatement; ++at) {
        const CVTransaction& transaction = *document.transactions()[at];
        CVStatementLine line;
        line.number = static_cast<int>(at) + 2;
        line.day = transaction.effectiveDate();
        line.hundredths = -qRound64(transaction.amount() * 100) - (at % kEveryRecorded == 0 ? 0 : 1);
        line.payee = at % kEveryUnknown == 0
                         ? QStringLiteral("UNKNOWN %1X SHOP").arg(QChar(static_cast<char16_t>(u'A' + at % kLetters)))
                         : transaction.payTo().toUpper() + QStringLiteral(" 0815 SPRINGFIELD");
        lines.push_back(line);
    }
    return lines;
}

template <typename Measured>
void measureMilliseconds(benchmark::State& state, const Measured& measured) {
    std::vector<double> seconds;
    for ([[maybe_unused]] auto iteration : state) {
        seconds.push_back(measured());
        state.SetIterationTime(seconds.back());
    }
    state.counters["measured"] = CVMedian(std::move(seconds)) * kMillisecondsOfSecond;
}

} // namespace

void CVMeasureMemoryOfCategories(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture budget(transactions);
    measureMilliseconds(state, [&budget] {
        return CVSecondsOf(CVClock::Thread, [&budget] {
            const CVCategoryMemory memory(budget.document());
            benchmark::DoNotOptimize(memory.of(QStringLiteral("GREEN VALLEY MARKET 0815 SPRINGFIELD")).sure);
        });
    });
}

void CVMeasureImport(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture budget(transactions);
    CVDocument& document = budget.document();
    const auto statement = statementOf(document);
    const CVImportTargets targets{.set = document.transactions().front()->transactionSetID(),
                                  .income = CVImportTargets::Income::SameSet};
    measureMilliseconds(state, [&] {
        CVImported imported;
        const double seconds = CVSecondsOf(CVClock::Thread, [&] {
            auto lines = CVPrepareImport(document, {}).lines(statement, targets);
            for (CVImportLine& line : lines) {
                if (line.category.isEmpty())
                    line.category = QStringLiteral("Other");
            }
            imported = CVImportIntoBudget(document, lines, targets);
        });
        if (CVTakeBackImport(document, imported, CVEditedTransactions::Go).empty())
            state.SkipWithError("nothing was imported");
        return seconds;
    });
}
