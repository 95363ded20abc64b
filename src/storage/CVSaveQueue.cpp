#include "storage/CVSaveQueue.h"

#include "files/CVFolderWatch.h"
#include "files/CVReplaceFile.h"
#include "model/CVCategory.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVSavedFile.h"

#include <QFileInfo>

#include <new>
#include <utility>

namespace {

constexpr std::chrono::seconds kBetweenLooks(1);

QString realFolderOf(const QString& path) {
    return QFileInfo(CVFollowLinks(path)).absolutePath();
}

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

void CVSaveQueue::markAsRead(const QString& path, const std::optional<CVFileSignature>& signature, CVReadAs readAs) {
    const std::lock_guard lock(mMutex);
    if (signature)
        mRead[path] = {*signature, readAs};
}

void CVSaveQueue::markAsUnreadable(const QString& path, const std::optional<CVFileSignature>& signature) {
    const std::lock_guard lock(mMutex);
    if (signature)
        mUnreadable[path] = *signature;
}

void CVSaveQueue::save(const QString& path, CVDocumentText text, CVVersionKeeping keeping,
                       CVUnreadableFile unreadable) {
    enqueue({.path = path, .text = std::move(text), .keeping = keeping, .unreadable = unreadable});
    emit saveStarted();
}

void CVSaveQueue::fail(const QString& message) {
    enqueue({.path = {}, .text = {}, .failure = message});
    emit saveStarted();
}

void CVSaveQueue::keepState(const QString& path, CVDocumentText text, qint64 versionLimit) {
    enqueue({.task = Task::KeepState,
             .path = path,
             .text = std::move(text),
             .keeping = {.asked = std::nullopt, .limit = versionLimit}});
}

void CVSaveQueue::accept(const CVOutsideChange& change) {
    enqueue({.task = Task::Accept,
             .path = change.path,
             .text = {},
             .accepted = change.signature,
             .acceptedAs = change.partly.readAs()});
}

void CVSaveQueue::listFilesBeside(const QString& path) {
    enqueue({.task = Task::List, .path = path, .text = {}});
}

void CVSaveQueue::enqueue(Job job) {
    {
        const std::lock_guard lock(mMutex);
        const bool replacesWaiting = !mPending.empty() && mPending.back().path == job.path &&
                                     mPending.back().task == Task::Save && job.task == Task::Save;
        // What the waiting save writes is the state that a version is asked of.
        if (replacesWaiting && !job.keeping.asked) {
            job.keeping.asked = mPending.back().keeping.asked;
            mPending.back() = std::move(job);
        } else {
            mPending.push_back(std::move(job));
        }
    }
    mChanged.notify_all();
}

void CVSaveQueue::watch(const QString& path) {
    // Read once and kept: a damaged file would otherwise read them on the worker, unguarded.
    (void)CVCategory::standardCategoryNames();
    if (!mFolderWatch) {
        mFolderWatch = std::make_unique<CVFolderWatch>();
        connect(mFolderWatch.get(), &CVFolderWatch::changed, this, [this] {
            {
                const std::lock_guard lock(mMutex);
                mLooksSoon = true;
            }
            mChanged.notify_all();
        });
    }
    {
        const std::lock_guard lock(mMutex);
        mWatched = path;
        mLooksSoon = true;
    }
    mChanged.notify_all();
}

bool CVSaveQueue::isSaving() const {
    const std::lock_guard lock(mMutex);
    return mWriting || !mPending.empty();
}

bool CVSaveQueue::isSettled() const {
    const std::lock_guard lock(mMutex);
    return !mWriting && mPending.empty() && mMessages.empty();
}

bool CVSaveQueue::waitUntilIdle(std::chrono::milliseconds patience) {
    std::unique_lock lock(mMutex);
    return mChanged.wait_for(lock, patience, [this] { return !mWriting && mPending.empty() && !mLooking; });
}

CVSaveOutcome CVSaveQueue::waitForFinished() {
    std::unique_lock lock(mMutex);
    mChanged.wait(lock, [this] { return !mWriting && mPending.empty(); });
    return mLastOutcome;
}

std::optional<CVSaveOutcome> CVSaveQueue::waitForFinished(std::chrono::milliseconds patience) {
    std::unique_lock lock(mMutex);
    const bool isFinished = mChanged.wait_for(lock, patience, [this] { return !mWriting && mPending.empty(); });
    return isFinished ? std::optional(mLastOutcome) : std::nullopt;
}

void CVSaveQueue::work() {
    const auto hasWork = [this] { return mStopping || !mPending.empty(); };
    std::unique_lock lock(mMutex);
    for (;;) {
        if (mWatched.isEmpty())
            mChanged.wait(lock, [&] { return hasWork() || !mWatched.isEmpty(); });
        else
            mChanged.wait_for(lock, kBetweenLooks, [&] { return hasWork() || mLooksSoon; });
        if (!mPending.empty())
            carryOutNext(lock);
        else if (mStopping)
            return;
        else if (!mWatched.isEmpty())
            look(lock);
    }
}

/// Called with the lock, and returns with it.
void CVSaveQueue::carryOutNext(std::unique_lock<std::mutex>& lock) {
    mWriting = true;
    {
        const Job job = std::move(mPending.front());
        mPending.pop_front();
        learnWhatWasRead(lock);
        std::optional<Message> message = perform(job);
        lock.lock();
        if (message)
            tell(std::move(*message));
    }
    mWriting = false;
    mChanged.notify_all();
}

/// Called with the lock. Only what was to be saved decides whether everything is saved.
void CVSaveQueue::tell(Message message) {
    if (const auto* const outcome = std::get_if<CVSaveOutcome>(&message))
        mLastOutcome = *outcome;
    mMessages.push_back(std::move(message));
    emit written();
}

/// Called with the lock, and returns with it.
void CVSaveQueue::look(std::unique_lock<std::mutex>& lock) {
    const QString path = mWatched;
    const bool isHinted = std::exchange(mLooksSoon, false);
    mLooking = true;
    learnWhatWasRead(lock);
    if (std::exchange(mFollowed, path) != path)
        mFolderWatch->follow(realFolderOf(path));
    std::optional<CVOutsideChange> change;
    std::optional<CVFilesBeside> beside;
    try {
        change = fileAt(path).look();
        beside = listWhenChanged(path, isHinted);
    } catch (const std::bad_alloc&) {
        // The next look may have the memory.
    }
    lock.lock();
    mLooking = false;
    mChanged.notify_all();
    // Whoever watches another file by now does not care.
    if (mWatched != path) {
        mBeside = {};
        return;
    }
    if (change)
        tell(std::move(*change));
    if (beside)
        tell(std::move(*beside));
}

/// Absent when nothing else lies there than at the last look. A hint is what the system tells of the folder, which does
/// not hear of another computer of a network share; the folder's own time does.
std::optional<CVFilesBeside> CVSaveQueue::listWhenChanged(const QString& path, bool isHinted) {
    const auto folder = CVFileSignature::of(realFolderOf(path));
    if (mBeside.dataFile == path && folder == mFolderThen && !isHinted)
        return std::nullopt;
    mFolderThen = folder;
    CVFilesBeside found = CVFilesBeside::of(path);
    if (found == mBeside)
        return std::nullopt;
    mBeside = found;
    return found;
}

/// Called with the lock, and returns without it, because the disk may hang.
void CVSaveQueue::learnWhatWasRead(std::unique_lock<std::mutex>& lock) {
    const auto read = std::exchange(mRead, {});
    const auto unreadable = std::exchange(mUnreadable, {});
    lock.unlock();
    for (const auto& [path, signature] : unreadable)
        fileAt(path).markAsUnreadable(signature);
    for (const auto& [path, file] : read)
        fileAt(path).markAsRead(file.signature, file.readAs);
}

CVSavedFile& CVSaveQueue::fileAt(const QString& path) {
    return mFiles.try_emplace(path, path).first->second;
}

/// Called once for each message that the worker added.
void CVSaveQueue::announceNext() {
    std::optional<Message> message;
    {
        const std::lock_guard lock(mMutex);
        message = std::move(mMessages.front());
        mMessages.pop_front();
    }
    if (const auto* const outcome = std::get_if<CVSaveOutcome>(&*message))
        emit saveFinished(*outcome);
    else if (const auto* const kept = std::get_if<KeptState>(&*message))
        emit stateKept(kept->outcome);
    else if (const auto* const change = std::get_if<CVOutsideChange>(&*message))
        emit changedOutside(*change);
    else if (const auto* const beside = std::get_if<CVFilesBeside>(&*message))
        emit filesBesideChanged(*beside);
    else
        emit filesBesideListed(std::get<ListedFiles>(*message).files);
}

/// Answers what is to be announced; absent when that is nothing.
std::optional<CVSaveQueue::Message> CVSaveQueue::perform(const Job& job) {
    if (job.task == Task::List)
        return ListedFiles{CVFilesBeside::of(job.path)};
    CVSaveOutcome outcome = change(job);
    if (job.task == Task::Accept)
        return std::nullopt;
    if (job.task == Task::KeepState)
        return KeptState{std::move(outcome)};
    return outcome;
}

CVSaveOutcome CVSaveQueue::change(const Job& job) {
    CVSaveOutcome outcome{.path = job.path, .message = job.failure};
    try {
        if (job.task == Task::Accept)
            fileAt(job.path).accept(job.accepted, job.acceptedAs);
        else if (job.task == Task::KeepState)
            outcome = fileAt(job.path).keepState(job.text, job.keeping.limit);
        else if (job.failure.isEmpty())
            outcome = fileAt(job.path).save(job.text, job.keeping, job.unreadable);
    } catch (const std::bad_alloc&) {
        outcome.message = tr("The budget could not be saved: there is not enough memory.");
    }
    outcome.saved = outcome.message.isEmpty();
    // The window must not ask the disk, which may hang.
    if (!outcome.saved) {
        outcome.isThere = QFileInfo::exists(outcome.path);
        outcome.canMakeRoom = outcome.diskIsFull && CVFilesBeside::of(outcome.path).hasEarlier;
    }
    return outcome;
}
