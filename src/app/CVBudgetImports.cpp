#include "app/CVBudgetImports.h"

#include "app/CVAppDelegate.h"
#include "importing/budgets/CVImportFromBudget.h"
#include "model/CVDocument.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainWindowController.h"

#include <QMainWindow>

#include <utility>

CVBudgetImports::CVBudgetImports(CVAppDelegate& app, Told told) : mApp(app), mTold(std::move(told)) {}

CVBudgetImports::~CVBudgetImports() = default;

void CVBudgetImports::offer(const QString& path) {
    mDataFile = mApp.document().placeForSaving();
    if (!mWindow)
        mWindow = std::make_unique<CVMergeWindow>(mApp.document(), *this, mHelp, CVMergePurpose::Import);
    mWindow->offer({path, std::nullopt});
    showInFront();
}

void CVBudgetImports::showInFront() {
    mApp.keepInFront(*mWindow);
    mWindow->showWindow();
}

void CVBudgetImports::setDocument(CVDocument& document) {
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
        showInFront();
    }
}

int CVBudgetImports::bringIn(const CVDocument& merged, const CVDocument& ours, const CVBudgetDifferences& lines) {
    CVCommitOpenEditor(mApp.mainWindow()->window()->focusWidget());
    CVImported imported = CVImportFromBudget(mApp.document(), merged, ours, lines);
    const int count = imported.lines;
    if (count > 0)
        mTold(std::move(imported));
    return count;
}
