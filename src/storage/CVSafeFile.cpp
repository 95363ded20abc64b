#include "storage/CVSafeFile.h"

#include "model/CVDocumentText.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

#include <cerrno>

namespace {

CVFileResult failed() {
    return {qt_error_string(errno)};
}

/// The file a chain of links ends at, existing or not: its folder is the one whose entry changes.
QString linkTarget(const QString& path) {
    QFileInfo info(path);
    for (int links = 0; info.isSymLink() && links < 40; ++links)
        info.setFile(info.symLinkTarget());
    return info.absoluteFilePath();
}

CVFileResult writePieces(QSaveFile& file, const CVDocumentText& text) {
    for (const CVTextSlice& piece : text.pieces()) {
        if (file.write(piece.bytes().data(), piece.length) != piece.length)
            return {file.errorString()};
    }
    // QSaveFile::commit() drops the errors of its own flush, so everything must be on the disk before it is called.
    if (!file.flush())
        return {file.errorString()};
#ifdef Q_OS_UNIX
    if (::fsync(file.handle()) != 0)
        return failed();
#endif
    return {};
}

} // namespace

CVFileResult CVReplaceFile(const QString& path, const CVDocumentText& text) {
    constexpr auto kPrivate = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    const QString target = linkTarget(path);
    const bool existed = QFileInfo::exists(target);
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        return {file.errorString()};
    CVFileResult result;
    if (!existed && !file.setPermissions(kPrivate))
        result.error = file.errorString();
    if (result.ok())
        result = writePieces(file, text);
    if (!result.ok()) {
        file.cancelWriting();
        return result;
    }
    if (!file.commit())
        return {file.errorString()};
    return CVSyncFolder(QFileInfo(target).absolutePath());
}

CVFileResult CVSyncFolder(const QString& path) {
#ifdef Q_OS_UNIX
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return failed();
    // Some file systems know no sync of folders and say so; there is nothing more to be done on them.
    const bool synced = ::fsync(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
    CVFileResult result = synced ? CVFileResult() : failed();
    ::close(folder);
    return result;
#else
    Q_UNUSED(path);
    return {};
#endif
}
