#include "history/CVVersionReader.h"

#include "differences/CVBudgetDifferences.h"
#include "model/CVCategory.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVDocumentFile.h"

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

CVVersionReader::CVVersionReader() {
    // Read once and kept: a damaged version would otherwise read them on the thread, unguarded.
    (void)CVCategory::standardCategoryNames();
    connect(this, &CVVersionReader::examined, this, &CVVersionReader::tellNext, Qt::QueuedConnection);
    mThread = std::thread(&CVVersionReader::work, this);
}

CVVersionReader::~CVVersionReader() {
    {
        const std::lock_guard lock(mMutex);
        mEnds = true;
        ++mWishes;
    }
    mWanted.notify_all();
    mThread.join();
}

void CVVersionReader::read(CVDocumentText present, const QStringList& paths) {
    {
        const std::lock_guard lock(mMutex);
        mPresent = std::move(present);
        mWaiting = paths;
        mChosenIsWaiting = !mChosen.isEmpty();
        ++mRound;
        ++mWishes;
    }
    mWanted.notify_all();
}

void CVVersionReader::choose(const QString& path) {
    {
        const std::lock_guard lock(mMutex);
        mChosen = path;
        mChosenIsWaiting = !path.isEmpty();
        ++mWishes;
    }
    mWanted.notify_all();
}

std::optional<QString> CVVersionReader::next() const {
    if (mRound == 0)
        return std::nullopt;
    if (mChosenIsWaiting)
        return mChosen;
    return mWaiting.isEmpty() ? std::nullopt : std::optional(mWaiting.constFirst());
}

void CVVersionReader::work() {
    // Made here, because they are used on this thread alone.
    CVDetachedDocument settings;
    CVDocumentFile file({}, settings.userDefaults());
    Budget present;
    quint64 presentRound = 0;
    std::unique_lock lock(mMutex);
    for (;;) {
        mWanted.wait(lock, [this] { return mEnds || next(); });
        if (mEnds)
            return;
        const QString path = *next();
        const bool isChosen = mChosenIsWaiting;
        const quint64 round = mRound;
        const quint64 wishes = mWishes;
        const CVDocumentText text = mPresent;
        lock.unlock();
        file.setReadingProgress([this, wishes](double) { return mWishes == wishes; });
        if (std::exchange(presentRound, round) != round)
            present = parse(file, text);
        CVVersionFindings findings = examine(file, path, present, isChosen);
        lock.lock();
        if (mWishes != wishes) {
            // The reading of either may have been cancelled.
            presentRound = present ? presentRound : 0;
            continue;
        }
        mWaiting.removeAll(path);
        mChosenIsWaiting = mChosenIsWaiting && !isChosen;
        mFound.push_back({std::move(findings), round});
        emit examined();
    }
}

/// Null when the reading was cancelled or there is not enough memory.
CVVersionReader::Budget CVVersionReader::parse(CVDocumentFile& file, const CVDocumentText& text) {
    try {
        auto budget = std::make_shared<CVDetachedDocument>();
        if (file.readFromData(**budget, text.joined(), QLatin1String(CVDocumentFile::kXMLDocumentType)))
            return budget;
    } catch (const std::bad_alloc&) {
    }
    return nullptr;
}

CVVersionFindings CVVersionReader::examine(CVDocumentFile& file, const QString& path, const Budget& present,
                                           bool isChosen) {
    CVVersionFindings findings{path};
    if (!present) {
        findings.problem = tr("there is not enough memory");
        return findings;
    }
    try {
        const auto version = std::make_shared<CVDetachedDocument>();
        const CVLoadReport report = file.readFromURL(**version, path);
        if (report.outcome != CVLoadReport::Outcome::Loaded) {
            findings.problem =
                report.reason.isEmpty() ? tr("it holds no budget that Corvella can read") : report.reason;
            return findings;
        }
        const auto compared = std::make_shared<ComparedBudgets>(
            ComparedBudgets{version, present, CVBudgetDifferences::since(**version, **present)});
        findings.transactions = (*version)->transactions().size();
        count(findings.counts, compared->differences.sets);
        count(findings.counts, compared->differences.categories);
        count(findings.counts, compared->differences.transactions);
        if (isChosen) {
            findings.version = {version, &**version};
            findings.differences = {compared, &compared->differences};
        }
    } catch (const std::bad_alloc&) {
        findings.problem = tr("there is not enough memory");
    }
    return findings;
}

/// Called once for each finding that the thread added.
void CVVersionReader::tellNext() {
    CVVersionFindings findings;
    bool isWanted = false;
    {
        const std::lock_guard lock(mMutex);
        isWanted = mFound.front().round == mRound;
        findings = std::move(mFound.front().findings);
        mFound.pop_front();
    }
    if (isWanted)
        emit found(findings);
}
