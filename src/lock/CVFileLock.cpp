#include "lock/CVFileLock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

constexpr int kOwnerOnly = 0600;

/// Tries once to lock an open file.
CVFileLock::Outcome lockWhole(int file) {
    struct stat status {};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode))
        return CVFileLock::Outcome::Impossible;
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    if (::fcntl(file, F_OFD_SETLK, &whole) == 0)
        return CVFileLock::Outcome::Taken;
    return errno == EAGAIN || errno == EACCES ? CVFileLock::Outcome::HeldByOther : CVFileLock::Outcome::Impossible;
}

/// Whether the open file is still the one at the path.
bool isFileAt(int file, const QByteArray& path) {
    struct stat open {};
    struct stat present {};
    return ::fstat(file, &open) == 0 && ::lstat(path.constData(), &present) == 0 && open.st_dev == present.st_dev &&
           open.st_ino == present.st_ino;
}

} // namespace

CVFileLock::~CVFileLock() {
    if (mFile == kNone)
        return;
    // The file is removed while the lock is still held, so that a process that has opened it meanwhile notices that it
    // is no longer at the path.
    const QByteArray path = QFile::encodeName(mPath);
    if (isFileAt(mFile, path))
        ::unlink(path.constData());
    ::close(mFile);
}

CVFileLock::Outcome CVFileLock::tryLock() {
    if (mFile != kNone)
        return Outcome::Taken;
    const QByteArray path = QFile::encodeName(mPath);
    for (;;) {
        // O_NONBLOCK, because opening a pipe at the path would wait.
        const int file =
            ::open(path.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, kOwnerOnly);
        if (file == kNone)
            return Outcome::Impossible;
        const Outcome outcome = lockWhole(file);
        if (outcome == Outcome::Taken && isFileAt(file, path)) {
            mFile = file;
            return outcome;
        }
        ::close(file);
        if (outcome != Outcome::Taken)
            return outcome;
        // Another process removed the file between opening and locking, so try again.
    }
}
