#include "history/CVVersionReader.h"

#include "comparing/CVReadBudget.h"
#include "differences/CVBudgetDifferences.h"
#include "model/CVDocument.h"

#include <new>
#include <utility>

namespace {

/// Two budgets and what is not the same in them, kept together because the differences refer to the records of both.
struct ComparedBudgets {
    std::shared_ptr<CVDetachedDocument> version;
    std::shared_ptr<CVDetachedDocument> present;
    CVBudgetDifferences differences;
};

template <typename Differences>
void count(std::array<std::size_t, kCVVersionSigns>& counts, const Differences& differences) {
    for (const auto& difference : differences)
        ++counts[static_cast<std::size_t>(CVSignOf(difference))];
}

} // namespace

void CVVersionReader::read(CVDocumentText present, const QStringList& paths) {
    mText = std::move(present);
    mWaiting = paths;
    mChosenIsWaiting = !mChosen.isEmpty();
    ++mRound;
    readNext();
}

void CVVersionReader::choose(const QString& path) {
    mChosen = path;
    mChosenIsWaiting = !path.isEmpty();
    readNext();
}

std::optional<QString> CVVersionReader::next() const {
    if (mRound == 0)
        return std::nullopt;
    if (mChosenIsWaiting)
        return mChosen;
    return mWaiting.isEmpty() ? std::nullopt : std::optional(mWaiting.constFirst());
}

void CVVersionReader::readNext() {
    const auto path = next();
    if (!path)
        return mThread.cancel();
    mThread.start([this, path = *path, isChosen = mChosenIsWaiting, text = mText, round = mRound,
                   present = mPresent](CVDocumentReader& reader) {
        if (std::exchange(present->round, round) != round)
            present->budget = CVReadBudget::of(reader, text).budget;
        const CVVersionFindings findings = examine(reader, path, *present, isChosen);
        // Its reading may have been cancelled.
        if (!present->budget)
            present->round = 0;
        return [this, findings, isChosen] { take(findings, isChosen); };
    });
}

CVVersionFindings CVVersionReader::examine(CVDocumentReader& reader, const QString& path, const Present& present,
                                           bool isChosen) {
    CVVersionFindings findings{path};
    if (!present.budget) {
        findings.problem = CVReadBudget::tooLittleMemory();
        return findings;
    }
    const auto [version, problem] = CVReadBudget::of(reader, path);
    findings.problem = problem;
    if (!version)
        return findings;
    try {
        const auto compared = std::make_shared<ComparedBudgets>(
            ComparedBudgets{version, present.budget, CVBudgetDifferences::since(**version, **present.budget)});
        findings.transactions = (*version)->transactions().size();
        count(findings.counts, compared->differences.sets);
        count(findings.counts, compared->differences.categories);
        count(findings.counts, compared->differences.transactions);
        if (isChosen) {
            findings.version = {version, &**version};
            findings.differences = {compared, &compared->differences};
        }
    } catch (const std::bad_alloc&) {
        findings.problem = CVReadBudget::tooLittleMemory();
    }
    return findings;
}

void CVVersionReader::take(const CVVersionFindings& findings, bool wasChosen) {
    mWaiting.removeAll(findings.path);
    mChosenIsWaiting = mChosenIsWaiting && !wasChosen;
    readNext();
    emit found(findings);
}
