#include "app/CVEditorWindows.h"

#include "editors/CVCategoryEditController.h"
#include "editors/CVTransactionSetController.h"
#include "editors/CVTransactionWindowController.h"

#include <utility>

CVEditorWindows::CVEditorWindows(CVDocument& document, CVAlerts& alerts, CVHelpOpener* help, QWidget& mainWindow,
                                 std::function<void()> showPreferences, std::function<void(int count)> remarkRemoval,
                                 std::function<void(const QString& from, const QString& into)> remarkMerge)
    : mDocument(document)
    , mAlerts(alerts)
    , mHelp(help)
    , mMainWindow(mainWindow)
    , mShowPreferences(std::move(showPreferences))
    , mRemarkRemoval(std::move(remarkRemoval))
    , mRemarkMerge(std::move(remarkMerge)) {}

void CVEditorWindows::createCategoryEditController() {
    CVCategoryEditController editor(mDocument, mAlerts, mHelp, &mMainWindow);
    QObject::connect(&editor, &CVCategoryEditController::categoriesMerged, mRemarkMerge);
    editor.exec();
}

void CVEditorWindows::createTransactionSetController() {
    CVTransactionSetController editor(mDocument, mAlerts, mHelp, &mMainWindow);
    QObject::connect(&editor, &CVTransactionSetController::transactionsRemoved, mRemarkRemoval);
    editor.exec();
}

void CVEditorWindows::createTransactionController(const CVTransactions& transactions) {
    CVTransactionWindowController(mDocument, transactions, &mMainWindow).exec();
}
