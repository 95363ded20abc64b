#include "versions/CVVersionFolder.h"

#include "files/CVFileAccess.h"
#include "files/CVFileSignature.h"
#include "files/CVMoveFile.h"
#include "files/CVTemporaryFile.h"
#include "versions/CVKeptCopy.h"
#include "versions/CVSuperfluousVersions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <tuple>

namespace {

const QString kFolder = QStringLiteral("Earlier Versions");
constexpr int kMostVersionsPerSecond = 100;
constexpr unsigned kOwnerOnly = 0700;
constexpr unsigned kEveryone = 0777;
constexpr unsigned kAllBits = 07777;

bool hasFurtherNames(const QString& path) {
    struct stat facts {};
    return ::lstat(QFile::encodeName(path).constData(), &facts) == 0 && facts.st_nlink > 1;
}

CVFileResult remove(const QString& path) {
    return ::unlink(QFile::encodeName(path).constData()) == 0 ? CVFileResult() : CVFileResult::ofLastCall();
}

bool isSameFolder(const QString& path, const QString& other) {
    const auto a = CVFileSignature::of(path);
    const auto b = CVFileSignature::of(other);
    return a && b && a->device == b->device && a->inode == b->inode;
}

} // namespace

CVVersionFolder::CVVersionFolder(const QString& dataFile) : mDataFile(CVFollowLinks(dataFile)) {
    if (!mDataFile.isEmpty())
        mPath = QFileInfo(mDataFile).absolutePath() + u'/' + kFolder;
}

QList<CVVersion> CVVersionFolder::versions() const {
    QList<CVVersion> versions;
    if (mPath.isEmpty())
        return versions;
    for (const QFileInfo& file : QDir(mPath).entryInfoList(QDir::Files | QDir::NoSymLinks)) {
        if (const auto name = CVVersionName::parse(file.fileName(), QFileInfo(mDataFile).fileName()))
            versions.append({file.absoluteFilePath(), *name, file.size()});
    }
    std::sort(versions.begin(), versions.end(), [](const CVVersion& a, const CVVersion& b) {
        return std::tie(b.name.kept, b.name.number, b.path) < std::tie(a.name.kept, a.name.number, a.path);
    });
    return versions;
}

qint64 CVVersionFolder::size() const {
    qint64 size = 0;
    for (const CVVersion& version : versions())
        size += version.size;
    return size;
}

CVFileResult CVVersionFolder::make() const {
    if (mPath.isEmpty())
        return {qt_error_string(EIO)};
    const bool isNew = ::mkdir(QFile::encodeName(mPath).constData(), kOwnerOnly) == 0;
    if (!isNew && errno != EEXIST)
        return CVFileResult::ofLastCall();
    const CVFileResult given = giveAccess(isNew);
    return given.ok() && isNew ? CVSyncFolder(QFileInfo(mPath).absolutePath()) : given;
}

/// Who may read the data file may enter the folder. A folder that was there only loses what the data file does not
/// allow by now. What a link leads to is not this program's to change.
CVFileResult CVVersionFolder::giveAccess(bool isNew) const {
    const int folder = ::open(QFile::encodeName(mPath).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0)
        return isNew ? CVFileResult::ofLastCall() : CVFileResult();
    const CVFileAccess wanted =
        (CVPathStatus::of(mDataFile).signature ? CVFileAccess::of(mDataFile) : CVFileAccess::ofNewFile()).ofFolder();
    CVFileResult result;
    struct stat facts {};
    if (isNew) {
        result.error = wanted.giveTo(folder).error;
    } else if (::fstat(folder, &facts) == 0) {
        const unsigned mode = CVFileAccess::of(mPath).hasList() ? wanted.mode() : wanted.modeWithoutList();
        const unsigned excess = facts.st_mode & ~mode & kEveryone;
        // A file system without modes may refuse fchmod even to the owner.
        if (excess != 0 && ::fchmod(folder, facts.st_mode & ~excess & kAllBits) != 0 && errno != EPERM)
            result = CVFileResult::ofLastCall();
    }
    ::close(folder);
    return result;
}

CVVersionFolder::Keeping CVVersionFolder::place(const QString& file, CVVersionName name, Placing placing) const {
    Keeping keeping;
    // The number counts for all reasons, so that it tells the order within a second.
    for (const CVVersion& version : versions()) {
        if (version.name.kept.toSecsSinceEpoch() == name.kept.toSecsSinceEpoch())
            name.number = std::max(name.number, version.name.number + 1);
    }
    while (name.number <= kMostVersionsPerSecond) {
        keeping.path = mPath + u'/' + name.fileName(QFileInfo(mDataFile).fileName());
        if (CVFileSignature::ofEntry(keeping.path)) {
            ++name.number;
            continue;
        }
        keeping.error = placing(file, keeping.path).error;
        return keeping;
    }
    return {{qt_error_string(EEXIST)}, {}};
}

