#include "app/CVAppDelegate.h"

#include "app/CVAboutWindow.h"
#include "app/CVConflictTeller.h"
#include "app/CVEditorWindows.h"
#include "app/CVFileMessages.h"
#include "app/CVHistoryOperations.h"
#include "app/CVLockOperations.h"
#include "app/CVMergeOperations.h"
#include "app/CVOutsideChanges.h"
#include "app/CVReadingPanel.h"
#include "app/CVSupportMail.h"
#include "base/CVDefaultsKeys.h"
#include "base/CVSite.h"
#include "editors/CVEditorWindow.h"
#include "format/QBLocale.h"
#include "history/CVHistoryWindow.h"
#include "model/CVDetachedDocument.h"
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
#include <QDialog>
#include <QEventLoopLocker>
#include <QMainWindow>
#include <QScopedValueRollback>
#include <QSettings>
#include <QTimer>
#include <QUrl>
#include <QWindow>

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kBetweenWindows(20);
/// A disk that takes longer to save does not answer. Whoever closes the window is asked then.
constexpr std::chrono::seconds kPatience(2);
/// Who cannot be asked waits longer.
constexpr std::chrono::seconds kLastPatience(10);

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
    , mMergeOperations(std::make_unique<CVMergeOperations>(*this))
    , mConflictTeller(std::make_unique<CVConflictTeller>(*this)) {
    mLockOperations = std::make_unique<CVLockOperations>(*this, mFile, alerts);
    connect(&mFile.saves(), &CVSaveQueue::saveFinished, this, &CVAppDelegate::handleSaveFinished);
    connect(&mUpdates, &CVUpdateController::preferencesRequested, this, &CVAppDelegate::showUpdatePreferences);
}

CVAppDelegate::~CVAppDelegate() = default;

void CVAppDelegate::setHelp(CVHelpOpener* help) {
    mHelp = help;
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
        return read(*mDocument, {CVReadingPanel::Reading::AtStart, nullptr});
    });
    if (!report)
        return false;
    makeWindowControllers();
    mOutsideChanges->watch(report->path);
    showWhetherSaved(*report);
    if (!recovered.ok())
        mMainWindow->saveStatus().remark(
            tr("What an interrupted save has left could not be put in order: %1").arg(recovered.error));
    if (mWantsUpdatePreferences)
        showUpdatePreferences();
    // About a file that was not read the user has been asked.
    if (report->outcome != CVLoadReport::Outcome::NotRead)
        tellAboutReading(*report);
    return true;
}

CVLoadReport CVAppDelegate::read(CVDocument& document, CVReadingPanel panel) {
    mFile.setReadingProgress(std::move(panel));
    CVLoadReport report = mFile.initWithStandardUserFile(document);
    mFile.setReadingProgress({});
    return report;
}

void CVAppDelegate::makeWindowControllers() {
    mMainWindow = std::make_unique<CVMainWindowController>(*mDocument, mAlerts, mPanels);
    mMainWindow->setMayClose([this] { return mayClose(); });
    mEditorWindows = std::make_unique<CVEditorWindows>(
        *mDocument, mAlerts, mHelp, *mMainWindow->window(), [this] { showPreferences(); },
        [this](int count) { mMainWindow->remarkRemoval(count); });
    mMainWindow->setDocumentWindows(mEditorWindows.get());
    mMainWindow->setPrintPanels(mPrintPanels);
    connect(mMainWindow.get(), &CVMainWindowController::applicationCommandChosen, this, &CVAppDelegate::carryOut);
    CVSaveStatus& status = mMainWindow->saveStatus();
    connect(&mFile.saves(), &CVSaveQueue::saveStarted, &status, &CVSaveStatus::setSaving);
    connect(&status, &CVSaveStatus::tryAgain, this, [this] { mDocument->workbookSave(); });
    connect(&status, &CVSaveStatus::makeRoom, this, &CVAppDelegate::showDataFilePreferences);
    mLockOperations->showIn(*mMainWindow);
    mMainWindow->showWindow();
    mConflictTeller->start();
}

/// Only a budget that was read from a file counts as saved.
void CVAppDelegate::showWhetherSaved(const CVLoadReport& report) const {
    if (report.outcome == CVLoadReport::Outcome::Loaded && !isReadOnly())
        mMainWindow->saveStatus().setSaved();
}

