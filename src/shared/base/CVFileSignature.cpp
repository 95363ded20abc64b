#include "shared/base/CVFileSignature.h"

#include <QFile>

#include <sys/stat.h>

#include <cerrno>

namespace {

constexpr qint64 kNanoseconds = 1'000'000'000;
constexpr unsigned kPermissionBits = 07777;

CVFileSignature signatureFrom(const struct stat& facts) {
    return {facts.st_dev, facts.st_ino, facts.st_size, facts.st_mtim.tv_sec * kNanoseconds + facts.st_mtim.tv_nsec};
}

} // namespace

std::optional<CVFileSignature> CVFileSignature::of(const QString& path) {
    return CVStanding::at(path).signature;
}

std::optional<CVFileSignature> CVFileSignature::ofOpenFile(int descriptor) {
    struct stat facts {};
    return ::fstat(descriptor, &facts) == 0 ? std::optional(signatureFrom(facts)) : std::nullopt;
}

CVStanding CVStanding::at(const QString& path) {
    struct stat facts {};
    if (::stat(QFile::encodeName(path).constData(), &facts) == 0)
        return {signatureFrom(facts), facts.st_mode & kPermissionBits, {}};
    if (errno == ENOENT || errno == ENOTDIR)
        return {};
    return {std::nullopt, 0, qt_error_string(errno)};
}
