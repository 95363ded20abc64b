#include "app/CVMergeOperations.h"

#include "app/CVAppDelegate.h"
#include "differences/CVBringIn.h"
#include "merging/CVMergeWindow.h"
#include "model/CVDocument.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainWindowController.h"

#include <QMainWindow>

CVMergeOperations::CVMergeOperations(CVAppDelegate& app) : mApp(app) {}

CVMergeOperations::~CVMergeOperations() = default;

void CVMergeOperations::offer(const CVMergeSource& source, CVMergeWindow::Asked asked) {
    mDataFile = mApp.document().dataFiles().value(0);
    if (!mWindow)
        mWindow = std::make_unique<CVMergeWindow>(mApp.document(), *this, mHelp);
    mWindow->offer(source);
    showInFront(asked);
}

void CVMergeOperations::showInFront(CVMergeWindow::Asked asked) {
    mApp.keepInFront(*mWindow);
    mWindow->showWindow(asked);
}

void CVMergeOperations::setDocument(CVDocument& document) {
    if (!mWindow)
        return;
    const bool wasVisible = mWindow->isVisible();
    if (document.dataFiles().value(0) != mDataFile)
        mWindow->forgetSources();
    mWindow->setDocument(document);
    // A window is placed in front of another one only when it is shown.
    if (wasVisible && mWindow->countSources() > 0) {
        mWindow->hide();
        showInFront(CVMergeWindow::Asked::ByItself);
    }
}

int CVMergeOperations::bringIn(const CVDocument& merged, const CVDocument& ours, const CVBudgetDifferences& lines) {
    CVCommitOpenEditor(mApp.mainWindow()->window()->focusWidget());
    const int count = CVBringIn(mApp.document(), merged, ours, lines);
    if (count > 0)
        mApp.mainWindow()->getStarted();
    return count;
}
