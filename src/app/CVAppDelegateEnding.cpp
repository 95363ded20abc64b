#include "app/CVAppDelegate.h"
#include "editors/CVEditorWindow.h"
#include "preferences/CVPreferenceWindowController.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainWindowController.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QTimer>

#include <chrono>

/// What others than the user ask of the program: to show itself, to save, to end.

namespace {

constexpr std::chrono::milliseconds kBetweenWindows(20);

void showInFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

void CVAppDelegate::comeToFront() {
    if (mMainWindow)
        showInFront(*mMainWindow->window());
    // What waits for an answer stands before the window behind it.
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

/// A save that failed is tried once more: the disk may have room again, and what was entered since is in no file.
bool CVAppDelegate::saveAtLast() {
    if (mFile.saves().waitForFinished().saved)
        return true;
    mDocument->workbookSave();
    return mFile.saves().waitForFinished().saved;
}

void CVAppDelegate::endWithoutAsking() {
    mEndsWithoutAsking = true;
    // Whatever is closed here may put a question of its own, which is dismissed in its turn.
    QTimer::singleShot(kBetweenWindows, this, &CVAppDelegate::endWithoutAsking);
    if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
    else if (!mMainWindow || mMainWindow->window()->close())
        QCoreApplication::exit(saveAtLast() ? 0 : 1);
}
