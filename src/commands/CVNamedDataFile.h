#pragma once

#include <QString>

#include <optional>

class QBUserDefaults;
struct CVStandardFolders;

/// The data file that a command works on.
struct CVNamedDataFile {
    /// Empty when there is none; "-": standard input.
    QString path = {};
    /// Why it cannot be read; empty when it is there.
    QString problem = {};
    /// Whether the problem is that nothing is there.
    bool isMissing = false;

    /// `dataFile` is what --data says; absent: the user's own. Makes nothing.
    [[nodiscard]] static CVNamedDataFile find(const std::optional<QString>& dataFile, const CVStandardFolders& folders,
                                              const QBUserDefaults& defaults);
};
