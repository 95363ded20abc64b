#include "files/CVMakePrivate.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

constexpr unsigned kOwnerEnters = 0700;
constexpr unsigned kOwnerReads = 0600;
constexpr unsigned kOthersMay = 0077;

/// Takes what others may do from an open file; the rest of its mode stays.
CVFileResult tightenFile(int file) {
    struct stat facts {};
    if (::fstat(file, &facts) != 0)
        return CVFileResult::ofLastCall();
    const bool isWide = S_ISREG(facts.st_mode) && (facts.st_mode & kOthersMay) != 0;
    // A file system without modes refuses this even to the owner.
    if (isWide && ::fchmod(file, facts.st_mode & kOwnerEnters) != 0 && errno != EPERM)
        return CVFileResult::ofLastCall();
    return {};
}

} // namespace

CVFileResult CVMakePrivateFolder(const QString& path) {
    const QFileInfo folder(QFileInfo(path).absoluteFilePath());
    if (folder.isDir())
        return {};
    const QByteArray name = QFile::encodeName(folder.filePath());
    if (::mkdir(name.constData(), kOwnerEnters) == 0)
        return {};
    if (errno == ENOENT && !folder.isRoot()) {
        if (CVFileResult above = CVMakePrivateFolder(folder.path()); !above.ok())
            return above;
        if (::mkdir(name.constData(), kOwnerEnters) == 0)
            return {};
    }
    // Another process may have made it meanwhile.
    const CVFileResult failure = CVFileResult::ofLastCall();
    return QFileInfo(folder.filePath()).isDir() ? CVFileResult() : failure;
}

CVFileResult CVMakePrivateFile(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    int file = ::open(name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file < 0 && errno == ENOENT) {
        if (CVFileResult folder = CVMakePrivateFolder(QFileInfo(path).path()); !folder.ok())
            return folder;
        file = ::open(name.constData(), O_RDONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kOwnerReads);
    }
    if (file < 0)
        return errno == ELOOP ? CVFileResult() : CVFileResult::ofLastCall();
    CVFileResult result = tightenFile(file);
    ::close(file);
    return result;
}
