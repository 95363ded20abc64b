#pragma once

#include "base/CVFileResult.h"
#include "base/CVFileSignature.h"

#include <functional>

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
    std::optional<CVFileSignature> written;
};

/// Replaces the file at `path` by what `write` writes. At every moment, whatever fails, either the old file or the new
/// one is there whole. Follows symbolic links; an existing file keeps its mode. Returns when the new file and its
/// folder entry are on the disk. On failure it answers the reason and leaves nothing behind, unless the file was
/// replaced and only syncing its folder failed.
[[nodiscard]] CVReplaceResult CVReplaceFile(const QString& path, const CVFileContent& write,
                                            CVNewFile access = CVNewFile::Private);

/// Syncs a folder's entries to the disk.
[[nodiscard]] CVFileResult CVSyncFolder(const QString& path);
