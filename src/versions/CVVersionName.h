#pragma once

#include "model/CVVersionReason.h"

#include <QDateTime>
#include <QString>

#include <optional>

/// Why a version was kept, in the words of its file name.
[[nodiscard]] QString CVWordsFor(CVVersionReason reason);

/// The file name of an earlier version, "NAME YYYY-MM-DD HHMMSS (why).SUFFIX": when it ceased to be the present state,
/// in local time, and why it was kept. A number follows the time where several were kept in one second. The words are
/// English whatever the user's language, because a folder may be read under another one.
struct CVVersionName {
    QDateTime kept;
    int number = 1;
    CVVersionReason reason = CVVersionReason::Hourly;

    /// Reads the name of a version of the data file of that name; absent for another name.
    [[nodiscard]] static std::optional<CVVersionName> parse(const QString& fileName, const QString& dataFileName);
    [[nodiscard]] QString fileName(const QString& dataFileName) const;
};
