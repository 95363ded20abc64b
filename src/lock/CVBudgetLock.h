#pragma once

#include "lock/CVLockHolder.h"

#include <QDateTime>

#include <memory>
#include <optional>

class QFile;

/// The lock beside a data file, ".NAME.lock": a file that says which program has the budget open. It holds programs of
/// other computers off where no lock of the kernel reaches. It appears whole, by a second name or by renaming, so that
/// nobody finds it half written; only on file systems that know neither it is made first and written then. It may be
/// used on one thread at a time. Destroying it releases nothing.
class CVBudgetLock final {
public:
    enum class Outcome {
        /// This program has the lock, and the lock shows a sign of life.
        Taken,
        Held,
        /// A lock is there that cannot be judged.
        Doubtful,
        /// No lock can be made here: the folder is missing or read-only, the disk is full.
        Impossible
    };
    struct Attempt {
        Outcome outcome = Outcome::Impossible;
        /// Who has it; absent when the lock cannot be read, or nobody else has it.
        std::optional<CVLockHolder> holder = {};
        /// When the holder gave the last sign of life, by this computer's clock.
        QDateTime lastSign = {};
    };
    /// What becomes of a lock that cannot be judged.
    enum class Doubt : bool { Respected, Overridden };

    /// The data file, links followed, need not exist.
    explicit CVBudgetLock(const QString& dataFile, CVLockHolder self = CVLockHolder::ofThisProcess());

    [[nodiscard]] const QString& path() const { return mPath; }

    /// Takes the lock, or keeps it and gives a sign of life. A stale lock and that of a dead process are taken over; of
    /// two programs that do so at once one alone gets it.
    [[nodiscard]] Attempt take(Doubt doubt = Doubt::Respected);
    /// Removes the lock if it still is this program's.
    void release();
    /// Removes what programs of this computer have left that were killed while they made this lock.
    void removeLeftovers() const;

private:
    struct Found;
    enum class Step {
        Done,
        /// Another program was faster: look again.
        Overtaken,
        Impossible
    };

    [[nodiscard]] Found look() const;
    [[nodiscard]] CVLockState judge(Found& found) const;
    [[nodiscard]] Step make() const;
    [[nodiscard]] Step makeInPlace() const;
    [[nodiscard]] Step replace(const Found& found) const;
    [[nodiscard]] bool guard(const Found& found) const;
    void giveSign(const Found& found) const;

    [[nodiscard]] bool isOnTheSameDisk();

    QString mPath;
    /// The disk with the folder when the lock was first asked for; an empty mount point is on another one.
    std::optional<quint64> mDisk;
    CVLockHolder mSelf;
};
