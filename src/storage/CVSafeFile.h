#pragma once

#include "storage/CVFileResult.h"
#include "storage/CVFileSignature.h"

class CVDocumentText;

struct CVReplaceResult : CVFileResult {
    /// Of the new file, once it stands at its place, even when something failed after that.
    std::optional<CVFileSignature> written;
};

/// Replaces the file at `path` by `text`, so that at every moment, whatever fails, the old file or the new one stands
/// there whole. A symbolic link is followed, an existing file keeps its mode, a new one can be read by its owner alone.
/// Returns when the new file and its folder entry are on the disk. Failing: the reason. Nothing of the attempt is left
/// then, unless the file was replaced and only its folder could not be synced.
[[nodiscard]] CVReplaceResult CVReplaceFile(const QString& path, const CVDocumentText& text);

/// Brings a folder's entries to the disk.
[[nodiscard]] CVFileResult CVSyncFolder(const QString& path);
