#include "app/CVOutsideChanges.h"

#include "app/CVAppDelegate.h"
#include "app/CVMergeOperations.h"
#include "app/CVReadingOperations.h"
#include "base/CVNotifications.h"
#include "model/CVDetachedDocument.h"
#include "model/CVTransactionSet.h"
#include "storage/CVDocumentFile.h"
#include "storage/CVDocumentXML.h"
#include "versions/CVVersionLimit.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QApplication>
#include <QDir>

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kUntilAskedAgain(200);
/// The disk may have room again.
constexpr std::chrono::seconds kUntilKeptAgain(30);

bool isUserBusy() {
    return QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
           CVTableOfOpenEditor(QApplication::focusWidget());
}

} // namespace

CVOutsideChanges::CVOutsideChanges(CVAppDelegate& app, CVDocumentFile& file) : mApp(app), mFile(file) {
    mAgain.setSingleShot(true);
    connect(&mAgain, &QTimer::timeout, this, &CVOutsideChanges::takeWhenIdle);
    connect(&mFile.saves(), &CVSaveQueue::changedOutside, this, &CVOutsideChanges::handle);
    connect(&mFile.saves(), &CVSaveQueue::saveStarted, this, [this] {
        mSavedNames = namesOfSets();
        mIsKept = mIsBeingKept = false;
    });
    connect(&mFile.saves(), &CVSaveQueue::stateKept, this, &CVOutsideChanges::handleKept);
    connect(&mFile.saves(), &CVSaveQueue::saveFinished, this, &CVOutsideChanges::handleSave);
}

void CVOutsideChanges::watch(const QString& path) {
    mWaiting.reset();
    mLastSaveFailed = mIsFileLost = false;
    mIsKept = mIsBeingKept = false;
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
    using Kind = CVOutsideChange::Kind;
    mIsFileLost = change.kind == Kind::Unreadable || (change.kind == Kind::Gone && !change.diskIsAway);
    if (change.kind == Kind::Unreadable || change.kind == Kind::Gone)
        status.setUnknown();
    const QString file = QDir::toNativeSeparators(change.path);
    switch (change.kind) {
    case Kind::Changed:
        mWaiting = change;
        return takeWhenIdle();
    case Kind::Unreadable:
        return status.remark(
            tr("What another program has put at “%1” cannot be read: %2. Your budget stays as it is, and Corvella "
               "tries again when the file changes.")
                .arg(file, change.reason));
    case Kind::Gone:
        return status.remark(
            tr("Your data file “%1” is not there any more. Your budget is still open here.").arg(file));
    case Kind::AsKnown:
        if (!mLastSaveFailed && !mFile.isReadOnly())
            status.setSaved();
        status.remark(tr("Your data file “%1” is again as Corvella last read or saved it.").arg(file));
        if (mLastSaveFailed)
            mApp.document().workbookSave();
    }
}

/// A save has found the change by itself, and told it.
void CVOutsideChanges::handleSave(const CVSaveOutcome& outcome) {
    // That of a former place says nothing of the present one.
    if (!outcome.path.isEmpty() && outcome.path != mFile.placeForSaving())
        return;
    mLastSaveFailed = !outcome.saved;
    if (!outcome.saved)
        return;
    mIsFileLost = false;
    // The data file was moved away from the change, which stays at the old place.
    if (mWaiting && outcome.path != mWatched)
        mApp.mergeOperations().offer({mWaiting->path, std::nullopt}, CVMergeWindow::Asked::ByItself);
    mWaiting.reset();
    if (outcome.path != mWatched)
        watch(outcome.path);
}

void CVOutsideChanges::takeWhenIdle() {
    if (!mWaiting || mIsBeingKept)
        return;
    if (isUserBusy() || !mFile.saves().isSettled())
        return mAgain.start(kUntilAskedAgain);
    // Changes on both sides: the save keeps the other's file.
    if (mLastSaveFailed || mSavedNames != namesOfSets()) {
        mWaiting.reset();
        mApp.document().workbookSave();
        return;
    }
    if (mIsKept || !mustKeepOurs())
        return take(*std::exchange(mWaiting, std::nullopt));
    mIsBeingKept = true;
    mFile.saves().keepState(mWaiting->path, CVDocumentXMLRepresentation(mApp.document()),
                            CVVersionLimit(mApp.document().userDefaults()));
}

/// Whoever only looks at the budget keeps nothing of it. Whoever wants no versions loses no line all the same.
bool CVOutsideChanges::mustKeepOurs() const {
    if (mFile.isReadOnly())
        return false;
    return CVVersionLimit(mApp.document().userDefaults()) > 0 || mApp.document().saysMoreThan(**mWaiting->budget);
}

void CVOutsideChanges::handleKept(const CVSaveOutcome& outcome) {
    // A save that was begun meanwhile has another state.
    const bool isOfOurs = std::exchange(mIsBeingKept, false);
    mIsKept = isOfOurs && outcome.versionTrouble.isEmpty();
    if (!isOfOurs || !mWaiting || mIsKept)
        return takeWhenIdle();
    mApp.mainWindow()->saveStatus().remark(
        tr("Another program has changed your data file. Its state is shown once yours can be kept: %1")
            .arg(outcome.versionTrouble));
    mAgain.start(kUntilKeptAgain);
}

void CVOutsideChanges::take(const CVOutsideChange& change) {
    CVDocument& document = mApp.document();
    const bool isKept = std::exchange(mIsKept, false);
    mFile.saves().accept(change);
    const bool isDifferent = document.takeOver(**change.budget);
    document.finishChanges();
    document.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet));
    mApp.mainWindow()->getStarted();
    mSavedNames = namesOfSets();
    if (isDifferent)
        mApp.mainWindow()->saveStatus().remark(tr("Another program has changed your data file; its state is shown"),
                                               isKept ? CVSaveStatus::Offer::Versions : CVSaveStatus::Offer::Nothing);
    tell(change);
}

/// What was not understood goes with the next save.
void CVOutsideChanges::tell(const CVOutsideChange& change) {
    if (change.partly.count > 0)
        mApp.readingOperations().tell({.outcome = CVLoadReport::Outcome::Loaded,
                                       .path = change.path,
                                       .reason = {},
                                       .partly = change.partly,
                                       .isReadOnly = mFile.isReadOnly()});
}
