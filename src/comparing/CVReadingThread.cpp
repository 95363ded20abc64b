#include "comparing/CVReadingThread.h"

#include "model/CVCategory.h"
#include "storage/CVDocumentReader.h"

#include <utility>

CVReadingThread::CVReadingThread() {
    // Read once and kept: a damaged budget would otherwise read them on the thread, unguarded.
    (void)CVCategory::standardCategoryNames();
    connect(this, &CVReadingThread::found, this, &CVReadingThread::tell, Qt::QueuedConnection);
    mThread = std::thread(&CVReadingThread::work, this);
}

CVReadingThread::~CVReadingThread() {
    {
        const std::lock_guard lock(mMutex);
        mEnds = true;
        ++mNumber;
    }
    mWanted.notify_all();
    mThread.join();
}

void CVReadingThread::start(Work work) {
    {
        const std::lock_guard lock(mMutex);
        mWork = std::move(work);
        mTold = {};
        ++mNumber;
    }
    mWanted.notify_all();
}

void CVReadingThread::work() {
    // Made here, because it is used on this thread alone.
    CVDocumentReader reader;
    std::unique_lock lock(mMutex);
    for (;;) {
        mWanted.wait(lock, [this] { return mEnds || mWork; });
        if (mEnds)
            return;
        const Work work = std::exchange(mWork, {});
        const quint64 number = mNumber;
        lock.unlock();
        reader.setProgress([this, number](double) { return mNumber == number; });
        Told told = work(reader);
        lock.lock();
        if (mNumber != number)
            continue;
        mTold = std::move(told);
        mToldNumber = number;
        emit found();
    }
}

void CVReadingThread::tell() {
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
