#include "storage/CVKeptCopy.h"

#include "storage/CVFileSignature.h"
#include "storage/CVSafeFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace {

constexpr int kMostCopiesPerSecond = 100;

std::filesystem::path native(const QString& path) {
    return {QFile::encodeName(path).toStdString()};
}

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

/// In one step, so that the bytes are never without a name; neither replaces anything nor copies. QFile::rename would
/// copy where it cannot rename.
bool moveTo(const QString& from, const QString& to) {
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
#ifdef Q_OS_LINUX
    if (::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
#endif
    const CVStanding standing = CVStanding::at(to);
    return standing.error.isEmpty() && !standing.signature && std::rename(source.constData(), target.constData()) == 0;
}

/// Whether the copy is on the disk, as long as the original: QFile takes a file whose size it cannot learn for an empty
/// one.
bool isWhole(const QString& original, const QString& copyPath) {
    const int copy = ::open(QFile::encodeName(copyPath).constData(), O_RDONLY | O_CLOEXEC);
    if (copy < 0)
        return false;
    const auto standing = CVFileSignature::of(original);
    const auto copied = CVFileSignature::ofOpenFile(copy);
    const bool synced = ::fsync(copy) == 0;
    ::close(copy);
    return synced && standing && copied && standing->size == copied->size;
}

/// A second name for the same bytes; where the file system knows none, a copy on the disk. Neither replaces a file.
bool linkOrCopy(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::create_hard_link(native(from), native(to), error);
    if (!error)
        return true;
    if (!QFile::copy(from, to))
        return false;
    if (isWhole(from, to))
        return true;
    QFile::remove(to);
    return false;
}

} // namespace

CVKeptCopy CVKeepUnreadable(const QString& path, const QDateTime& now) {
    const QString real = QFileInfo(path).canonicalFilePath();
    if (real.isEmpty())
        return {};
    const QFileInfo file(real);
    CVKeptCopy kept{freeName(file, now), {}, false};
    // A second name for a file that cannot be read would not help: the new file would inherit its mode.
    kept.moved = !file.isFile() || !file.isReadable();
    if (kept.path.isEmpty() || !(kept.moved ? moveTo(real, kept.path) : linkOrCopy(real, kept.path))) {
        return {{},
                {QCoreApplication::translate("CVKeptCopy", "the unreadable file \"%1\" could not be kept beside it")
                     .arg(real)}};
    }
    kept.result = CVSyncFolder(file.absolutePath());
    return kept;
}

bool CVPutBack(const CVKeptCopy& kept, const QString& path) {
    return moveTo(kept.path, path);
}
