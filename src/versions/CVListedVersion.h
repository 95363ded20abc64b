#pragma once

#include "versions/CVVersionName.h"

#include <QList>

/// An earlier state of the budget that can be looked at: a version, or a copy that was kept because it was unreadable
/// or another program had written it.
struct CVListedVersion {
    QString path;
    /// When it ceased to be the present state; invalid when its name does not say.
    QDateTime kept;
    /// Why it was kept; absent for a kept copy.
    std::optional<CVVersionReason> reason;

    friend bool operator==(const CVListedVersion&, const CVListedVersion&) = default;

    /// The versions and the kept copies of a data file, newest first.
    [[nodiscard]] static QList<CVListedVersion> of(const QString& dataFile);
};
