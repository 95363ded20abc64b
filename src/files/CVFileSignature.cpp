#include "files/CVFileSignature.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <cerrno>

namespace {

constexpr qint64 kNanoseconds = 1'000'000'000;
constexpr unsigned kPermissionBits = 07777;

qint64 nanoseconds(const struct timespec& time) {
    return time.tv_sec * kNanoseconds + time.tv_nsec;
}

CVFileSignature signatureFrom(const struct stat& facts) {
    return {facts.st_dev, facts.st_ino, facts.st_size, nanoseconds(facts.st_mtim)};
}

} // namespace

std::optional<CVFileSignature> CVFileSignature::of(const QString& path) {
    return CVPathStatus::of(path).signature;
}

std::optional<CVFileSignature> CVFileSignature::ofEntry(const QString& path) {
    struct stat facts {};
    return ::lstat(QFile::encodeName(path).constData(), &facts) == 0 ? std::optional(signatureFrom(facts))
                                                                     : std::nullopt;
}

std::optional<CVFileSignature> CVFileSignature::ofOpenFile(int descriptor) {
    struct stat facts {};
    return ::fstat(descriptor, &facts) == 0 ? std::optional(signatureFrom(facts)) : std::nullopt;
}

bool CVIsSameFile(const QString& path, const QString& other) {
    const QFileInfo file(path);
    const QFileInfo otherFile(other);
    if (!file.exists() && !otherFile.exists()) {
        return file.fileName() == otherFile.fileName() && file.dir().exists() &&
               file.dir().canonicalPath() == otherFile.dir().canonicalPath();
    }
    const auto signature = CVFileSignature::of(path);
    const auto otherSignature = CVFileSignature::of(other);
    return file.isFile() && signature && otherSignature && signature->device == otherSignature->device &&
           signature->inode == otherSignature->inode;
}

CVPathStatus CVPathStatus::of(const QString& path) {
    struct stat facts {};
    if (::stat(QFile::encodeName(path).constData(), &facts) == 0)
        return {signatureFrom(facts), facts.st_mode & kPermissionBits, nanoseconds(facts.st_ctim), {}};
    if (errno == ENOENT || errno == ENOTDIR)
        return {};
    return {std::nullopt, 0, 0, qt_error_string(errno)};
}
