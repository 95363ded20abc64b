#include "app/CVEditorWindows.h"

#include "editors/CVCategoryEditController.h"
#include "editors/CVTransactionSetController.h"
#include "editors/CVTransactionWindowController.h"

namespace {

/// There is no help book yet, so the editors show no Help button.
constexpr CVHelpOpener* kNoHelp = nullptr;

} // namespace

CVEditorWindows::CVEditorWindows(CVDocument& document, CVAlerts& alerts, QWidget& mainWindow)
    : mDocument(document)
    , mAlerts(alerts)
    , mMainWindow(mainWindow) {}

void CVEditorWindows::createCategoryEditController() {
    CVCategoryEditController(mDocument, mAlerts, kNoHelp, &mMainWindow).exec();
}

void CVEditorWindows::createTransactionSetController() {
    CVTransactionSetController(mDocument, mAlerts, kNoHelp, &mMainWindow).exec();
}

void CVEditorWindows::createTransactionController(const CVDocument::Transactions& transactions) {
    CVTransactionWindowController(mDocument, transactions, &mMainWindow).exec();
}
