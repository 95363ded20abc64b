#pragma once

#include <QObject>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// Works on a thread of its own, on the piece of work that was begun last. Used from the main thread; the work touches
/// nothing that the main thread changes. Destroying the object cancels the work and waits until it has noticed that.
class CVLatestWork final : public QObject {
    Q_OBJECT

public:
    /// Called on the main thread, from the event loop, with what the work has found.
    using Told = std::function<void()>;
    /// Whether what the work finds is still wanted; the work asks often.
    using IsWanted = std::function<bool()>;
    /// Called on the thread.
    using Work = std::function<Told(const IsWanted& isWanted)>;

    CVLatestWork();
    ~CVLatestWork() override;

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
