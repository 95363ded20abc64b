#include "storage/CVKeptCopy.h"

#include "base/CVFileSignature.h"
#include "base/CVFileSink.h"
#include "base/CVReplaceFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

constexpr int kMostCopiesPerSecond = 100;
constexpr qsizetype kCopiedAtOnce = 1024 * 1024;

QString freeName(const QFileInfo& file, const QDateTime& now) {
    const QString stamp = now.toString(QStringLiteral("yyyy-MM-dd HHmmss"));
    const QString suffix = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    for (int copy = 1; copy <= kMostCopiesPerSecond; ++copy) {
        const QString number = copy == 1 ? QString() : u' ' + QString::number(copy);
        QString name = file.absolutePath() + u'/' + file.completeBaseName() + QStringLiteral(" (unreadable ") + stamp +
                       number + u')' + suffix;
        const QFileInfo candidate(name);
        if (!candidate.exists() && !candidate.isSymLink())
            return name;
    }
    return {};
}

/// Renames in one step, so that the bytes always have a name; never replaces a file. QFile::rename is not used because
/// it copies where it cannot rename.
CVFileResult moveTo(const QString& from, const QString& to) {
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
#ifdef Q_OS_LINUX
    if (::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0)
        return {};
    if (errno != EINVAL && errno != ENOSYS)
        return CVFileResult::ofLastCall();
#endif
    const CVPathStatus present = CVPathStatus::of(to);
    if (present.signature)
        return {qt_error_string(EEXIST)};
    if (!present.error.isEmpty())
        return {present.error};
    return std::rename(source.constData(), target.constData()) == 0 ? CVFileResult() : CVFileResult::ofLastCall();
}

/// Copies from the source's position to its end. QFile is not used because it takes a file of unknown size for an empty
/// one.
CVFileResult copyBytes(int source, QIODevice& target) {
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

/// Copies to a temporary file, which gets the original's mode and the name `to` only when it is whole and on the disk.
CVFileResult copyTo(const QString& from, const QString& to) {
    const CVPathStatus original = CVPathStatus::of(from);
    if (!original.signature)
        return {original.error};
    QTemporaryFile copy(QFileInfo(to).absolutePath() + QStringLiteral("/XXXXXX"));
    if (!copy.open())
        return {copy.errorString()};
    const int source = ::open(QFile::encodeName(from).constData(), O_RDONLY | O_CLOEXEC);
    if (source < 0)
        return CVFileResult::ofLastCall();
    CVFileSink sink(copy.handle());
    CVFileResult result = copyBytes(source, sink);
    ::close(source);
    if (const CVFileResult finished = sink.finish(); !finished.ok())
        result = finished;
    // A file system without modes may refuse fchmod even to the owner.
    if (result.ok() && ::fchmod(copy.handle(), original.mode) != 0 && errno != EPERM)
        result = CVFileResult::ofLastCall();
    if (result.ok())
        result = moveTo(copy.fileName(), to);
    copy.setAutoRemove(!result.ok());
    return result;
}

/// Gives the same bytes a second name, or copies them where the file system has no hard links. Neither replaces a file.
CVFileResult linkOrCopy(const QString& from, const QString& to) {
    const bool linked = ::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
    return linked ? CVFileResult() : copyTo(from, to);
}

/// The message that holds this text already names `path`, so `real` is named only when a link leads to it.
CVKeptCopy refuse(const QString& path, const QString& real, const QString& reason) {
    const QString what =
        QFileInfo(path).absoluteFilePath() == real
            ? QCoreApplication::translate("CVKeptCopy", "the unreadable file there could not be kept beside it: %1")
                  .arg(reason)
            : QCoreApplication::translate("CVKeptCopy", "the unreadable file “%1” could not be kept beside it: %2")
                  .arg(real, reason);
    return {{}, {what}};
}

} // namespace

CVKeptCopy CVKeptCopy::keepUnreadable(const QString& place, const QDateTime& now) {
    const QString real = QFileInfo(place).canonicalFilePath();
    if (real.isEmpty())
        return {};
    const QFileInfo file(real);
    CVKeptCopy kept{freeName(file, now), {}, false};
    // A file that cannot be read is moved instead of linked, because the new file would inherit its mode.
    kept.moved = !file.isFile() || !file.isReadable();
    if (kept.path.isEmpty())
        return refuse(place, real, QCoreApplication::translate("CVKeptCopy", "too many are kept there already"));
    const CVFileResult keeping = kept.moved ? moveTo(real, kept.path) : linkOrCopy(real, kept.path);
    if (!keeping.ok())
        return refuse(place, real, keeping.error);
    kept.result = CVSyncFolder(file.absolutePath());
    return kept;
}

bool CVKeptCopy::putBack(const QString& place) const {
    return moveTo(path, place).ok();
}
