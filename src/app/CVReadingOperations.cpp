#include "app/CVReadingOperations.h"

#include "app/CVAppDelegate.h"
#include "app/CVEnding.h"
#include "app/CVFileMessages.h"
#include "app/CVLockOperations.h"
#include "app/CVOutsideChanges.h"
#include "app/CVReadingPanel.h"
#include "model/CVDocument.h"
#include "preferences/CVPreferenceWindowController.h"
#include "storage/CVDocumentFile.h"
#include "widgets/CVAlerts.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QMainWindow>

std::optional<QString> CVReadingOperations::reopen() {
    CVDocument& former = mApp.document();
    // The search would pass over it and open another one.
    if (CVMissingDataFile(former.userDefaults()))
        return tr("it is not there any more");
    mApp.lockOperations().beginReading();
    // From here on the former budget must not be saved, because it would be written over the other file.
    former.setSaver(nullptr);
    auto document = std::make_unique<CVDocument>(former.notificationCenter(), former.userDefaults());
    mFile.setReadingProgress(CVReadingPanel(CVReadingPanel::Reading::OtherFile, mApp.preferences()));
    const CVLoadReport report = mFile.initWithChosenFile(*document, mFile.placeForSaving());
    mFile.setReadingProgress({});
    if (!report.isBudget()) {
        former.setSaver(&mFile);
        mApp.lockOperations().abandon();
        return report.outcome == CVLoadReport::Outcome::Cancelled ? QString() : report.reason;
    }
    mApp.replaceDocument(std::move(document));
    mApp.outsideChanges().watch(report.path);
    showWhetherSaved(report);
    tell(report);
    return std::nullopt;
}

void CVReadingOperations::startNew() {
    CVDocument& former = mApp.document();
    mApp.lockOperations().beginReading();
    former.setSaver(nullptr);
    auto document = std::make_unique<CVDocument>(former.notificationCenter(), former.userDefaults());
    mFile.initAsNew(*document);
    mApp.replaceDocument(std::move(document));
    mApp.outsideChanges().watch(mFile.placeForSaving());
    // The next start finds the file.
    mApp.document().workbookSave();
}

void CVReadingOperations::tell(const CVLoadReport& report) {
    if (report.reason.isEmpty() && report.partly.count == 0)
        return;
    // A damaged file is replaced at once; only after that save is it known whether a copy could be kept.
    const auto last = mFile.saves().waitForFinished(CVEnding::kLastPatience);
    const CVSaveOutcome outcome = last && last->path == report.path ? *last : CVSaveOutcome();
    (void)mApp.saveTeller().markAsTold(outcome.keptCopy);
    const CVAlert alert =
        report.reason.isEmpty() ? CVFileMessages::partlyRead(report) : CVFileMessages::unreadable(report, outcome);
    // The alert waits for the event loop, so that the window is shown behind it.
    QMetaObject::invokeMethod(
        &mApp, [this, alert] { mAlerts.run(mApp.mainWindow()->window(), alert); }, Qt::QueuedConnection);
}

void CVReadingOperations::showWhetherSaved(const CVLoadReport& report) {
    if (report.outcome == CVLoadReport::Outcome::Loaded && !mApp.isReadOnly())
        mApp.mainWindow()->saveStatus().setSaved();
}
