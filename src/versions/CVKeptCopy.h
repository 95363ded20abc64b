#pragma once

#include "files/CVFileResult.h"
#include "versions/CVKeptReason.h"

#include <QDateTime>
#include <QStringList>

/// The outcome of keeping the file or folder at a path: where it is now (empty when there was nothing to keep), or why
/// it could not be kept, in a sentence that names the file only when a link leads to it.
struct CVKeptCopy {
    QString path;
    CVFileResult result;
    /// Whether it was moved, so that nothing is left at its old place.
    bool moved = false;

    /// Keeps the file or folder at `place` beside it under a `CVKeptName`, without replacing anything. A file that can
    /// be read also stays at `place`; anything else is moved.
    [[nodiscard]] static CVKeptCopy keep(const QString& place, CVKeptReason reason, const QDateTime& now);
    /// Gives such a name to `former`, a file or folder that stood at `place` until another one took the place.
    [[nodiscard]] static CVKeptCopy keepFormer(const QString& former, const QString& place, CVKeptReason reason,
                                               const QDateTime& now);
    /// Moves the kept file or folder from `path` back to `place`, unless something else is there by now; false when
    /// that failed.
    bool putBack(const QString& place) const;

    /// The files that were kept beside the data file, those of each reason newest name first.
    [[nodiscard]] static QStringList beside(const QString& dataFile);
    /// Whether a copy of the data file that is kept could have that name.
    [[nodiscard]] static bool isNameOfOne(const QString& fileName, const QString& dataFile);
};
