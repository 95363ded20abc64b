#pragma once

#include <QString>

/// A lock on a file of that path, for one process at a time. The kernel drops the lock when the process ends, however
/// it ends, so that a file that is left behind locks nothing; the file's content means nothing, and is not touched.
class CVFileLock final {
public:
    enum class Outcome {
        /// Held from now on, until this object goes; the file goes then too.
        Taken,
        /// Another process, or another object, has it.
        HeldByOther,
        /// No file can be locked there: the place is read-only, say, or a folder or a link stands in it. A link may
        /// lead
        /// to somebody's file, or nowhere, and is not followed.
        Impossible
    };

    /// The path of no file at all ("") can never be locked.
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
