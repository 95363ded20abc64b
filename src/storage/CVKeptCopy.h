#pragma once

#include "base/CVFileResult.h"

#include <QDateTime>

/// The outcome of keeping what stood at a path: where it lies now (empty when there was nothing to keep), or why it
/// could not be kept, in a sentence that names the file only where a link leads to it.
struct CVKeptCopy {
    QString path;
    CVFileResult result;
    /// It was moved there, so that nothing stands at its old place.
    bool moved = false;
};

/// Keeps what stands at `path`, a file or a folder, beside it as "NAME (unreadable YYYY-MM-DD HHMMSS).SUFFIX", without
/// replacing anything. A file that can be read stays where it is as well; anything else is moved.
[[nodiscard]] CVKeptCopy CVKeepUnreadable(const QString& path, const QDateTime& now);
/// Moves what was moved away back to `path`, unless something else stands there by now; false when that failed.
bool CVPutBack(const CVKeptCopy& kept, const QString& path);
