#include "storage/CVSafeFile.h"

#include "model/CVDocumentText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

namespace {

constexpr int kLongestChain = 40;
constexpr unsigned kPrivate = 0600;

CVFileResult failed() {
    return {qt_error_string(errno)};
}

struct Target {
    QString path;
    /// Why the path cannot be followed; empty when it can.
    QString error;
};

/// The file a chain of links ends at, existing or not: its folder is the one whose entry changes.
Target followLinks(const QString& path) {
    QString at = QFileInfo(path).absoluteFilePath();
    for (int links = 0; links < kLongestChain; ++links) {
        std::array<char, PATH_MAX> link{};
        const ssize_t length = ::readlink(QFile::encodeName(at).constData(), link.data(), link.size());
        // No link, or nothing there yet.
        if (length < 0 && (errno == EINVAL || errno == ENOENT || errno == ENOTDIR))
            return {at, {}};
        if (length < 0)
            return {{}, qt_error_string(errno)};
        const QString next = QFile::decodeName(QByteArray(link.data(), static_cast<qsizetype>(length)));
        at = QFileInfo(QFileInfo(at).absoluteDir(), next).absoluteFilePath();
    }
    return {{}, qt_error_string(ELOOP)};
}

/// Gives the new file the mode of the one it replaces, or makes it private. On a file system that knows no modes
/// (where the attempt is not permitted even to the owner) a private file is not to be had.
CVFileResult setMode(int descriptor, const CVStanding& old) {
    if (::fchmod(descriptor, old.signature ? old.mode : kPrivate) == 0 || (!old.signature && errno == EPERM))
        return {};
    return failed();
}

CVFileResult writePieces(QSaveFile& file, const CVDocumentText& text) {
    for (const CVTextSlice& piece : text.pieces()) {
        if (file.write(piece.bytes().data(), piece.length) != piece.length)
            return {file.errorString()};
    }
    // QSaveFile::commit() drops the errors of its own flush, so everything must be on the disk before it is called.
    if (!file.flush())
        return {file.errorString()};
    return ::fsync(file.handle()) == 0 ? CVFileResult() : failed();
}

} // namespace

CVReplaceResult CVReplaceFile(const QString& path, const CVDocumentText& text) {
    const auto [target, error] = followLinks(path);
    if (!error.isEmpty())
        return {{error}, {}};
    const CVStanding old = CVStanding::at(target);
    if (!old.error.isEmpty())
        return {{old.error}, {}};
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        return {{file.errorString()}, {}};
    CVFileResult result = setMode(file.handle(), old);
    if (result.ok())
        result = writePieces(file, text);
    const auto written = CVFileSignature::ofOpenFile(file.handle());
    if (result.ok() && !written)
        result = failed();
    if (!result.ok()) {
        file.cancelWriting();
        return {result, {}};
    }
    if (!file.commit())
        return {{file.errorString()}, {}};
    return {CVSyncFolder(QFileInfo(target).absolutePath()), written};
}

CVFileResult CVSyncFolder(const QString& path) {
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return failed();
    // Some file systems know no sync of folders and say so; there is nothing more to be done on them.
    const bool synced = ::fsync(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
    CVFileResult result = synced ? CVFileResult() : failed();
    ::close(folder);
    return result;
}
