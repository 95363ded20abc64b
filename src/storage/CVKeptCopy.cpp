#include "storage/CVKeptCopy.h"

#include "storage/CVSafeFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

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

/// A second name for the same bytes; where the file system knows none, a copy on the disk. Neither replaces a file.
bool linkOrCopy(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::create_hard_link(native(from), native(to), error);
    if (!error)
        return true;
    if (!QFile::copy(from, to))
        return false;
#ifdef Q_OS_UNIX
    const int copy = ::open(QFile::encodeName(to).constData(), O_RDONLY | O_CLOEXEC);
    const bool synced = copy >= 0 && ::fsync(copy) == 0;
    if (copy >= 0)
        ::close(copy);
    if (!synced)
        QFile::remove(to);
    return synced;
#else
    return true;
#endif
}

} // namespace

CVKeptCopy CVKeepUnreadable(const QString& path, const QDateTime& now) {
    const QString real = QFileInfo(path).canonicalFilePath();
    if (real.isEmpty())
        return {};
    const QFileInfo file(real);
    const QString copy = freeName(file, now);
    const bool kept = !copy.isEmpty() && ((file.isFile() && linkOrCopy(real, copy)) || QFile::rename(real, copy));
    if (!kept) {
        return {{},
                {QCoreApplication::translate("CVKeptCopy", "the unreadable file \"%1\" could not be kept beside it")
                     .arg(real)}};
    }
    return {copy, CVSyncFolder(file.absolutePath())};
}
