#include "storage/CVSaveQueue.h"

#include "storage/CVWriteDocumentText.h"
#include "versions/CVDueVersion.h"
#include "versions/CVKeptCopy.h"
#include "versions/CVVersionFolder.h"

#include <QDateTime>
#include <QDir>

#include <new>
#include <utility>

namespace {

constexpr qint64 kNanosecondsPerMillisecond = 1'000'000;

} // namespace

CVSaveQueue::CVSaveQueue() {
    connect(this, &CVSaveQueue::written, this, &CVSaveQueue::announceNext, Qt::QueuedConnection);
    mWorker = std::thread(&CVSaveQueue::work, this);
}

CVSaveQueue::~CVSaveQueue() {
    {
        const std::lock_guard lock(mMutex);
        mStopping = true;
    }
    mChanged.notify_all();
    mWorker.join();
}

void CVSaveQueue::markAsRead(const QString& path, const std::optional<CVFileSignature>& signature) {
    const std::lock_guard lock(mMutex);
    if (signature)
        mKnownFiles[path] = *signature;
}

void CVSaveQueue::save(const QString& path, CVDocumentText text, CVVersionKeeping keeping) {
    enqueue({path, std::move(text), {}, keeping});
}

void CVSaveQueue::fail(const QString& message) {
    enqueue({{}, {}, message, {}});
}

void CVSaveQueue::enqueue(Job job) {
    {
        const std::lock_guard lock(mMutex);
        // What the waiting save writes is the state that a version is asked of.
        if (!mPending.empty() && mPending.back().path == job.path && !job.keeping.asked) {
            job.keeping.asked = mPending.back().keeping.asked;
            mPending.back() = std::move(job);
        } else {
            mPending.push_back(std::move(job));
        }
    }
    mChanged.notify_all();
    emit saveStarted();
}

bool CVSaveQueue::isSaving() const {
    const std::lock_guard lock(mMutex);
    return mWriting || !mPending.empty();
}

CVSaveOutcome CVSaveQueue::waitForFinished() {
    std::unique_lock lock(mMutex);
    mChanged.wait(lock, [this] { return !mWriting && mPending.empty(); });
    return mLastOutcome;
}

void CVSaveQueue::work() {
    std::unique_lock lock(mMutex);
    for (;;) {
        mChanged.wait(lock, [this] { return mStopping || !mPending.empty(); });
        if (mPending.empty())
            return;
        mWriting = true;
        {
            const Job job = std::move(mPending.front());
            mPending.pop_front();
            lock.unlock();
            const CVSaveOutcome outcome = perform(job);
            lock.lock();
            mLastOutcome = outcome;
        }
        mWriting = false;
        mOutcomes.push_back(mLastOutcome);
        emit written();
        mChanged.notify_all();
    }
}

/// Called once for each outcome that the worker added.
void CVSaveQueue::announceNext() {
    CVSaveOutcome outcome;
    {
        const std::lock_guard lock(mMutex);
        outcome = std::move(mOutcomes.front());
        mOutcomes.pop_front();
    }
    emit saveFinished(outcome);
}

CVSaveOutcome CVSaveQueue::perform(const Job& job) {
    CVSaveOutcome outcome;
    outcome.path = job.path;
    outcome.message = job.failure;
    try {
        if (job.failure.isEmpty())
            write(job, outcome);
    } catch (const std::bad_alloc&) {
        outcome.message = tr("The budget could not be saved: there is not enough memory.");
    }
    outcome.saved = outcome.message.isEmpty();
    return outcome;
}

