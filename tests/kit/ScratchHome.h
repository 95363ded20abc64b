#pragma once

#include "storage/CVStandardDataFile.h"

#include <QTemporaryDir>

#include <memory>

class QBUserDefaults;
class QSettings;

/// A home folder of its own, whose path has a space; it goes with this object. Nothing in it exists at first.
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

    /// The settings in this home.
    [[nodiscard]] QBUserDefaults& userDefaults() { return *mUserDefaults; }
    /// Another look at the same settings file, as the next start of the program would have it (after `synchronize`).
    [[nodiscard]] std::unique_ptr<QSettings> settingsStore() const;

private:
    QTemporaryDir mFolder;
    std::unique_ptr<QBUserDefaults> mUserDefaults;
};
