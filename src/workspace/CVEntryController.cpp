#include "workspace/CVEntryController.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "contents/CVEntry.h"
#include "importing/CVCategoryMemory.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "widgets/CVAlerts.h"
#include "workspace/CVMainWindow.h"
#include "workspace/controls/CVEntryStrip.h"
#include "workspace/transactions/CVTransactionTableView.h"
#include "workspace/transactions/CVTransactionsTab.h"

#include <QApplication>
#include <QTabWidget>

#include <algorithm>

namespace {

/// Whether a memory is of that very payee, or as good as that, so that it may be proposed without asking.
bool isKnown(const CVRememberedCategory& remembered, const QString& payee) {
    return remembered.sure == CVSureness::Sure ||
           std::any_of(remembered.from.begin(), remembered.from.end(), [&payee](const auto& transaction) {
               return transaction->payTo().compare(payee, Qt::CaseInsensitive) == 0;
           });
}

} // namespace

CVEntryController::CVEntryController(CVDocument& document, CVMainWindow& window, CVAlerts& alerts)
    : mDocument(document)
    , mWindow(window)
    , mAlerts(alerts)
    , mMemory(document) {
    const CVEntryStrip& strip = mWindow.entryStrip();
    connect(&strip, &CVEntryStrip::recordRequested, this, &CVEntryController::record);
    connect(&strip, &CVEntryStrip::dateRefused, this, &CVEntryController::showProblem);
    // What the memory costs is paid before the user types.
    connect(&strip, &CVEntryStrip::payeeFocused, &mMemory, &CVPayeeMemory::prepare);
    connect(&strip, &CVEntryStrip::payeeEntered, this, &CVEntryController::proposeFor);
    connect(&mMemory, &CVPayeeMemory::ready, this, &CVEntryController::proposeForWaiting);
    connect(&mWindow.transactionsTab().table(), &CVTransactionTableView::edited, &mMemory, &CVPayeeMemory::forget);
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
    strip.noteRecorded();
    mWaitingPayee.reset();
    emit recorded();
    CVTransactionsTab& list = mWindow.transactionsTab();
    const bool isListed = list.table().reveal(transaction.get());
    strip.focusField(CVEntryField::Amount);
    if (!isListed && mWindow.tabs().currentIndex() == CVMainWindow::kTransactions)
        list.tellNotListed(*transaction);
}

void CVEntryController::recordAgain() {
    const CVTransactions selected = mWindow.transactionsTab().table().selectedTransactions();
    if (selected.size() != 1 || !mayReplaceEntry())
        return;
    CVEntryStrip& strip = mWindow.entryStrip();
    strip.setEntry(CVEntryOf(*selected.front(), QBDate::date()));
    mWaitingPayee.reset();
    strip.focusField(CVEntryField::Amount);
}

/// Asks before what the user has entered and not recorded is lost.
bool CVEntryController::mayReplaceEntry() {
    if (!mWindow.entryStrip().hasUnrecordedEntry())
        return true;
    const auto answer =
        mAlerts.run(&mWindow, {tr("Replace what you have entered?"),
                               tr("The fields above the list hold an entry that is not recorded yet. The selected "
                                  "transaction would take its place."),
                               tr("Replace"), tr("Cancel")});
    return answer == CVAlert::kDefault;
}

void CVEntryController::proposeFor(const QString& payee) {
    mMemory.prepare();
    const CVCategoryMemory* const memory = mMemory.memory();
    mWaitingPayee = memory ? std::nullopt : std::optional(payee);
    auto remembered = memory ? memory->of(payee) : CVRememberedCategory();
    if (!isKnown(remembered, payee))
        remembered = {};
    mWindow.entryStrip().propose(remembered.purpose, remembered.category);
}

void CVEntryController::proposeForWaiting() {
    if (mWaitingPayee && *mWaitingPayee == mWindow.entryStrip().entry().payTo)
        proposeFor(*mWaitingPayee);
}

void CVEntryController::showProblem(const CVEntryProblem& problem) {
    if (problem.field == CVEntryField::Date)
        QApplication::beep();
    mAlerts.run(&mWindow, {problem.title, problem.message, tr("OK")});
    mWindow.entryStrip().focusField(problem.field);
}

void CVEntryController::updatePaidToAutocomplete(const CVTransactions& transactions) {
    mMemory.forget();
    mPaidToList.update(transactions, mDocument.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems));
    mWindow.entryStrip().setPaidToItems(mPaidToList.payees());
    mWindow.transactionsTab().table().setPaidToItems(mPaidToList.payees());
}

void CVEntryController::showCategoryItems() {
    mMemory.forget();
    QStringList names;
    for (const auto& category : mDocument.categories())
        names.append(category->categoryName());
    mWindow.entryStrip().setCategoryItems(names);
    mWindow.transactionsTab().table().setCategoryItems(names);
}