CVVersionFolder::Keeping CVVersionFolder::keep(const QString& file, CVVersionReason reason,
                                               const QDateTime& now) const {
    const bool isShared = hasFurtherNames(file);
    if (const CVFileResult made = make(); !made.ok())
        return {made, {}};
    Keeping keeping = place(file, {now, 1, reason}, isShared ? CVCopyFile : CVMoveFile);
    if (keeping.ok())
        keeping.error = CVSyncFolder(mPath).error;
    if (keeping.ok() && isShared)
        keeping.error = remove(file).error;
    return keeping;
}

CVVersionFolder::Keeping CVVersionFolder::keepCopy(const QString& file, CVVersionReason reason,
                                                   const QDateTime& now) const {
    if (const CVFileResult made = make(); !made.ok())
        return {made, {}};
    Keeping keeping = place(file, {now, 1, reason}, CVCopyFile);
    if (keeping.ok())
        keeping.error = CVSyncFolder(mPath).error;
    return keeping;
}

CVVersionFolder::Keeping CVVersionFolder::keepContent(const CVFileContent& content, CVVersionReason reason,
                                                      const QDateTime& now) const {
    if (mDataFile.isEmpty())
        return {{qt_error_string(EIO)}, {}};
    const QString file = CVTemporaryFile::nameBeside(mDataFile);
    Keeping keeping{{CVReplaceFile(file, content).error}, {}};
    if (keeping.ok())
        keeping = keep(file, reason, now);
    if (!keeping.ok())
        (void)remove(file);
    return keeping;
}

CVFileResult CVVersionFolder::thin(const QDateTime& now, qint64 limit) const {
    return removeEach(CVSuperfluousVersions(versions(), now, limit));
}

CVFileResult CVVersionFolder::removeAll() const {
    CVFileResult result = removeEach(versions());
    // The folder stays where it holds something else.
    ::rmdir(QFile::encodeName(mPath).constData());
    return result;
}

/// Goes on after a failure, and answers the first one.
CVFileResult CVVersionFolder::removeEach(const QList<CVVersion>& versions) const {
    CVFileResult result;
    for (const CVVersion& version : versions) {
        const CVFileResult removed = remove(version.path);
        if (result.ok())
            result = removed;
    }
    return result;
}

CVFileResult CVVersionFolder::moveTo(const CVVersionFolder& other) const {
    const QList<CVVersion> moving = versions();
    if (moving.isEmpty() && QFileInfo(mPath).isDir() && !QDir(mPath).isReadable())
        return {qt_error_string(EACCES)};
    if (moving.isEmpty() || isSameFolder(mPath, other.mPath))
        return {};
    CVFileResult result = other.make();
    QStringList copies;
    for (const CVVersion& version : moving) {
        if (!result.ok())
            break;
        const Keeping copy = other.place(version.path, version.name, CVCopyFile);
        result.error = copy.error;
        if (copy.ok())
            copies.append(copy.path);
    }
    if (result.ok())
        result = CVSyncFolder(other.mPath);
    if (result.ok()) {
        result = removeEach(moving);
        ::rmdir(QFile::encodeName(mPath).constData());
        return result;
    }
    for (const QString& copy : copies)
        ::unlink(QFile::encodeName(copy).constData());
    return result;
}

/// Whether an interrupted save has left a further name of the data file or of a kept copy, which is no longer of use.
bool CVVersionFolder::isSecondName(const QString& path) const {
    const QStringList kept = CVKeptCopy::beside(mDataFile);
    return CVIsSameFile(path, mDataFile) ||
           std::any_of(kept.begin(), kept.end(), [&path](const QString& copy) { return CVIsSameFile(path, copy); });
}

CVFileResult CVVersionFolder::recover(const std::function<Leftover(const QString& file)>& judge,
                                      const QDateTime& now) const {
    CVFileResult result;
    if (mPath.isEmpty())
        return result;
    const auto note = [&result](const CVFileResult& outcome) {
        if (result.ok())
            result = outcome;
    };
    const QString dataFileName = QFileInfo(mDataFile).fileName();
    for (const auto& [path, madeFor] : CVTemporaryFile::leftIn(QFileInfo(mDataFile).absolutePath())) {
        if (CVKeptCopy::isNameOfOne(madeFor, mDataFile)) {
            // The file that was being copied is still there.
            note(remove(path));
        } else if (madeFor == CVTemporaryFile::shortened(dataFileName)) {
            const Leftover leftover = isSecondName(path) ? Leftover::Cut : judge(path);
            if (leftover == Leftover::Whole)
                note(keep(path, CVVersionReason::Interruption, now));
            else if (leftover == Leftover::Cut)
                note(remove(path));
        }
    }
    // In the folder itself, files are only copied.
    for (const auto& [path, madeFor] : CVTemporaryFile::leftIn(mPath)) {
        if (CVVersionName::parse(madeFor, dataFileName))
            note(remove(path));
    }
    return result;
}
