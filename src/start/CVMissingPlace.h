#pragma once

#include "storage/CVStandardDataFile.h"

#include <QList>

class CVAlerts;
class QBUserDefaults;

/// A stored place of the data file where nothing is: its memory stick is not plugged in, its network share not mounted,
/// or the file was removed. The search would pass over it without a word.
struct CVMissingPlace {
    QString missing;
    /// What the search finds instead; absent when that is nothing.
    std::optional<QString> other;

    friend bool operator==(const CVMissingPlace&, const CVMissingPlace&) = default;

    /// Absent when the stored place is not missing, and when none is stored, as at the first start.
    [[nodiscard]] static std::optional<CVMissingPlace> of(const CVStandardFolders& folders,
                                                          const QBUserDefaults& defaults);

    enum class Choice {
        TryAgain,
        /// Runs the search, which stores what it finds.
        OpenOther,
        /// Removes the stored place, so that the search finds nothing and the first save makes a new file.
        StartNew,
        Quit
    };
    /// What the user can choose here.
    [[nodiscard]] QList<Choice> choices() const;

    enum class Next { Search, Ask, Quit };
    /// Carries the user's choice out. A file that has come back meanwhile is opened.
    [[nodiscard]] Next carryOut(Choice choice, const CVStandardFolders& folders, QBUserDefaults& defaults) const;

    /// Asks the user as long as the stored place is missing; false when the user wants to quit.
    [[nodiscard]] static bool settle(const CVStandardFolders& folders, QBUserDefaults& defaults, CVAlerts& alerts);
};
