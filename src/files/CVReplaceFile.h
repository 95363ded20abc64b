#pragma once

#include "files/CVFileResult.h"
#include "files/CVFileSignature.h"
#include "files/CVSwapFile.h"

#include <QStringList>

#include <functional>

class CVFileAccess;
class QIODevice;

/// Writes the content of a file. Answering false abandons the attempt and leaves the old file as it was. The function
/// need not check the device for failures, because the caller does.
using CVFileContent = std::function<bool(QIODevice& output)>;

/// Who may read a file that is newly made.
enum class CVNewFile {
    /// Only its owner.
    Private,
    /// Whoever the user's file mode mask (umask) allows.
    Usual
};

struct CVReplaceResult : CVFileResult {
    /// The signature of the new file; present once the file is in its place, even when a later step failed.
    std::optional<CVFileSignature> written = {};
    /// Where what stood there is now; empty when nothing of it was kept. A name of `CVTemporaryFile`.
    QString former = {};
    /// Whether what stood there is what the caller expected.
    bool isExpected = true;
    /// Whether others may read or write a new file that was to be private, because its file system keeps no modes.
    bool isOpenToOthers = false;
    /// What of the former file's access could not be kept, as `CVAccessResult` says it.
    QStringList lostAccess = {};
};

/// Replaces the file at `path` by what `write` writes. At every moment, whatever fails, either the old file or the new
/// one is there whole. Follows symbolic links; an existing file keeps its access as `CVFileAccess` does. Returns when
/// the new file and its folder entry are on the disk. On failure it answers the reason and leaves nothing behind,
/// unless the file was replaced and only syncing its folder failed.
[[nodiscard]] CVReplaceResult CVReplaceFile(const QString& path, const CVFileContent& write,
                                            CVNewFile access = CVNewFile::Private);

/// Does the same and gives the file that access, whatever the former one had.
[[nodiscard]] CVReplaceResult CVReplaceFile(const QString& path, const CVFileContent& write,
                                            const CVFileAccess& access);

/// Does the same and keeps what stood there as `CVSwapFile` does, so that no change by another program is lost. Only
/// the owner can read a new file.
[[nodiscard]] CVReplaceResult CVReplaceExpectedFile(const QString& path, const CVFileContent& write,
                                                    const std::optional<CVFileSignature>& expected,
                                                    CVFormerFile former);

/// The file at which a chain of symbolic links ends, existing or not; empty when it cannot be followed.
[[nodiscard]] QString CVFollowLinks(const QString& path);

/// Syncs a folder's entries to the disk.
[[nodiscard]] CVFileResult CVSyncFolder(const QString& path);
