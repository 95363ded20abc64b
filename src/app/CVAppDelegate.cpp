#include "app/CVAppDelegate.h"

#include "app/CVEditorWindows.h"
#include "app/CVFileMessages.h"
#include "app/CVReadingPanel.h"
#include "base/CVDefaultsKeys.h"
#include "model/CVDocument.h"
#include "preferences/CVPreferenceWindowController.h"
#include "widgets/CVAlerts.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"
#include "workspace/printing/CVPrintPanels.h"

#include <QMainWindow>
#include <QSettings>

#include <utility>

CVAppDelegate::CVAppDelegate(std::unique_ptr<QSettings> settings, CVStandardFolders folders, CVAlerts& alerts,
                             CVFilePanels& panels)
    : mAlerts(alerts)
    , mPanels(panels)
    , mUserDefaults(std::move(settings))
    , mFile(std::move(folders), mUserDefaults)
    , mUpdates(mUserDefaults, mNotificationCenter, alerts, *this)
    , mDocument(std::make_unique<CVDocument>(mNotificationCenter, mUserDefaults)) {
    connect(&mFile.saves(), &CVSaveQueue::saveFinished, this, &CVAppDelegate::handleSaveFinished);
    connect(&mUpdates, &CVUpdateController::preferencesRequested, this, &CVAppDelegate::showUpdatePreferences);
}

CVAppDelegate::~CVAppDelegate() = default;

void CVAppDelegate::setPrintPanels(CVPrintPanels* panels) {
    mPrintPanels = panels;
    if (panels)
        panels->spare([this] { return mFile.dataFiles(); });
}

bool CVAppDelegate::applicationDidFinishLaunching() {
    mUpdates.checkAutomatically(mUserDefaults.integerForKey(CVDefaultsKeys::kCheckUpdatesAutomatically));
    const CVLoadReport report = read(*mDocument, {CVReadingPanel::Reading::AtStart, nullptr});
    if (report.outcome == CVLoadReport::Outcome::Cancelled)
        return false;
    makeWindowControllers();
    showWhetherSaved(report);
    if (mWantsUpdatePreferences)
        showUpdatePreferences();
    if (!report.reason.isEmpty())
        tellAboutReading(report);
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
    mEditorWindows = std::make_unique<CVEditorWindows>(*mDocument, mAlerts, mHelp, *mMainWindow->window(),
                                                       [this] { showPreferences(); });
    mMainWindow->setDocumentWindows(mEditorWindows.get());
    mMainWindow->setPrintPanels(mPrintPanels);
    connect(mMainWindow.get(), &CVMainWindowController::applicationCommandChosen, this, &CVAppDelegate::carryOut);
    CVSaveStatus& status = mMainWindow->saveStatus();
    connect(&mFile.saves(), &CVSaveQueue::saveStarted, &status, &CVSaveStatus::setSaving);
    connect(&status, &CVSaveStatus::tryAgain, this, [this] { mDocument->workbookSave(); });
    mMainWindow->showWindow();
}

/// Only a budget that was read from a file counts as saved.
void CVAppDelegate::showWhetherSaved(const CVLoadReport& report) const {
    if (report.outcome == CVLoadReport::Outcome::Loaded)
        mMainWindow->saveStatus().setSaved();
}

void CVAppDelegate::handleSaveFinished(const CVSaveOutcome& outcome) {
    CVSaveStatus& status = mMainWindow->saveStatus();
    if (!outcome.saved)
        status.setFailed(CVFileMessages::notSaved(outcome));
    else if (!mFile.saves().isSaving())
        status.setSaved();
    if (!outcome.keptCopy.isEmpty() && mToldCopies.insert(outcome.keptCopy).second)
        mAlerts.run(mMainWindow->window(), CVFileMessages::keptCopy(outcome));
}

void CVAppDelegate::tellAboutReading(const CVLoadReport& report) {
    // A damaged file is replaced at once; only after that save is it known whether a copy could be kept.
    const CVSaveOutcome outcome = mFile.saves().waitForFinished();
    mToldCopies.insert(outcome.keptCopy);
    // The alert waits for the event loop, so that the window is shown behind it.
    QMetaObject::invokeMethod(
        this,
        [this, alert = CVFileMessages::unreadable(report, outcome)] { mAlerts.run(mMainWindow->window(), alert); },
        Qt::QueuedConnection);
}

bool CVAppDelegate::mayClose() {
    if (!mEndsWithoutAsking && !mIsReopening && mMainWindow->returnToUnreadable())
        return false;
    std::optional<QTime> triedAgain;
    for (;;) {
        const CVSaveOutcome outcome = mFile.saves().waitForFinished();
        if (outcome.saved || mEndsWithoutAsking)
            return true;
        const int answer = mAlerts.run(mMainWindow->window(), CVFileMessages::quitUnsaved(outcome, triedAgain));
        if (answer != CVAlert::kDefault)
            return answer == CVAlert::kOther;
        mDocument->workbookSave();
        triedAgain = QTime::currentTime();
    }
}
