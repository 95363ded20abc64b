#include "app/CVAppDelegate.h"

#include "app/CVAboutWindow.h"
#include "app/CVConflictTeller.h"
#include "app/CVEditorWindows.h"
#include "app/CVEnding.h"
#include "app/CVHistoryOperations.h"
#include "app/CVImportOperations.h"
#include "app/CVLockOperations.h"
#include "app/CVMergeOperations.h"
#include "app/CVOutsideChanges.h"
#include "app/CVReadingOperations.h"
#include "app/CVReadingPanel.h"
#include "app/CVSupportMail.h"
#include "base/CVDefaultsKeys.h"
#include "base/CVSite.h"
#include "format/QBLocale.h"
#include "history/CVHistoryWindow.h"
#include "model/CVDocument.h"
#include "preferences/CVPreferenceWindowController.h"
#include "start/CVReadAtStart.h"
#include "versions/CVVersionLimit.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVHelpOpener.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainMenu.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"
#include "workspace/printing/CVPrintPanels.h"

#include <QApplication>
#include <QEventLoopLocker>
#include <QMainWindow>
#include <QScopedValueRollback>
#include <QSettings>
#include <QUrl>
#include <QWindow>

#include <utility>

namespace {

void showInFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

CVAppDelegate::CVAppDelegate(std::unique_ptr<QSettings> settings, CVStandardFolders folders, CVAlerts& alerts,
                             CVFilePanels& panels)
    : mAlerts(alerts)
    , mPanels(panels)
    , mUserDefaults(std::move(settings))
    , mFile(std::move(folders), mUserDefaults)
    , mUpdates(mUserDefaults, mNotificationCenter, alerts, *this)
    , mSaveTeller(alerts)
    , mHistoryOperations(std::make_unique<CVHistoryOperations>(*this, mFile, alerts, panels))
    , mOutsideChanges(std::make_unique<CVOutsideChanges>(*this, mFile))
    , mDocument(std::make_unique<CVDocument>(mNotificationCenter, mUserDefaults))
    , mImportOperations(std::make_unique<CVImportOperations>(*this, alerts, panels))
    , mMergeOperations(std::make_unique<CVMergeOperations>(*this))
    , mConflictTeller(std::make_unique<CVConflictTeller>(*this)) {
    mLockOperations = std::make_unique<CVLockOperations>(*this, mFile, alerts);
    mEnding = std::make_unique<CVEnding>(*this, mFile, alerts);
    mReadingOperations = std::make_unique<CVReadingOperations>(*this, mFile, alerts);
    connect(&mFile.saves(), &CVSaveQueue::saveFinished, this, &CVAppDelegate::handleSaveFinished);
    connect(&mUpdates, &CVUpdateController::preferencesRequested, this, &CVAppDelegate::showUpdatePreferences);
}

CVAppDelegate::~CVAppDelegate() = default;

void CVAppDelegate::setHelp(CVHelpOpener* help) {
    mHelp = help;
    mImportOperations->setHelp(help);
    mMergeOperations->setHelp(help);
}

void CVAppDelegate::setPrintPanels(CVPrintPanels* panels) {
    mPrintPanels = panels;
    if (panels)
        panels->spare([this] { return mFile.dataFiles(); });
}

bool CVAppDelegate::applicationDidFinishLaunching() {
    mUpdates.checkAutomatically(mUserDefaults.integerForKey(CVDefaultsKeys::kCheckUpdatesAutomatically));
    CVFileResult recovered;
    const auto report = CVReadAtStart(mFile.folders(), mUserDefaults, mAlerts, [this, &recovered]() -> CVLoadReport {
        const QStringList places = mFile.dataFiles();
        // Of two places the file was found at the last one.
        if (!mLockOperations->claim(places.isEmpty() ? QString() : places.constLast(), CVLockMessages::Asked::AtStart,
                                    nullptr))
            return {CVLoadReport::Outcome::Cancelled, {}, {}};
        mLockOperations->adopt();
        recovered = mFile.recoverInterruptedSaves();
        mDocument = std::make_unique<CVDocument>(mNotificationCenter, mUserDefaults);
        mFile.setReadingProgress(CVReadingPanel(CVReadingPanel::Reading::AtStart, nullptr));
        CVLoadReport read = mFile.initWithStandardUserFile(*mDocument);
        mFile.setReadingProgress({});
        return read;
    });
    if (!report)
        return false;
    makeWindowControllers();
    mOutsideChanges->watch(report->path);
    mReadingOperations->showWhetherSaved(*report);
    if (!recovered.ok())
        mMainWindow->saveStatus().remark(
            tr("What an interrupted save has left could not be put in order: %1").arg(recovered.error));
    if (mWantsUpdatePreferences)
        showUpdatePreferences();
    // About a file that was not read the user has been asked.
    if (report->outcome != CVLoadReport::Outcome::NotRead)
        mReadingOperations->tell(*report);
    return true;
}

void CVAppDelegate::makeWindowControllers() {
    mMainWindow = std::make_unique<CVMainWindowController>(*mDocument, mAlerts, mPanels);
    // The budget that another one replaces was saved before.
    mMainWindow->setMayClose([this] { return mIsReopening || mEnding->mayClose(); });
    mEditorWindows = std::make_unique<CVEditorWindows>(
        *mDocument, mAlerts, mHelp, *mMainWindow->window(), [this] { showPreferences(); },
        [this](int count) { mMainWindow->remarkRemoval(count); },
        [this](const QString& from, const QString& into) { mMainWindow->remarkMerge(from, into); });
    mMainWindow->setDocumentWindows(mEditorWindows.get());
    mMainWindow->setPrintPanels(mPrintPanels);
    connect(mMainWindow.get(), &CVMainWindowController::applicationCommandChosen, this, &CVAppDelegate::carryOut);
    // The program that a file is dragged from waits until the drop is answered.
    connect(mMainWindow.get(), &CVMainWindowController::fileDropped, mImportOperations.get(),
            &CVImportOperations::importFile, Qt::QueuedConnection);
    CVSaveStatus& status = mMainWindow->saveStatus();
    connect(&mFile.saves(), &CVSaveQueue::saveStarted, &status, &CVSaveStatus::setSaving);
    connect(&status, &CVSaveStatus::tryAgain, this, [this] { mDocument->workbookSave(); });
    connect(&status, &CVSaveStatus::makeRoom, this, &CVAppDelegate::showDataFilePreferences);
    mLockOperations->showIn(*mMainWindow);
    mMainWindow->showWindow();
    mConflictTeller->start();
}

void CVAppDelegate::handleSaveFinished(const CVSaveOutcome& outcome) {
    mLockOperations->saveFinished();
    if (mEnding->hasBegun())
        return;
    // Another program's file beside a former place has nothing to do with this budget.
    if (outcome.keptIsBudget && outcome.path == mFile.placeForSaving() && mSaveTeller.markAsTold(outcome.keptCopy))
        offer(outcome);
    mSaveTeller.tell(outcome, *mMainWindow, mFile.saves().isSaving(), mPreferences.get());
    if (mHistory)
        mHistory->versionsChanged();
}

void CVAppDelegate::offer(const CVSaveOutcome& outcome) {
    mMainWindow->saveStatus().remark(
        tr("Another program has changed your data file too. Both states are kept, and you choose what comes in."));
    mMergeOperations->offer({outcome.keptCopy, outcome.common}, CVMergeWindow::Asked::ByItself);
}

void CVAppDelegate::carryOut(CVCommand command) {
    switch (command) {
    case CVCommand::Import:
        return mImportOperations->importChosenFile();
    case CVCommand::ImportFromClipboard:
        return mImportOperations->importClipboard();
    case CVCommand::TakeBackImport:
        return mImportOperations->takeBack();
    case CVCommand::EarlierVersions:
        return showEarlierVersions();
    case CVCommand::ChangesFromElsewhere:
        return mMergeOperations->showAll();
    case CVCommand::ShowHelp:
        return showHelp();
    case CVCommand::ContactSupport:
        return contactTechSupport();
    case CVCommand::WebSite:
        return goToWebSite();
    case CVCommand::SupportForums:
        return goToSupportForums();
    case CVCommand::CheckForNewVersion:
        return checkForNewVersion(*mMainWindow->window());
    case CVCommand::About:
        return showAbout();
    default:
        break;
    }
}

void CVAppDelegate::showPreferences() {
    CVPreferenceHost& host = *this;
    if (!mPreferences) {
        mPreferences = std::make_unique<CVPreferenceWindowController>(*mDocument, host, mAlerts, mPanels, mHelp);
        connect(mPreferences.get(), &CVPreferenceWindowController::cleared, this, &CVAppDelegate::remarkClearing);
    }
    keepInFront(*mPreferences);
    mPreferences->showWindow();
}

void CVAppDelegate::showEarlierVersions() {
    if (!mHistory)
        mHistory = std::make_unique<CVHistoryWindow>(*mDocument, *mHistoryOperations, mAlerts, mHelp);
    keepInFront(*mHistory);
    mHistory->showWindow();
}

void CVAppDelegate::keepInFront(QWidget& window) {
    window.winId();
    window.windowHandle()->setTransientParent(mMainWindow->window()->windowHandle());
}

/// Versions keep what was cleared, which the user is to know, also when only former ones are left.
void CVAppDelegate::remarkClearing(int transactions) {
    const QString cleared = transactions == 1
                                ? tr("Your data was cleared: 1 transaction removed")
                                : tr("Your data was cleared: %1 transactions removed", nullptr, transactions)
                                      .arg(QBLocaleInForce().toString(transactions));
    if (CVVersionLimit(mUserDefaults) > 0 || mConflictTeller->filesBeside().hasEarlier)
        mMainWindow->saveStatus().remark(tr("%1; earlier versions are kept").arg(cleared),
                                         CVSaveStatus::Offer::Versions);
    else
        mMainWindow->saveStatus().remark(cleared);
}

void CVAppDelegate::showUpdatePreferences() {
    mWantsUpdatePreferences = !mMainWindow;
    if (mWantsUpdatePreferences)
        return;
    showPreferences();
    mPreferences->displayUpdatePane();
}

void CVAppDelegate::showDataFilePreferences() {
    showPreferences();
    mPreferences->displayDataFilePane();
}

void CVAppDelegate::showHelp() {
    if (mHelp)
        mHelp->showHelpPage(QStringLiteral("index.html"), *mMainWindow->window());
}

void CVAppDelegate::contactTechSupport() {
    mUpdates.openAddress(CVMakeSupportMailAddress(CVSystemIdentity::ofThisMachine()), mMainWindow->window());
}

void CVAppDelegate::goToWebSite() {
    mUpdates.openAddress(QUrl(CVSite::webSite()), mMainWindow->window());
}

void CVAppDelegate::goToSupportForums() {
    mUpdates.openAddress(QUrl(CVSite::supportForums()), mMainWindow->window());
}

void CVAppDelegate::showAbout() {
    CVAboutWindow about(mMainWindow->window());
    connect(&about, &CVAboutWindow::webPageRequested, this,
            [this, &about](const QUrl& address) { mUpdates.openAddress(address, &about); });
    about.exec();
}

void CVAppDelegate::checkForNewVersion(QWidget& asker) {
    mUpdates.checkNow(asker);
}

QString CVAppDelegate::waitForSaves() {
    CVCommitOpenEditor(mMainWindow->window()->focusWidget());
    const auto outcome = mFile.saves().waitForFinished(CVEnding::kLastPatience);
    if (!outcome)
        return mEnding->whatIsNotSaved();
    return outcome->saved ? QString() : outcome->message;
}

bool CVAppDelegate::claimPlace(const QString& path, PlaceUse use, QWidget& asker) {
    return mLockOperations->claim(
        path, use == PlaceUse::Opened ? CVLockMessages::Asked::ForOtherFile : CVLockMessages::Asked::ForReplacing,
        &asker);
}

void CVAppDelegate::settlePlace() {
    mLockOperations->settle();
}

std::optional<QString> CVAppDelegate::reopenDocument() {
    return mReadingOperations->reopen();
}

void CVAppDelegate::startNewDocument() {
    mReadingOperations->startNew();
}

QString CVAppDelegate::moveVersions(const QString& from, const QString& to) {
    return mHistoryOperations->moveVersions(from, to);
}

void CVAppDelegate::versionsDeleted() {
    if (mHistory)
        mHistory->versionsChanged();
}

void CVAppDelegate::replaceDocument(std::unique_ptr<CVDocument> document) {
    // Without the locker the program would end when its last window closes.
    const QEventLoopLocker locker;
    const QScopedValueRollback reopening(mIsReopening, true);
    // Closing the window stores its frame for the next one.
    mMainWindow->window()->close();
    setDocument(std::move(document));
}

void CVAppDelegate::setDocument(std::unique_ptr<CVDocument> document) {
    mImportOperations->forget();
    mMainWindow.reset();
    mEditorWindows.reset();
    mDocument = std::move(document);
    makeWindowControllers();
    // A window is placed in front of another one only when it is shown, so both are shown anew.
    if (mPreferences) {
        mPreferences->setDocument(*mDocument);
        if (mPreferences->isVisible()) {
            mPreferences->hide();
            showPreferences();
        }
    }
    if (mHistory) {
        mHistory->setDocument(*mDocument);
        if (mHistory->isVisible()) {
            mHistory->hide();
            showEarlierVersions();
        }
    }
    mMergeOperations->setDocument(*mDocument);
    mImportOperations->setDocument(*mDocument);
}

void CVAppDelegate::comeToFront() {
    if (mMainWindow)
        showInFront(*mMainWindow->window());
    // A modal window must be in front of the window that it blocks.
    if (QWidget* const modal = QApplication::activeModalWidget())
        showInFront(*modal);
}
