#include "files/CVMoveFile.h"

#include "files/CVFileAccess.h"
#include "files/CVFileSignature.h"
#include "files/CVFileSink.h"
#include "files/CVTemporaryFile.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

constexpr qsizetype kCopiedAtOnce = 1024 * 1024;
constexpr unsigned kModeWhileCopying = 0600;

} // namespace

/// QFile::rename is not used because it copies where it cannot rename.
CVFileResult CVMoveFile(const QString& from, const QString& to) {
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    if (::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0)
        return {};
    if (!CVFileResult::isUnknownCall(errno))
        return CVFileResult::ofLastCall();
    const CVPathStatus present = CVPathStatus::of(to);
    if (present.signature)
        return {qt_error_string(EEXIST)};
    if (!present.error.isEmpty())
        return {present.error};
    return std::rename(source.constData(), target.constData()) == 0 ? CVFileResult() : CVFileResult::ofLastCall();
}

/// QFile is not used because it takes a file of unknown size for an empty one.
CVFileResult CVCopyBytes(int source, QIODevice& target) {
    QByteArray bytes(kCopiedAtOnce, Qt::Uninitialized);
    for (;;) {
        const ssize_t read = ::read(source, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (read == 0)
            return {};
        if (read < 0 && errno != EINTR)
            return CVFileResult::ofLastCall();
        if (read > 0 && target.write(bytes.constData(), read) != read)
            return {target.errorString()};
    }
}

CVFileResult CVCopyFile(const QString& from, const QString& to) {
    CVTemporaryFile copy(to, kModeWhileCopying);
    if (!copy.opened().ok())
        return copy.opened();
    const int source = ::open(QFile::encodeName(from).constData(), O_RDONLY | O_CLOEXEC);
    if (source < 0)
        return CVFileResult::ofLastCall();
    CVFileSink sink(copy.descriptor());
    CVFileResult result = CVCopyBytes(source, sink);
    ::close(source);
    if (result.ok())
        result.error = CVFileAccess::of(from).giveTo(copy.descriptor()).error;
    if (const CVFileResult finished = sink.finish(); !finished.ok())
        result = finished;
    if (result.ok())
        result = CVMoveFile(copy.path(), to);
    if (result.ok())
        copy.release();
    return result;
}

CVFileResult CVLinkOrCopyFile(const QString& from, const QString& to) {
    const bool linked = ::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
    return linked ? CVFileResult() : CVCopyFile(from, to);
}
