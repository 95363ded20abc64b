#include "lock/CVLockKeeper.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace {

/// The time that a disk has at the end.
constexpr std::chrono::seconds kPatience(2);

} // namespace

struct CVLockKeeper::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    /// Null once the keeper is gone.
    CVLockKeeper* keeper = nullptr;
    /// The thread's own.
    CVBudgetLock lock;
    bool isTaken = false;
    bool isWanted = false;
    bool ends = false;
    bool hasEnded = false;
    /// What is not told yet.
    std::deque<CVLockHolder> losses = {};
};

CVLockKeeper::CVLockKeeper(CVBudgetLock lock, bool isTaken, std::chrono::milliseconds betweenSigns)
    : mShared(new Shared{{}, {}, this, std::move(lock), isTaken}) {
    connect(this, &CVLockKeeper::found, this, &CVLockKeeper::tellNext, Qt::QueuedConnection);
    mThread = std::thread([shared = mShared, betweenSigns] { work(shared, betweenSigns); });
}

CVLockKeeper::~CVLockKeeper() {
    std::unique_lock lock(mShared->mutex);
    mShared->keeper = nullptr;
    mShared->ends = true;
    mShared->changed.notify_all();
    const bool hasEnded = mShared->changed.wait_for(lock, kPatience, [this] { return mShared->hasEnded; });
    lock.unlock();
    if (hasEnded)
        mThread.join();
    else
        mThread.detach();
}

bool CVLockKeeper::isTaken() const {
    const std::lock_guard lock(mShared->mutex);
    return mShared->isTaken;
}

void CVLockKeeper::giveSignNow() {
    {
        const std::lock_guard lock(mShared->mutex);
        mShared->isWanted = true;
    }
    mShared->changed.notify_all();
}

void CVLockKeeper::work(const std::shared_ptr<Shared>& shared, std::chrono::milliseconds betweenSigns) {
    QString told;
    std::unique_lock lock(shared->mutex);
    for (;;) {
        shared->changed.wait_for(lock, betweenSigns, [&] { return shared->ends || shared->isWanted; });
        if (shared->ends)
            break;
        shared->isWanted = false;
        lock.unlock();
        const CVBudgetLock::Attempt attempt = shared->lock.take();
        lock.lock();
        shared->isTaken = attempt.outcome == CVBudgetLock::Outcome::Taken;
        const bool isLost = attempt.outcome == CVBudgetLock::Outcome::Held && attempt.holder->token != told;
        if (isLost && shared->keeper) {
            told = attempt.holder->token;
            shared->losses.push_back(*attempt.holder);
            emit shared->keeper->found();
        }
    }
    lock.unlock();
    shared->lock.release();
    lock.lock();
    shared->hasEnded = true;
    shared->changed.notify_all();
}

/// Called once for each loss that the thread added.
void CVLockKeeper::tellNext() {
    CVLockHolder holder;
    {
        const std::lock_guard lock(mShared->mutex);
        holder = std::move(mShared->losses.front());
        mShared->losses.pop_front();
    }
    emit lost(holder);
}