void CVAppDelegate::handleSaveFinished(const CVSaveOutcome& outcome) {
    mLockOperations->saveFinished();
    if (mIsEnding)
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

void CVAppDelegate::tellAboutReading(const CVLoadReport& report) {
    if (report.reason.isEmpty() && report.partly.count == 0)
        return;
    // A damaged file is replaced at once; only after that save is it known whether a copy could be kept.
    const auto last = mFile.saves().waitForFinished(kLastPatience);
    const CVSaveOutcome outcome = last && last->path == report.path ? *last : CVSaveOutcome();
    (void)mSaveTeller.markAsTold(outcome.keptCopy);
    const CVAlert alert =
        report.reason.isEmpty() ? CVFileMessages::partlyRead(report) : CVFileMessages::unreadable(report, outcome);
    // The alert waits for the event loop, so that the window is shown behind it.
    QMetaObject::invokeMethod(
        this, [this, alert] { mAlerts.run(mMainWindow->window(), alert); }, Qt::QueuedConnection);
}

bool CVAppDelegate::mayClose() {
    // The budget that another one replaces was saved before.
    if (mIsReopening)
        return true;
    // Whoever closes the window then waits for the save.
    if (mEndsWithoutAsking)
        return true;
    if (mMainWindow->returnToUnreadable())
        return false;
    mIsEnding = isEverythingSaved();
    return mIsEnding;
}

/// Asks the user while it is not; true also when the user gives it up.
bool CVAppDelegate::isEverythingSaved() {
    saveWhatIsLost();
    std::optional<QTime> triedAgain;
    for (;;) {
        const auto outcome = mFile.saves().waitForFinished(kPatience);
        if (outcome && outcome->saved) {
            // Nobody will be there to see what the last save has kept.
            if (!outcome->keptCopy.isEmpty() && mSaveTeller.markAsTold(outcome->keptCopy))
                mAlerts.run(mMainWindow->window(), CVFileMessages::keptCopy(*outcome));
            return true;
        }
        // Whoever quits cannot wait until another program has finished writing.
        if (outcome && outcome->awaitsReadable && mFile.unreadableFiles() != CVUnreadableFile::Replaced) {
            mFile.setUnreadableFiles(CVUnreadableFile::Replaced);
            mDocument->workbookSave();
            continue;
        }
        const int answer =
            mAlerts.run(mMainWindow->window(),
                        outcome ? CVFileMessages::quitUnsaved(*outcome, triedAgain) : CVFileMessages::stillSaving());
        if (answer != CVAlert::kDefault) {
            mFile.setUnreadableFiles(CVUnreadableFile::AwaitedIfWatched);
            return answer == CVAlert::kOther;
        }
        if (outcome)
            mDocument->workbookSave();
        triedAgain = QTime::currentTime();
    }
}

void CVAppDelegate::carryOut(CVCommand command) {
    switch (command) {
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
    const auto outcome = mFile.saves().waitForFinished(kLastPatience);
    if (!outcome)
        return whatIsNotSaved();
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

/// Why the file holds no budget that can be read; empty when it can. The document that is open is left alone.
QString CVAppDelegate::whyUnreadable(const QString& path) const {
    CVDetachedDocument tried;
    CVDocumentReader reader;
    reader.setProgress(CVReadingPanel(CVReadingPanel::Reading::OtherFile, mPreferences.get()));
    const CVLoadReport report = reader.readFromURL(*tried, path);
    return report.outcome == CVLoadReport::Outcome::Unreadable ? report.reason : QString();
}

std::optional<QString> CVAppDelegate::reopenDocument() {
    // The search would pass over it and open another one.
    if (CVMissingDataFile(mUserDefaults))
        return tr("it is not there any more");
    // Only at the start does a damaged file leave an empty budget.
    if (const QString damage = whyUnreadable(mFile.placeForSaving()); !damage.isEmpty()) {
        mLockOperations->abandon();
        return damage;
    }
    mLockOperations->beginReading();
    // From here on the former budget must not be saved, because it would be written over the other file.
    mDocument->setSaver(nullptr);
    auto document = std::make_unique<CVDocument>(mNotificationCenter, mUserDefaults);
    const CVLoadReport report = read(*document, {CVReadingPanel::Reading::OtherFile, mPreferences.get()});
    if (report.outcome == CVLoadReport::Outcome::Cancelled || report.outcome == CVLoadReport::Outcome::NotRead) {
        mDocument->setSaver(&mFile);
        mLockOperations->abandon();
        return report.outcome == CVLoadReport::Outcome::Cancelled ? QString() : report.reason;
    }
    replaceDocument(std::move(document));
    mOutsideChanges->watch(report.path);
    showWhetherSaved(report);
    tellAboutReading(report);
    return std::nullopt;
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
}

void CVAppDelegate::comeToFront() {
    if (mMainWindow)
        showInFront(*mMainWindow->window());
    // A modal window must be in front of the window that it blocks.
    if (QWidget* const modal = QApplication::activeModalWidget())
        showInFront(*modal);
}

void CVAppDelegate::keepEverything() {
    CVCommitOpenEditor(QApplication::focusWidget());
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const editor = qobject_cast<CVEditorWindow*>(window))
            editor->keepEntries();
    }
    if (mPreferences && mPreferences->isVisible())
        mPreferences->keep();
    mUserDefaults.synchronize();
    (void)saveAtLast();
}

/// What is in no file any more would end with this window.
void CVAppDelegate::saveWhatIsLost() {
    if (!mOutsideChanges->isFileLost() || isReadOnly())
        return;
    mFile.setUnreadableFiles(CVUnreadableFile::Replaced);
    mDocument->workbookSave();
}

/// A failed save is tried once more, because the disk may have room again and the latest entries are in no file.
bool CVAppDelegate::saveAtLast() {
    saveWhatIsLost();
    const auto first = mFile.saves().waitForFinished(kLastPatience);
    if (!first || first->saved)
        return first.has_value();
    mFile.setUnreadableFiles(CVUnreadableFile::Replaced);
    mDocument->workbookSave();
    const auto second = mFile.saves().waitForFinished(kLastPatience);
    mFile.setUnreadableFiles(CVUnreadableFile::AwaitedIfWatched);
    return second && second->saved;
}

QString CVAppDelegate::whatIsNotSaved() {
    const auto outcome = mFile.saves().waitForFinished(std::chrono::milliseconds(0));
    return outcome ? outcome->message
                   : tr("Your last changes are not saved: the disk with your data file does not answer.");
}

void CVAppDelegate::endWithoutAsking() {
    mEndsWithoutAsking = true;
    // A window that is closed here may ask a question, which the next call dismisses.
    QTimer::singleShot(kBetweenWindows, this, &CVAppDelegate::endWithoutAsking);
    if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
    else if (!mMainWindow || mMainWindow->window()->close())
        QCoreApplication::exit(saveAtLast() ? 0 : 1);
}
