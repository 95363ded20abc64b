#include "storage/CVSaveQueue.h"

#include "storage/CVKeptCopy.h"
#include "storage/CVSafeFile.h"

#include <QDateTime>
#include <QDir>

#include <utility>

CVSaveQueue::CVSaveQueue() {
    qRegisterMetaType<CVSaveOutcome>();
    connect(this, &CVSaveQueue::written, this, &CVSaveQueue::saveFinished, Qt::QueuedConnection);
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

void CVSaveQueue::markAsRead(const QString& path) {
    const std::lock_guard lock(mMutex);
    mOwnFiles.insert(path);
}

void CVSaveQueue::save(const QString& path, CVDocumentText text) {
    {
        const std::lock_guard lock(mMutex);
        mPending = Job{path, std::move(text)};
    }
    mChanged.notify_all();
    emit saveStarted();
}

void CVSaveQueue::fail(const QString& message) {
    CVSaveOutcome outcome;
    outcome.saved = false;
    outcome.message = message;
    {
        const std::lock_guard lock(mMutex);
        mLastOutcome = outcome;
    }
    emit written(outcome);
}

bool CVSaveQueue::isSaving() const {
    const std::lock_guard lock(mMutex);
    return mWriting || mPending;
}

CVSaveOutcome CVSaveQueue::waitForFinished() {
    std::unique_lock lock(mMutex);
    mChanged.wait(lock, [this] { return !mWriting && !mPending; });
    return mLastOutcome;
}

void CVSaveQueue::work() {
    std::unique_lock lock(mMutex);
    for (;;) {
        mChanged.wait(lock, [this] { return mStopping || mPending; });
        if (!mPending)
            return;
        {
            const Job job = *std::exchange(mPending, std::nullopt);
            mWriting = true;
            lock.unlock();
            const CVSaveOutcome outcome = perform(job);
            lock.lock();
            mLastOutcome = outcome;
        }
        mWriting = false;
        emit written(mLastOutcome);
        mChanged.notify_all();
    }
}

CVSaveOutcome CVSaveQueue::perform(const Job& job) {
    CVSaveOutcome outcome;
    outcome.path = job.path;
    bool own = false;
    {
        const std::lock_guard lock(mMutex);
        own = mOwnFiles.contains(job.path);
    }
    CVFileResult result;
    if (!own) {
        const CVKeptCopy kept = CVKeepUnreadable(job.path, QDateTime::currentDateTime());
        outcome.keptCopy = kept.path;
        result = kept.result;
    }
    if (result.ok()) {
        // From here on every byte that stood there has a second home.
        markAsRead(job.path);
        result = CVReplaceFile(job.path, job.text);
    }
    if (!result.ok()) {
        outcome.saved = false;
        outcome.message =
            tr("The budget could not be saved to \"%1\": %2.").arg(QDir::toNativeSeparators(job.path), result.error);
    }
    return outcome;
}