void CVSaveQueue::write(const Job& job, CVSaveOutcome& outcome) {
    std::optional<CVFileSignature> known;
    {
        const std::lock_guard lock(mMutex);
        const auto found = mKnownFiles.find(job.path);
        if (found != mKnownFiles.end())
            known = found->second;
    }
    const CVPathStatus present = CVPathStatus::of(job.path);
    const bool isKnown = present.signature == known;
    CVKeptCopy kept{{}, {present.error}, false};
    if (present.signature && !isKnown)
        kept = keepUnreadFile(job.path, *present.signature);
    if (job.keeping.asked)
        mStillAsked[job.path] = *job.keeping.asked;
    // A file that was kept as another program's is no version of this program's.
    const auto due = present.signature && isKnown ? dueVersion(job, *present.signature) : std::nullopt;
    CVReplaceResult replacing{kept.result};
    if (kept.result.ok()) {
        replacing = CVWriteDocumentText(job.path, job.text, kept.moved ? std::nullopt : present.signature,
                                        due ? CVFormerFile::Kept : CVFormerFile::Dropped);
    }
    if (replacing.written) {
        markAsRead(job.path, replacing.written);
        mStillAsked.erase(job.path);
    } else if (kept.moved && kept.putBack(job.path)) {
        kept = {};
    }
    outcome.keptCopy = kept.path;
    outcome.diskIsFull = replacing.diskIsFull();
    if (!replacing.ok()) {
        outcome.message =
            tr("The budget could not be saved to “%1”: %2.").arg(QDir::toNativeSeparators(job.path), replacing.error);
    }
    // Until what stood there gets a name of its own, it bears that of a temporary file, which the next start
    // recognises.
    if (!replacing.isExpected && !replacing.former.isEmpty())
        outcome.keptCopy = CVKeptCopy::keepFormer(replacing.former, job.path, QDateTime::currentDateTime()).path;
    else if (due && !replacing.former.isEmpty())
        keepVersion(job, replacing.former, *due, outcome);
}

std::optional<CVVersionReason> CVSaveQueue::dueVersion(const Job& job, const CVFileSignature& present) const {
    if (job.keeping.limit <= 0)
        return std::nullopt;
    const QDateTime now = QDateTime::currentDateTime();
    std::optional<CVVersionName> newest;
    if (const auto notKept = mNotKept.find(job.path); notKept != mNotKept.end())
        newest = notKept->second;
    for (const CVVersion& version : CVVersionFolder(job.path).versions()) {
        // A clock that was set back makes a version one of the future, which must not suspend the keeping.
        if (version.name.kept <= now && (!newest || newest->kept < version.name.kept))
            newest = version.name;
    }
    const auto asked = mStillAsked.find(job.path);
    return CVDueVersion(asked == mStillAsked.end() ? std::nullopt : std::optional(asked->second),
                        QDateTime::fromMSecsSinceEpoch(present.modified / kNanosecondsPerMillisecond), newest, now);
}

void CVSaveQueue::keepVersion(const Job& job, const QString& former, CVVersionReason reason, CVSaveOutcome& outcome) {
    const QDateTime now = QDateTime::currentDateTime();
    const CVVersionFolder folder(job.path);
    CVFileResult result{folder.keep(former, reason, now).error};
    mNotKept.erase(job.path);
    if (!result.ok()) {
        mNotKept[job.path] = {now, 1, reason};
        outcome.versionTrouble = tr("An earlier version could not be kept in “%1”: %2.")
                                     .arg(QDir::toNativeSeparators(folder.path()), result.error);
        return;
    }
    result = folder.thin(now, job.keeping.limit);
    if (!result.ok()) {
        outcome.versionTrouble = tr("Superfluous earlier versions could not be removed from “%1”: %2.")
                                     .arg(QDir::toNativeSeparators(folder.path()), result.error);
    }
}

CVKeptCopy CVSaveQueue::keepUnreadFile(const QString& path, const CVFileSignature& signature) {
    CVKeptCopy kept = CVKeptCopy::keepUnreadable(path, QDateTime::currentDateTime());
    if (kept.path.isEmpty() && kept.result.ok())
        kept.result.error = tr("what stands there could not be kept beside it");
    // The bytes have a second name now, so another attempt need not keep them again.
    if (!kept.path.isEmpty() && !kept.moved)
        markAsRead(path, signature);
    return kept;
}
