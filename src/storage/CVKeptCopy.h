#pragma once

#include "storage/CVFileResult.h"

#include <QDateTime>

/// The outcome of setting a file aside: where it lies now (empty when there was nothing to keep), or why it could not
/// be kept.
struct CVKeptCopy {
    QString path;
    CVFileResult result;
};

/// Keeps what stands at `path`, a file or a folder, beside it as "NAME (unreadable YYYY-MM-DD HHMMSS).SUFFIX", without
/// replacing anything. A file stays where it is as well, wherever the file system allows it; a folder is moved.
[[nodiscard]] CVKeptCopy CVKeepUnreadable(const QString& path, const QDateTime& now);
