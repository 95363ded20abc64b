#include "storage/CVSaveQueue.h"

#include "storage/CVKeptCopy.h"
#include "storage/CVWriteDocumentText.h"

#include <QDateTime>
#include <QDir>

#include <new>
#include <utility>

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

void CVSaveQueue::save(const QString& path, CVDocumentText text) {
    enqueue({path, std::move(text), {}});
}

void CVSaveQueue::fail(const QString& message) {
    enqueue({{}, {}, message});
}

void CVSaveQueue::enqueue(Job job) {
    {
        const std::lock_guard lock(mMutex);
        if (!mPending.empty() && mPending.back().path == job.path)
            mPending.back() = std::move(job);
        else
            mPending.push_back(std::move(job));
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
    CVKeptCopy kept{{}, {present.error}, false};
    if (present.signature && present.signature != known)
        kept = keepUnreadFile(job.path, *present.signature);
    CVReplaceResult replacing{kept.result, {}};
    if (kept.result.ok())
        replacing = CVWriteDocumentText(job.path, job.text);
    if (replacing.written)
        markAsRead(job.path, replacing.written);
    else if (kept.moved && kept.putBack(job.path))
        kept = {};
    outcome.keptCopy = kept.path;
    outcome.diskIsFull = replacing.diskIsFull();
    if (!replacing.ok()) {
        outcome.message =
            tr("The budget could not be saved to “%1”: %2.").arg(QDir::toNativeSeparators(job.path), replacing.error);
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
