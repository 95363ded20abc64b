#include "files/CVReplaceFile.h"

#include "files/CVFileAccess.h"
#include "files/CVFileSink.h"
#include "files/CVTemporaryFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>

namespace {

constexpr int kLongestChain = 40;
constexpr unsigned kPrivate = 0600;
constexpr unsigned kUsual = 0666;
constexpr unsigned kOpenToOthers = 0077;

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

/// The access that the new file is to have.
struct WantedAccess {
    CVNewFile ofNewFile = CVNewFile::Private;
    /// Absent where a former file has it.
    std::optional<CVFileAccess> always = {};

    /// Absent for a file that the user's file mode mask decides on.
    [[nodiscard]] std::optional<CVFileAccess> of(const QString& target, const CVPathStatus& old) const {
        if (always)
            return always;
        if (old.signature)
            return CVFileAccess::of(target);
        return ofNewFile == CVNewFile::Usual ? std::nullopt : std::optional(CVFileAccess::ofNewFile());
    }
};

/// Whether a file that was to be private is not.
bool isOpenToOthers(int descriptor) {
    struct stat facts {};
    return ::fstat(descriptor, &facts) == 0 && (facts.st_mode & kOpenToOthers) != 0;
}

/// Puts a written file into its place; answers whether it is there and what became of the former one.
using Placing = std::function<CVSwapResult(const QString& fresh, const QString& target)>;

CVReplaceResult replaceFile(const QString& path, const CVFileContent& write, const WantedAccess& access,
                            const Placing& place) {
    const auto [target, error] = followLinks(path);
    if (!error.isEmpty())
        return {{error}};
    const CVPathStatus old = CVPathStatus::of(target);
    if (!old.error.isEmpty())
        return {{old.error}};
    CVTemporaryFile file(target, access.ofNewFile == CVNewFile::Usual && !old.signature ? kUsual : kPrivate);
    if (!file.opened().ok())
        return {file.opened()};
    CVFileSink sink(file.descriptor());
    const bool abandoned = !write(sink);
    // As late as possible, so that a change by another program is not lost, but before the sync.
    CVAccessResult given;
    if (const auto wanted = access.of(target, old))
        given = wanted->giveTo(file.descriptor());
    CVFileResult result{given.error};
    if (result.ok())
        result = sink.finish();
    const auto written = CVFileSignature::ofOpenFile(file.descriptor());
    if (result.ok() && !written)
        result = CVFileResult::ofLastCall();
    if (!result.ok() || abandoned)
        return {result};
    const bool isOpen =
        !old.signature && !access.always && access.ofNewFile == CVNewFile::Private && isOpenToOthers(file.descriptor());
    const CVSwapResult swap = place(file.path(), target);
    if (!swap.isPlaced)
        return {{swap.error}};
    file.release();
    return {CVSyncFolder(QFileInfo(target).absolutePath()), written, swap.former, swap.isExpected, isOpen, given.lost};
}

CVSwapResult placeByRenaming(const QString& fresh, const QString& target) {
    if (::rename(QFile::encodeName(fresh).constData(), QFile::encodeName(target).constData()) == 0)
        return {{}, true};
    return {CVFileResult::ofLastCall()};
}

} // namespace

CVReplaceResult CVReplaceFile(const QString& path, const CVFileContent& write, CVNewFile access) {
    return replaceFile(path, write, {access}, placeByRenaming);
}

CVReplaceResult CVReplaceFile(const QString& path, const CVFileContent& write, const CVFileAccess& access) {
    return replaceFile(path, write, {CVNewFile::Private, access}, placeByRenaming);
}

CVReplaceResult CVReplaceExpectedFile(const QString& path, const CVFileContent& write,
                                      const std::optional<CVFileSignature>& expected, CVFormerFile former) {
    return replaceFile(path, write, {}, [&](const QString& fresh, const QString& target) {
        return CVSwapFile(fresh, target, expected, former);
    });
}

QString CVFollowLinks(const QString& path) {
    return followLinks(path).path;
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
