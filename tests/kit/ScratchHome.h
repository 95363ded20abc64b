#pragma once

#include "storage/CVStandardDataFile.h"

#include <QTemporaryDir>

#include <memory>

class QBUserDefaults;
class QSettings;

/// A new, empty home folder whose path contains a space. The folder is deleted with this object.
class ScratchHome final {
public:
    ScratchHome();
    ~ScratchHome();
    ScratchHome(const ScratchHome&) = delete;
    ScratchHome& operator=(const ScratchHome&) = delete;

    [[nodiscard]] QString path() const { return mFolder.path(); }
    /// The full path of something in the home folder.
    [[nodiscard]] QString path(const QString& name) const { return mFolder.filePath(name); }
    [[nodiscard]] CVStandardFolders folders() const;

    [[nodiscard]] QBUserDefaults& userDefaults() { return *mUserDefaults; }
    /// Opens the same settings file again, as the next start of the program does (after `synchronize`).
    [[nodiscard]] std::unique_ptr<QSettings> settingsStore() const;

private:
    QTemporaryDir mFolder;
    std::unique_ptr<QBUserDefaults> mUserDefaults;
};
