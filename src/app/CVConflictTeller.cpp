#include "app/CVConflictTeller.h"

#include "app/CVAppDelegate.h"
#include "app/CVMergeOperations.h"
#include "base/CVDefaultsKeys.h"
#include "format/QBLocale.h"
#include "model/CVDocument.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QFileInfo>

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kFolderSettles(1000);
/// More copies than anybody keeps beside one file; the settings hold no more.
constexpr qsizetype kMostTold = 100;

} // namespace

CVConflictTeller::CVConflictTeller(CVAppDelegate& app) : mApp(app) {
    mSettles.setSingleShot(true);
    mSettles.setInterval(kFolderSettles);
    connect(&mSettles, &QTimer::timeout, this, &CVConflictTeller::tell);
    connect(&app.saves(), &CVSaveQueue::filesBesideChanged, this, &CVConflictTeller::take);
}

void CVConflictTeller::start() {
    connect(&mApp.mainWindow()->saveStatus(), &CVSaveStatus::otherFileRequested, this, &CVConflictTeller::offer,
            Qt::UniqueConnection);
    tell();
}

void CVConflictTeller::take(const CVFilesBeside& files) {
    const bool isSettled = mBeside.dataFile != files.dataFile;
    mBeside = files;
    if (isSettled)
        tell();
    else
        mSettles.start();
}

void CVConflictTeller::tell() {
    // Another data file is open by now; what lies beside it will be known soon.
    if (mBeside.dataFile.isEmpty() || mBeside.dataFile != mApp.document().placeForSaving())
        return;
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
    for (const auto& [path, state] : mBeside.conflictCopies.mid(0, kMostTold)) {
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
