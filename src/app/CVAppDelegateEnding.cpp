#include "app/CVAppDelegate.h"
#include "editors/CVEditorWindow.h"
#include "model/CVDocument.h"
#include "preferences/CVPreferenceWindowController.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainWindowController.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QTimer>

#include <chrono>

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

/// A failed save is tried once more, because the disk may have room again and the latest entries are in no file.
bool CVAppDelegate::saveAtLast() {
    if (mFile.saves().waitForFinished().saved)
        return true;
    mDocument->workbookSave();
    return mFile.saves().waitForFinished().saved;
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
