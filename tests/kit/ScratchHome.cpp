#include "kit/ScratchHome.h"

#include "base/QBUserDefaults.h"

#include <QDir>
#include <QSettings>

ScratchHome::ScratchHome()
    : mFolder(QDir::temp().filePath(QStringLiteral("corvella test XXXXXX")))
    , mUserDefaults(std::make_unique<QBUserDefaults>(settingsStore())) {
    if (!mFolder.isValid())
        qFatal("no scratch folder: %s", qPrintable(mFolder.errorString()));
}

ScratchHome::~ScratchHome() = default;

CVStandardFolders ScratchHome::folders() const {
    return {path(QStringLiteral("Application Support")), path(QStringLiteral("My Documents"))};
}

std::unique_ptr<QSettings> ScratchHome::settingsStore() const {
    return std::make_unique<QSettings>(path(QStringLiteral("settings.ini")), QSettings::IniFormat);
}
