#include "merging/CVMergeReader.h"

#include "comparing/CVReadBudget.h"
#include "importing/budgets/CVImportFromBudget.h"
#include "importing/budgets/CVOtherBudget.h"

#include <new>
#include <utility>

namespace {

/// What `merge` makes of our copy of the budget. `findings` name the file.
template <typename Merge>
CVMergeFindings comparison(CVMergeFindings findings, CVDocumentReader& reader, const CVDocumentText& present,
                           Merge merge) {
    const auto ours = CVReadBudget::of(reader, present).budget;
    findings.problem = ours ? QString() : CVReadBudget::tooLittleMemory();
    if (!ours)
        return findings;
    try {
        CVMergedBudget merged = merge(**ours);
        CVBudgetDifferences differences = CVBudgetDifferences::between(**merged.budget, **ours, &**ours);
        findings.comparison =
            std::make_shared<CVMergeComparison>(CVMergeComparison{ours, std::move(merged), std::move(differences)});
    } catch (const std::bad_alloc&) {
        findings.problem = CVReadBudget::tooLittleMemory();
    }
    return findings;
}

} // namespace

void CVMergeReader::read(CVDocumentText present, CVMergeSource source) {
    start([present = std::move(present), source = std::move(source)](CVDocumentReader& reader) -> CVMergeFindings {
        const auto [theirs, problem] = CVReadBudget::of(reader, source.path);
        if (!theirs)
            return {source.path, problem};
        const auto common = source.common ? CVReadBudget::of(reader, *source.common).budget : nullptr;
        return comparison({source.path}, reader, present, [&common, &budget = **theirs](const CVDocument& ours) {
            return CVMergeBudgets(common ? &**common : nullptr, ours, budget);
        });
    });
}

void CVMergeReader::readForImport(CVDocumentText present, QString path) {
    start([present = std::move(present), path = std::move(path)](CVDocumentReader& reader) -> CVMergeFindings {
        const CVOtherBudget other = CVOtherBudget::read(reader, path);
        if (!other.budget)
            return {path, other.problem};
        return comparison(
            {path, {}, other.summary, other.partlyText()}, reader, present,
            [&other](const CVDocument& ours) { return CVMergeForImport(ours, **other.budget, other.plans); });
    });
}

void CVMergeReader::readRest(CVDocumentText present, const CVMergeFindings& former) {
    start([present = std::move(present), former](CVDocumentReader& reader) {
        return comparison({former.path, {}, former.summary, former.partly}, reader, present,
                          [&former](const CVDocument& ours) {
                              return CVMergeRest(**former.comparison->ours, ours, **former.comparison->merged.budget);
                          });
    });
}

template <typename Compare>
void CVMergeReader::start(Compare compare) {
    mThread.start([this, compare = std::move(compare)](CVDocumentReader& reader) {
        return [this, findings = compare(reader)] { emit found(findings); };
    });
}
