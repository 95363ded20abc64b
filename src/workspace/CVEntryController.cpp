#include "workspace/CVEntryController.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "contents/CVEntry.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "widgets/CVAlerts.h"
#include "workspace/CVMainWindow.h"
#include "workspace/controls/CVEntryStrip.h"
#include "workspace/transactions/CVTransactionTableView.h"
#include "workspace/transactions/CVTransactionsTab.h"

#include <QApplication>
#include <QTabWidget>

CVEntryController::CVEntryController(CVDocument& document, CVMainWindow& window, CVAlerts& alerts)
    : mDocument(document)
    , mWindow(window)
    , mAlerts(alerts) {
    connect(&mWindow.entryStrip(), &CVEntryStrip::recordRequested, this, &CVEntryController::record);
    connect(&mWindow.entryStrip(), &CVEntryStrip::dateRefused, this, &CVEntryController::showProblem);
}

void CVEntryController::record() {
    mWindow.commitOpenEditor();
    CVEntryStrip& strip = mWindow.entryStrip();
    auto problem = strip.endEditing();
    const CVEntry entry = strip.entry();
    if (!problem)
        problem = CVFirstProblemOfEntry(entry);
    if (problem) {
        showProblem(*problem);
        return;
    }
    const auto transaction = CVInsertEntry(mDocument, entry);
    if (mDocument.userDefaults().boolForKey(CVDefaultsKeys::kClearFields))
        strip.clearFields();
    mDocument.workbookSave();
    strip.resetAmount();
    emit recorded();
    CVTransactionsTab& list = mWindow.transactionsTab();
    const bool isListed = list.table().reveal(transaction.get());
    strip.focusField(CVEntryField::Amount);
    if (!isListed && mWindow.tabs().currentIndex() == CVMainWindow::kTransactions)
        list.tellNotListed(*transaction);
}

void CVEntryController::showProblem(const CVEntryProblem& problem) {
    if (problem.field == CVEntryField::Date)
        QApplication::beep();
    mAlerts.run(&mWindow, {problem.title, problem.message, tr("OK")});
    mWindow.entryStrip().focusField(problem.field);
}

void CVEntryController::updatePaidToAutocomplete(const CVTransactions& transactions) {
    mPaidToList.update(transactions, mDocument.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems));
    mWindow.entryStrip().setPaidToItems(mPaidToList.payees());
    mWindow.transactionsTab().table().setPaidToItems(mPaidToList.payees());
}

void CVEntryController::showCategoryItems() {
    QStringList names;
    for (const auto& category : mDocument.categories())
        names.append(category->categoryName());
    mWindow.entryStrip().setCategoryItems(names);
    mWindow.transactionsTab().table().setCategoryItems(names);
}
