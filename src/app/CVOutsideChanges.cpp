#include "app/CVOutsideChanges.h"

#include "app/CVAppDelegate.h"
#include "base/CVNotifications.h"
#include "model/CVDetachedDocument.h"
#include "model/CVTransactionSet.h"
#include "storage/CVDocumentFile.h"
#include "storage/CVDocumentXML.h"
#include "versions/CVVersionLimit.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kUntilAskedAgain(200);

/// Whether a cell's editor has the focus.
bool isCellBeingEdited() {
    QWidget* const focused = QApplication::focusWidget();
    for (QWidget* above = focused ? focused->parentWidget() : nullptr; above; above = above->parentWidget()) {
        if (qobject_cast<QAbstractItemView*>(above))
            return true;
    }
    return false;
}

bool isUserBusy() {
    return QApplication::activeModalWidget() || QApplication::activePopupWidget() || isCellBeingEdited();
}

} // namespace

CVOutsideChanges::CVOutsideChanges(CVAppDelegate& app, CVDocumentFile& file) : mApp(app), mFile(file) {
    mAgain.setSingleShot(true);
    mAgain.setInterval(kUntilAskedAgain);
    connect(&mAgain, &QTimer::timeout, this, &CVOutsideChanges::takeWhenIdle);
    connect(&mFile.saves(), &CVSaveQueue::changedOutside, this, &CVOutsideChanges::handle);
    connect(&mFile.saves(), &CVSaveQueue::saveStarted, this, [this] { mSavedNames = namesOfSets(); });
    connect(&mFile.saves(), &CVSaveQueue::saveFinished, this, &CVOutsideChanges::handleSave);
}

void CVOutsideChanges::watch(const QString& path) {
    mWaiting.reset();
    mLastSaveFailed = false;
    mWatched = path;
    mSavedNames = namesOfSets();
    mFile.saves().watch(path);
}

QStringList CVOutsideChanges::namesOfSets() const {
    QStringList names;
    for (const auto& set : mApp.document().transactionSets())
        names.append(set->transactionSetName());
    return names;
}

void CVOutsideChanges::handle(const CVOutsideChange& change) {
    mWaiting.reset();
    if (change.path != mWatched)
        return;
    CVSaveStatus& status = mApp.mainWindow()->saveStatus();
    const QString file = QDir::toNativeSeparators(change.path);
    switch (change.kind) {
    case CVOutsideChange::Kind::Changed:
        mWaiting = change;
        return takeWhenIdle();
    case CVOutsideChange::Kind::Unreadable:
        return status.remark(
            tr("What another program has put at “%1” cannot be read: %2. Your budget stays as it is, and Corvella "
               "tries again when the file changes.")
                .arg(file, change.reason));
    case CVOutsideChange::Kind::Gone:
        return status.remark(
            tr("Your data file “%1” is not there any more. Your budget is still open here.").arg(file));
    case CVOutsideChange::Kind::AsKnown:
        status.remark(tr("Your data file “%1” is again as Corvella last read or saved it.").arg(file));
        if (mLastSaveFailed)
            mApp.document().workbookSave();
    }
}

/// A save has found the change by itself, and told it.
void CVOutsideChanges::handleSave(const CVSaveOutcome& outcome) {
    mLastSaveFailed = !outcome.saved;
    if (!outcome.saved)
        return;
    mWaiting.reset();
    if (outcome.path != mWatched)
        watch(outcome.path);
}

void CVOutsideChanges::takeWhenIdle() {
    if (!mWaiting)
        return;
    if (isUserBusy() || mFile.saves().isSaving())
        return mAgain.start();
    // Changes on both sides: the save keeps the other's file.
    if (mLastSaveFailed || mSavedNames != namesOfSets()) {
        mWaiting.reset();
        mApp.document().workbookSave();
        return;
    }
    take(*std::exchange(mWaiting, std::nullopt));
}

void CVOutsideChanges::take(const CVOutsideChange& change) {
    CVDocument& document = mApp.document();
    // Whoever only looks at the budget keeps no versions of it.
    const qint64 limit = mFile.isReadOnly() ? 0 : CVVersionLimit(document.userDefaults());
    mFile.saves().takeOver(change, CVDocumentXMLRepresentation(document), limit);
    const bool isDifferent = document.takeOver(**change.budget);
    document.finishChanges();
    document.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet));
    mApp.mainWindow()->getStarted();
    mSavedNames = namesOfSets();
    if (isDifferent)
        mApp.mainWindow()->saveStatus().remark(tr("Another program has changed your data file; its state is shown"),
                                               limit > 0 ? CVSaveStatus::Offer::Versions
                                                         : CVSaveStatus::Offer::Nothing);
}
