#include "storage/CVStandardDataFile.h"

#include "base/CVBundle.h"
#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "files/CVMakePrivate.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace {

constexpr QLatin1StringView kFile(CVBundle::kDataFileName);
constexpr QLatin1StringView kFolder("/Quenby Labs/Corvella");
/// The folder of an earlier version, which is searched but never made.
constexpr QLatin1StringView kOlderFolder("/Quenby/Corvella");

void store(QBUserDefaults& defaults, const QString& path) {
    defaults.setString(CVDefaultsKeys::kDataFileLocation, path);
    defaults.synchronize();
}

std::optional<QString> locateExisting(const CVStandardFolders& folders, QBUserDefaults& defaults) {
    auto path = CVFindDataFile(folders, defaults);
    if (path && path != defaults.stringForKey(CVDefaultsKeys::kDataFileLocation))
        store(defaults, *path);
    return path;
}

std::optional<QString> locateForSaving(const CVStandardFolders& folders, QBUserDefaults& defaults) {
    auto path = CVPathForSaving(folders, defaults);
    if (!path || defaults.stringForKey(CVDefaultsKeys::kDataFileLocation))
        return path;
    if (!CVMakePrivateFolder(folders.applicationSupport + kFolder).ok())
        return std::nullopt;
    store(defaults, *path);
    return path;
}

} // namespace

CVStandardFolders CVStandardFolders::ofUser() {
    return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
            QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)};
}

std::optional<QString> CVPathForSaving(const CVStandardFolders& folders, const QBUserDefaults& defaults) {
    if (auto preferred = defaults.stringForKey(CVDefaultsKeys::kDataFileLocation))
        return preferred;
    if (folders.applicationSupport.isEmpty())
        return std::nullopt;
    return folders.applicationSupport + kFolder + '/' + kFile;
}

std::optional<QString> CVMissingDataFile(const QBUserDefaults& defaults) {
    auto stored = defaults.stringForKey(CVDefaultsKeys::kDataFileLocation);
    return stored && !QFileInfo::exists(*stored) ? stored : std::nullopt;
}

std::optional<QString> CVFindDataFile(const CVStandardFolders& folders, const QBUserDefaults& defaults) {
    auto preferred = defaults.stringForKey(CVDefaultsKeys::kDataFileLocation);
    if (preferred && QFileInfo(*preferred).isFile())
        return preferred;
    struct Place {
        const QString& base;
        QLatin1StringView folder;
    };
    for (const Place& place : {Place{folders.documents, kFolder}, Place{folders.applicationSupport, kFolder},
                               Place{folders.applicationSupport, kOlderFolder}}) {
        const QString path = place.base + place.folder + '/' + kFile;
        if (!place.base.isEmpty() && QFileInfo(path).isFile())
            return path;
    }
    return std::nullopt;
}

QStringList CVOwnDataFiles(const CVStandardFolders& folders, const QBUserDefaults& defaults) {
    QStringList files;
    for (const auto& file : {CVPathForSaving(folders, defaults), CVFindDataFile(folders, defaults)}) {
        if (file && !files.contains(*file))
            files.append(*file);
    }
    return files;
}

std::optional<QString> CVStandardDataFileURL(CVLookForExisting look, const CVStandardFolders& folders,
                                             QBUserDefaults& defaults) {
    return look == CVLookForExisting::Yes ? locateExisting(folders, defaults) : locateForSaving(folders, defaults);
}
