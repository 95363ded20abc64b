#include "app/CVMergeOperations.h"

#include "app/CVAppDelegate.h"
#include "differences/CVBringIn.h"
#include "merging/CVMergeWindow.h"
#include "model/CVDocument.h"
#include "versions/CVFilesBeside.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QMainWindow>

#include <utility>

CVMergeOperations::CVMergeOperations(CVAppDelegate& app) : mApp(app) {
    QObject::connect(&app.saves(), &CVSaveQueue::filesBesideListed, &app,
                     [this](const CVFilesBeside& files) { show(files); });
}

CVMergeOperations::~CVMergeOperations() = default;

void CVMergeOperations::offer(const CVMergeSource& source, CVMergeWindow::Asked asked) {
    mDataFile = mApp.document().placeForSaving();
    if (!mWindow)
        mWindow = std::make_unique<CVMergeWindow>(mApp.document(), *this, mHelp);
    mWindow->offer(source);
    showInFront(asked);
}

void CVMergeOperations::showAll() {
    mApp.saves().listFilesBeside(mApp.document().placeForSaving());
}

void CVMergeOperations::show(const CVFilesBeside& files) {
    // Another data file was opened meanwhile.
    if (files.dataFile != mApp.document().placeForSaving())
        return;
    QStringList paths;
    for (const auto& copy : files.conflictCopies)
        paths.append(copy.path);
    paths += files.changedOutside;
    for (const QString& file : std::as_const(paths)) {
        // What the file had in common with the budget is known only of one that was offered before.
        if (!mWindow || !mWindow->hasSource(file))
            offer({file, std::nullopt});
    }
    if (mWindow && mWindow->countSources() > 0)
        showInFront(CVMergeWindow::Asked::ByUser);
    else
        mApp.mainWindow()->saveStatus().remark(
            tr("Beside your data file there is no file with changes from elsewhere."));
}

void CVMergeOperations::showInFront(CVMergeWindow::Asked asked) {
    mApp.keepInFront(*mWindow);
    mWindow->showWindow(asked);
}

void CVMergeOperations::setDocument(CVDocument& document) {
    if (!mWindow)
        return;
    const bool wasVisible = mWindow->isVisible();
    // The former document is gone, and a window that closes keeps its looks in the settings of its document.
    mWindow->setDocument(document);
    if (document.placeForSaving() != mDataFile)
        mWindow->forgetSources();
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
