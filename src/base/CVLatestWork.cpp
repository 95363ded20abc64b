#include "base/CVLatestWork.h"

#include <utility>

CVLatestWork::CVLatestWork() {
    connect(this, &CVLatestWork::found, this, &CVLatestWork::tell, Qt::QueuedConnection);
    mThread = std::thread(&CVLatestWork::work, this);
}

CVLatestWork::~CVLatestWork() {
    {
        const std::lock_guard lock(mMutex);
        mEnds = true;
        ++mNumber;
    }
    mWanted.notify_all();
    mThread.join();
}

void CVLatestWork::start(Work work) {
    {
        const std::lock_guard lock(mMutex);
        mWork = std::move(work);
        mTold = {};
        ++mNumber;
    }
    mWanted.notify_all();
}

void CVLatestWork::work() {
    std::unique_lock lock(mMutex);
    for (;;) {
        mWanted.wait(lock, [this] { return mEnds || mWork; });
        if (mEnds)
            return;
        const Work work = std::exchange(mWork, {});
        const quint64 number = mNumber;
        lock.unlock();
        Told told = work([this, number] { return mNumber == number; });
        lock.lock();
        if (mNumber != number)
            continue;
        mTold = std::move(told);
        mToldNumber = number;
        emit found();
    }
}

void CVLatestWork::tell() {
    Told told;
    {
        const std::lock_guard lock(mMutex);
        if (mToldNumber == mNumber)
            told = std::exchange(mTold, {});
    }
    // The object may be gone after this.
    if (told)
        told();
}
