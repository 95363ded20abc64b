#pragma once

#include "base/CVFileResult.h"
#include "base/CVFileSignature.h"

#include <functional>

class QIODevice;

/// Writes what a file is to hold; ends the attempt, and leaves everything as it was, by answering false. Failures of
/// the device need not be looked at.
using CVFileContent = std::function<bool(QIODevice& output)>;

/// Who can read a file that did not exist before.
enum class CVNewFile {
    /// Its owner alone.
    Private,
    /// Whoever the user lets read new files.
    Usual
};

struct CVReplaceResult : CVFileResult {
    /// Of the new file, once it stands at its place, even when something failed after that.
    std::optional<CVFileSignature> written;
};

/// Replaces the file at `path` by what `write` writes, so that at every moment, whatever fails, the old file or the new
/// one stands there whole. A symbolic link is followed, an existing file keeps its mode. Returns when the new file and
/// its folder entry are on the disk. Failing: the reason. Nothing of the attempt is left then, unless the file was
/// replaced and only its folder could not be synced.
[[nodiscard]] CVReplaceResult CVReplaceFile(const QString& path, const CVFileContent& write,
                                            CVNewFile access = CVNewFile::Private);

/// Brings a folder's entries to the disk.
[[nodiscard]] CVFileResult CVSyncFolder(const QString& path);
