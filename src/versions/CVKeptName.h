#pragma once

#include "versions/CVKeptReason.h"

#include <QDateTime>
#include <QString>

#include <optional>

/// Why a copy was kept, in the words of its file name.
[[nodiscard]] QString CVWordsFor(CVKeptReason reason);

/// The file name of a kept copy, "NAME (why YYYY-MM-DD HHMMSS).SUFFIX": why it was kept, and when, in local time. A
/// number follows the time where several were kept in one second. The words are English whatever the user's language,
/// because a folder may be read under another one.
struct CVKeptName {
    CVKeptReason reason = CVKeptReason::Unreadable;
    /// Invalid when there is no such time here.
    QDateTime kept;
    int number = 1;

    /// Reads the name of a kept copy of the data file of that name; absent for another name.
    [[nodiscard]] static std::optional<CVKeptName> parse(const QString& fileName, const QString& dataFileName);
    [[nodiscard]] QString fileName(const QString& dataFileName) const;
};
