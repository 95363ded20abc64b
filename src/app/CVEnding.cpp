#include "app/CVEnding.h"

#include "app/CVAppDelegate.h"
#include "app/CVFileMessages.h"
#include "app/CVOutsideChanges.h"
#include "editors/CVEditorWindow.h"
#include "model/CVDocument.h"
#include "preferences/CVPreferenceWindowController.h"
#include "storage/CVDocumentFile.h"
#include "widgets/CVAlerts.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainWindowController.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QTimer>

namespace {

constexpr std::chrono::milliseconds kBetweenWindows(20);
/// A disk that takes longer to save does not answer. Whoever closes the window is asked then.
constexpr std::chrono::seconds kPatience(2);

} // namespace

CVEnding::CVEnding(CVAppDelegate& app, CVDocumentFile& file, CVAlerts& alerts)
    : mApp(app)
    , mFile(file)
    , mAlerts(alerts) {}

bool CVEnding::mayClose() {
    // Whoever closes the window then waits for the save.
    if (mEndsWithoutAsking)
        return true;
    if (mApp.mainWindow()->returnToUnreadable())
        return false;
    mHasBegun = isEverythingSaved();
    return mHasBegun;
}

/// Asks the user while it is not; true also when the user gives it up.
bool CVEnding::isEverythingSaved() {
    saveWhatIsLost();
    std::optional<QTime> triedAgain;
    for (;;) {
        const auto outcome = mFile.saves().waitForFinished(kPatience);
        if (outcome && outcome->saved) {
            // Nobody will be there to see what the last save has kept.
            if (!outcome->keptCopy.isEmpty() && mApp.saveTeller().markAsTold(outcome->keptCopy))
                mAlerts.run(mApp.mainWindow()->window(), CVFileMessages::keptCopy(*outcome));
            return true;
        }
        // Whoever quits cannot wait until another program has finished writing.
        if (outcome && outcome->awaitsReadable && mFile.unreadableFiles() != CVUnreadableFile::Replaced) {
            mFile.setUnreadableFiles(CVUnreadableFile::Replaced);
            mApp.document().workbookSave();
            continue;
        }
        const int answer =
            mAlerts.run(mApp.mainWindow()->window(),
                        outcome ? CVFileMessages::quitUnsaved(*outcome, triedAgain) : CVFileMessages::stillSaving());
        if (answer != CVAlert::kDefault) {
            mFile.setUnreadableFiles(CVUnreadableFile::AwaitedIfWatched);
            return answer == CVAlert::kOther;
        }
        if (outcome)
            mApp.document().workbookSave();
        triedAgain = QTime::currentTime();
    }
}

void CVEnding::keepEverything() {
    CVCommitOpenEditor(QApplication::focusWidget());
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const editor = qobject_cast<CVEditorWindow*>(window))
            editor->keepEntries();
    }
    if (mApp.preferences() && mApp.preferences()->isVisible())
        mApp.preferences()->keep();
    mApp.document().userDefaults().synchronize();
    (void)saveAtLast();
}

/// What is in no file any more would end with this window.
void CVEnding::saveWhatIsLost() {
    if (!mApp.outsideChanges().isFileLost() || mApp.isReadOnly())
        return;
    mFile.setUnreadableFiles(CVUnreadableFile::Replaced);
    mApp.document().workbookSave();
}

/// Waits for the last save, but not for ever; whether everything that was entered is in the file. A failed save is
/// tried once more, because the disk may have room again and the latest entries are in no file.
bool CVEnding::saveAtLast() {
    saveWhatIsLost();
    const auto first = mFile.saves().waitForFinished(kLastPatience);
    if (!first || first->saved)
        return first.has_value();
    mFile.setUnreadableFiles(CVUnreadableFile::Replaced);
    mApp.document().workbookSave();
    const auto second = mFile.saves().waitForFinished(kLastPatience);
    mFile.setUnreadableFiles(CVUnreadableFile::AwaitedIfWatched);
    return second && second->saved;
}

QString CVEnding::whatIsNotSaved() {
    const auto outcome = mFile.saves().waitForFinished(std::chrono::milliseconds(0));
    return outcome ? outcome->message
                   : tr("Your last changes are not saved: the disk with your data file does not answer.");
}

void CVEnding::endWithoutAsking() {
    mEndsWithoutAsking = true;
    // A window that is closed here may ask a question, which the next call dismisses.
    QTimer::singleShot(kBetweenWindows, this, &CVEnding::endWithoutAsking);
    if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
    else if (!mApp.mainWindow() || mApp.mainWindow()->window()->close())
        QCoreApplication::exit(saveAtLast() ? 0 : 1);
}
