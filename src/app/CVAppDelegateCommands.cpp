#include "app/CVAboutWindow.h"
#include "app/CVAppDelegate.h"
#include "app/CVEditorWindows.h"
#include "app/CVFileMessages.h"
#include "app/CVReadingPanel.h"
#include "app/CVSupportMail.h"
#include "base/CVSite.h"
#include "model/CVDocument.h"
#include "preferences/CVPreferenceWindowController.h"
#include "widgets/CVHelpOpener.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainMenu.h"
#include "workspace/CVMainWindowController.h"

#include <QEventLoopLocker>
#include <QMainWindow>
#include <QScopedValueRollback>
#include <QUrl>
#include <QWindow>

#include <utility>

void CVAppDelegate::carryOut(CVCommand command) {
    switch (command) {
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
    if (!mPreferences)
        mPreferences = std::make_unique<CVPreferenceWindowController>(*mDocument, host, mAlerts, mPanels, mHelp);
    keepPreferencesInFront();
    mPreferences->showWindow();
}

/// Keeps the preferences in front of the main window, which can be used meanwhile.
void CVAppDelegate::keepPreferencesInFront() {
    mPreferences->winId();
    mPreferences->windowHandle()->setTransientParent(mMainWindow->window()->windowHandle());
}

void CVAppDelegate::showUpdatePreferences() {
    mWantsUpdatePreferences = !mMainWindow;
    if (mWantsUpdatePreferences)
        return;
    showPreferences();
    mPreferences->displayUpdatePane();
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
    const CVSaveOutcome outcome = mFile.saves().waitForFinished();
    return outcome.saved ? QString() : outcome.message;
}

bool CVAppDelegate::reopenDocument() {
    // From here on the former budget must not be saved, because it would be written over the other file.
    mDocument->setSaver(nullptr);
    auto document = std::make_unique<CVDocument>(mNotificationCenter, mUserDefaults);
    const CVLoadReport report = read(*document, {CVReadingPanel::Reading::OtherFile, mPreferences.get()});
    if (report.outcome == CVLoadReport::Outcome::Cancelled || report.outcome == CVLoadReport::Outcome::NotRead) {
        mDocument->setSaver(&mFile);
        if (report.outcome == CVLoadReport::Outcome::NotRead)
            mAlerts.run(mPreferences.get(), CVFileMessages::otherFileNotRead(report));
        return false;
    }
    // Without the locker the program would end when its last window closes.
    const QEventLoopLocker locker;
    const QScopedValueRollback reopening(mIsReopening, true);
    // Closing the window stores its frame for the next one.
    mMainWindow->window()->close();
    setDocument(std::move(document));
    showWhetherSaved(report);
    if (!report.reason.isEmpty())
        tellAboutReading(report);
    return true;
}

void CVAppDelegate::setDocument(std::unique_ptr<CVDocument> document) {
    mMainWindow.reset();
    mEditorWindows.reset();
    mDocument = std::move(document);
    makeWindowControllers();
    if (!mPreferences)
        return;
    mPreferences->setDocument(*mDocument);
    // A window is placed in front of another one only when it is shown, so the preferences are shown anew.
    if (mPreferences->isVisible()) {
        mPreferences->hide();
        showPreferences();
    }
}
