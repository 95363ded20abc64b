#pragma once

#include <QString>

/// A lock on a file, for one process at a time. The kernel releases the lock when the process ends, however it ends, so
/// that a file that is left behind locks nothing. The content of the file has no meaning and is not changed.
class CVFileLock final {
public:
    enum class Outcome {
        /// The lock is held until this object is destroyed, which also removes the file.
        Taken,
        /// Another process or another object holds the lock.
        HeldByOther,
        /// No file can be locked at the path, for instance because the folder is read-only or a folder or a link has
        /// that name. Links are not followed, because a link may lead to somebody's file.
        Impossible
    };

    /// An empty path can never be locked.
    explicit CVFileLock(QString path) : mPath(std::move(path)) {}
    ~CVFileLock();
    CVFileLock(const CVFileLock&) = delete;
    CVFileLock& operator=(const CVFileLock&) = delete;

    /// Does not wait.
    [[nodiscard]] Outcome tryLock();

private:
    static constexpr int kNone = -1;

    QString mPath;
    int mFile = kNone;
};
