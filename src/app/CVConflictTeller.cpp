#include "app/CVConflictTeller.h"

#include "app/CVAppDelegate.h"
#include "app/CVMergeOperations.h"
#include "base/CVDefaultsKeys.h"
#include "files/CVReplaceFile.h"
#include "format/QBLocale.h"
#include "model/CVDocument.h"
#include "versions/CVConflictCopies.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QDateTime>
#include <QFileInfo>

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kFolderSettles(1000);
/// More copies than anybody keeps beside one file; the settings hold no more.
constexpr qsizetype kMostTold = 100;

/// Another size or time is another copy.
QString stateOf(const QString& path) {
    const QFileInfo file(path);
    return QString::number(file.size()) + u' ' + QString::number(file.lastModified().toMSecsSinceEpoch());
}

} // namespace

CVConflictTeller::CVConflictTeller(CVAppDelegate& app) : mApp(app) {
    mSettles.setSingleShot(true);
    mSettles.setInterval(kFolderSettles);
    connect(&mSettles, &QTimer::timeout, this, &CVConflictTeller::look);
    connect(&mFolder, &QFileSystemWatcher::directoryChanged, &mSettles, qOverload<>(&QTimer::start));
}

void CVConflictTeller::start() {
    connect(&mApp.mainWindow()->saveStatus(), &CVSaveStatus::otherFileRequested, this, &CVConflictTeller::offer,
            Qt::UniqueConnection);
    if (const QStringList former = mFolder.directories(); !former.isEmpty())
        mFolder.removePaths(former);
    const QString dataFile = mApp.document().dataFiles().value(0);
    if (const QFileInfo folder(QFileInfo(CVFollowLinks(dataFile)).absolutePath()); folder.isDir())
        mFolder.addPath(folder.filePath());
    look();
}

void CVConflictTeller::look() {
    // Nothing can be brought into a budget that is only looked at; the copies are told when it can be changed.
    const QStringList copies = mApp.isReadOnly() ? QStringList() : takeUntold();
    if (copies.isEmpty())
        return;
    mTold += copies;
    const auto count = static_cast<int>(copies.size());
    const QString remark =
        count == 1
            ? tr("A synchronizer has left a copy of your data file with changes from elsewhere: “%1”")
                  .arg(QFileInfo(copies.constFirst()).fileName())
            : tr("A synchronizer has left %1 copies of your data file with changes from elsewhere", nullptr, count)
                  .arg(QBLocaleInForce().toString(count));
    mApp.mainWindow()->saveStatus().remark(remark, CVSaveStatus::Offer::OtherFile);
}

/// The copies that nobody was told about, which count as told from now on. Those that are gone are forgotten.
QStringList CVConflictTeller::takeUntold() {
    QBUserDefaults& defaults = mApp.document().userDefaults();
    const QVariantMap told = defaults.dictionaryForKey(CVDefaultsKeys::kToldConflictCopies);
    QVariantMap present;
    QStringList untold;
    for (const QString& path : CVConflictCopies::beside(mApp.document().dataFiles().value(0)).mid(0, kMostTold)) {
        const QString state = stateOf(path);
        present.insert(path, state);
        if (told.value(path).toString() != state)
            untold.append(path);
    }
    if (present != told)
        defaults.setDictionary(CVDefaultsKeys::kToldConflictCopies, present);
    return untold;
}

void CVConflictTeller::offer() {
    for (const QString& path : std::exchange(mTold, {}))
        mApp.mergeOperations().offer({path, std::nullopt});
}
