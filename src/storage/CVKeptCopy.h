#pragma once

#include "base/CVFileResult.h"

#include <QDateTime>

/// The outcome of keeping the file or folder at a path: where it is now (empty when there was nothing to keep), or why
/// it could not be kept, in a sentence that names the file only when a link leads to it.
struct CVKeptCopy {
    QString path;
    CVFileResult result;
    /// Whether it was moved, so that nothing is left at its old place.
    bool moved = false;

    /// Keeps the file or folder at `place` beside it as "NAME (unreadable YYYY-MM-DD HHMMSS).SUFFIX", without replacing
    /// anything. A file that can be read also stays at `place`; anything else is moved.
    [[nodiscard]] static CVKeptCopy keepUnreadable(const QString& place, const QDateTime& now);
    /// Moves the kept file or folder from `path` back to `place`, unless something else is there by now; false when
    /// that failed.
    bool putBack(const QString& place) const;
};
