#pragma once

#include "lock/CVBudgetLock.h"

#include <QObject>

#include <chrono>
#include <memory>
#include <thread>

/// Keeps a lock while a budget is open: gives a sign of life each minute on a thread of its own, takes a lock that
/// could not be made before, and tells when another program has it. Destroying the keeper releases the lock; a disk
/// that hangs is awaited for two seconds, and the thread then ends by itself. Used from the main thread.
class CVLockKeeper final : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::minutes kBetweenSigns{1};

    /// `isTaken` is whether the last attempt took the lock.
    CVLockKeeper(CVBudgetLock lock, bool isTaken, std::chrono::milliseconds betweenSigns = kBetweenSigns);
    ~CVLockKeeper() override;

    /// Whether this program has the lock, as far as is known.
    [[nodiscard]] bool isTaken() const;
    /// Gives the next sign of life, or takes the lock, at once.
    void giveSignNow();

signals:
    /// Another program has the lock now. Emitted once for each program, from the event loop.
    void lost(const CVLockHolder& holder);
    /// Emitted by the thread when there is a loss to tell.
    void found();

private:
    struct Shared;

    static void work(const std::shared_ptr<Shared>& shared, std::chrono::milliseconds betweenSigns);
    void tellNext();

    /// Shared with the thread, which may outlive the keeper.
    std::shared_ptr<Shared> mShared;
    std::thread mThread;
};
