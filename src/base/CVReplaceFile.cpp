#include "base/CVReplaceFile.h"

#include "base/CVFileSink.h"

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

struct Target {
    QString path;
    /// Why the path cannot be followed; empty when it can.
    QString error;
};

/// The file at which a chain of symbolic links ends, existing or not. The file is replaced in its own folder, so that
/// the links stay.
Target followLinks(const QString& path) {
    QString at = QFileInfo(path).absoluteFilePath();
    for (int links = 0; links < kLongestChain; ++links) {
        std::array<char, PATH_MAX> link{};
        const ssize_t length = ::readlink(QFile::encodeName(at).constData(), link.data(), link.size());
        // No link, or nothing there yet.
        if (length < 0 && (errno == EINVAL || errno == ENOENT || errno == ENOTDIR))
            return {at, {}};
        if (length < 0)
            return {{}, CVFileResult::ofLastCall().error};
        const QString next = QFile::decodeName(QByteArray(link.data(), static_cast<qsizetype>(length)));
        at = QFileInfo(QFileInfo(at).absoluteDir(), next).absoluteFilePath();
    }
    return {{}, qt_error_string(ELOOP)};
}

/// Gives the new file the mode of the file that it replaces, or makes it private. A new file on a file system without
/// modes, where even the owner is refused with EPERM, cannot be private; that is no failure.
CVFileResult setMode(int descriptor, const CVPathStatus& old, CVNewFile access) {
    if (!old.signature && access == CVNewFile::Usual)
        return {};
    if (::fchmod(descriptor, old.signature ? old.mode : kPrivate) == 0 || (!old.signature && errno == EPERM))
        return {};
    return CVFileResult::ofLastCall();
}

/// The toolkit loses the reason of some failed calls; `errno` still holds it. Of a file that may not be written the
/// toolkit tells no reason but the path, which the callers' messages name already.
CVFileResult failureOf(const QSaveFile& file) {
    const bool dropped =
        file.errorString() == QIODevice::tr("Unknown error") || file.errorString().contains(file.fileName());
    return dropped ? CVFileResult::ofLastCall() : CVFileResult{file.errorString()};
}

} // namespace

CVReplaceResult CVReplaceFile(const QString& path, const CVFileContent& write, CVNewFile access) {
    const auto [target, error] = followLinks(path);
    if (!error.isEmpty())
        return {{error}, {}};
    const CVPathStatus old = CVPathStatus::of(target);
    if (!old.error.isEmpty())
        return {{old.error}, {}};
    // QSaveFile names the temporary file and renames it. The bytes go through CVFileSink instead, because QSaveFile
    // takes a partial write for a whole one.
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        return {failureOf(file), {}};
    CVFileResult result = setMode(file.handle(), old, access);
    bool abandoned = false;
    if (result.ok()) {
        CVFileSink sink(file.handle());
        abandoned = !write(sink);
        result = sink.finish();
    }
    const auto written = CVFileSignature::ofOpenFile(file.handle());
    if (result.ok() && !written)
        result = CVFileResult::ofLastCall();
    if (!result.ok() || abandoned) {
        file.cancelWriting();
        return {result, {}};
    }
    if (!file.commit())
        return {failureOf(file), {}};
    return {CVSyncFolder(QFileInfo(target).absolutePath()), written};
}

CVFileResult CVSyncFolder(const QString& path) {
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return CVFileResult::ofLastCall();
    // Some file systems do not support syncing a folder, which is no failure.
    const bool synced = ::fsync(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
    CVFileResult result = synced ? CVFileResult() : CVFileResult::ofLastCall();
    ::close(folder);
    return result;
}
