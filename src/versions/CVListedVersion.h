#pragma once

#include "versions/CVKeptReason.h"
#include "versions/CVVersionName.h"

#include <QList>

/// An earlier state of the budget that can be looked at: a version, or a copy of a file that this program did not
/// write.
struct CVListedVersion {
    QString path;
    /// When it ceased to be the present state; invalid when its name does not say.
    QDateTime kept;
    /// Why the version was kept; absent for a kept copy.
    std::optional<CVVersionReason> reason;
    /// Why the copy was kept; absent for a version.
    std::optional<CVKeptReason> copyReason = {};

    friend bool operator==(const CVListedVersion&, const CVListedVersion&) = default;

    /// The versions and the kept copies of a data file, newest first.
    [[nodiscard]] static QList<CVListedVersion> of(const QString& dataFile);
};
