#pragma once

#include <QObject>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

class CVDocumentReader;

/// Reads and compares on a thread of its own, one piece of work at a time. Used from the main thread; the work touches
/// no document of the program. Destroying the object stops the thread: a reading is cancelled, and only one that is
/// just being compared is awaited.
class CVReadingThread final : public QObject {
    Q_OBJECT

public:
    /// Called on the main thread, from the event loop, with what the work has found.
    using Told = std::function<void()>;
    /// Called on the thread; `file` reads budgets, which fails once the work is cancelled.
    using Work = std::function<Told(CVDocumentReader& reader)>;

    CVReadingThread();
    ~CVReadingThread() override;

    /// Begins this work. What was begun before is cancelled, and what it found is no longer told.
    void start(Work work);
    void cancel() { start({}); }

signals:
    /// Emitted by the thread when there is something to tell.
    void found();

private:
    void work();
    void tell();

    std::mutex mMutex;
    std::condition_variable mWanted;
    /// Null when there is nothing to begin.
    Work mWork;
    Told mTold;
    bool mEnds = false;
    /// Counts the calls of `start`.
    std::atomic<quint64> mNumber = 0;
    /// The number of the work that `mTold` comes from.
    quint64 mToldNumber = 0;
    /// Declared last, so that all other members exist as long as the thread runs.
    std::thread mThread;
};
