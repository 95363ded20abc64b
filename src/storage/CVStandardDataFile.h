#pragma once

#include <QStringList>

#include <optional>

class QBUserDefaults;

/// The user's base folders in which the data file is searched; empty when the platform names none.
struct CVStandardFolders {
    QString applicationSupport;
    QString documents;

    [[nodiscard]] static CVStandardFolders ofUser();
};

enum class CVLookForExisting : bool { No, Yes };

/// Where the data file is to be saved, without making or storing anything: the preference, else the standard place.
/// Absent when there is neither.
[[nodiscard]] std::optional<QString> CVPathForSaving(const CVStandardFolders& folders, const QBUserDefaults& defaults);

/// The paths of the user's own data file and of the place where it is to be saved, which no output may take. Makes and
/// stores nothing.
[[nodiscard]] QStringList CVOwnDataFiles(const CVStandardFolders& folders, const QBUserDefaults& defaults);

/// The stored path of the data file where nothing is there, for instance because its disk is not mounted. Absent when
/// something is there and when no path is stored.
[[nodiscard]] std::optional<QString> CVMissingDataFile(const QBUserDefaults& defaults);

/// Where opening would find the data file, without storing that; absent when there is none.
[[nodiscard]] std::optional<QString> CVFindDataFile(const CVStandardFolders& folders, const QBUserDefaults& defaults);

/// Where the data file is (Yes, for opening) or is to be (No, for saving). Opening tries the preference "Data File
/// Location", then the standard places, and stores where it found the file; absent when there is none. Saving takes the
/// preference without checking it, else makes the standard folder and stores the path; absent when that fails.
[[nodiscard]] std::optional<QString> CVStandardDataFileURL(CVLookForExisting look, const CVStandardFolders& folders,
                                                           QBUserDefaults& defaults);
