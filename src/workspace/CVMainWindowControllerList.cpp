#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "budget/CVRangePresets.h"
#include "contents/CVDuplicates.h"
#include "contents/CVTransactionExport.h"
#include "model/CVCategory.h"
#include "model/CVTransaction.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVFilePanels.h"
#include "widgets/CVProgressPanel.h"
#include "workspace/CVMainWindow.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVEntryStrip.h"
#include "workspace/controls/CVRangeControls.h"
#include "workspace/controls/CVSaveStatus.h"
#include "workspace/controls/CVSearchField.h"
#include "workspace/transactions/CVTransactionTableModel.h"
#include "workspace/transactions/CVTransactionTableView.h"
#include "workspace/transactions/CVTransactionsTab.h"

#include <QApplication>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QTabWidget>

/// What the controller does for the entry strip and the transactions tab.

namespace {

/// The name of the data file less its extension.
QString displayName(const QBUserDefaults& defaults) {
    const auto path = defaults.stringForKey(CVDefaultsKeys::kDataFileLocation);
    return path ? QFileInfo(*path).completeBaseName() : QStringLiteral("Corvella Data");
}

std::shared_ptr<CVTransaction> makeTransaction(const CVEntry& entry, const CVCategory& category) {
    auto transaction = std::make_shared<CVTransaction>();
    transaction->setEffectiveDate(entry.date);
    transaction->setAmount(entry.amount);
    transaction->setFor(entry.xfor);
    transaction->setCategoryID(category.uniqueID());
    transaction->setPayTo(entry.payTo);
    transaction->setTaxFlag(entry.taxFlag);
    return transaction;
}

} // namespace

void CVMainWindowController::record() {
    mWindow->commitOpenEditor();
    CVEntryStrip& strip = mWindow->entryStrip();
    auto problem = strip.endEditing();
    const CVEntry entry = strip.entry();
    if (!problem)
        problem = CVFirstProblem(entry);
    if (problem) {
        showProblem(*problem);
        return;
    }
    const auto category = mDocument.insertCategoryName(entry.category);
    const auto transaction = makeTransaction(entry, *category);
    mDocument.insertTransaction(transaction);
    if (mDocument.userDefaults().boolForKey(CVDefaultsKeys::kClearFields))
        strip.clearFields();
    mDocument.workbookSave();
    strip.resetAmount();
    getStarted();
    const bool isListed = mWindow->transactionsTab().table().reveal(transaction.get());
    strip.focusField(CVEntryField::Amount);
    if (!isListed && mDisplayTab == kTransactions)
        mWindow->transactionsTab().tellNotListed(*transaction);
}

void CVMainWindowController::showProblem(const CVEntryProblem& problem) {
    if (problem.field == CVEntryField::Date)
        QApplication::beep();
    mAlerts.run(mWindow.get(), {problem.title, problem.message, tr("OK")});
    mWindow->entryStrip().focusField(problem.field);
}

void CVMainWindowController::removeTransaction() {
    CVTransactionTableView& table = mWindow->transactionsTab().table();
    const CVDocument::Transactions selected = table.selectedTransactions();
    if (selected.empty())
        return;
    const auto answer = mAlerts.run(mWindow.get(), {tr("Are you sure you want to delete the selected transaction(s)?"),
                                                    tr("This action is not reversible."), tr("Delete"), tr("Cancel")});
    if (answer != CVAlert::kDefault)
        return;
    mDocument.removeTransactions(selected);
    table.clearSelection();
    mDocument.workbookSave();
    getStarted();
    // Not to whatever comes after a button that has nothing left to remove.
    table.setFocus();
    const int count = static_cast<int>(selected.size());
    saveStatus().remark(count == 1 ? tr("1 transaction removed") : tr("%n transactions removed", nullptr, count));
}

void CVMainWindowController::detectDuplicates() {
    mWindow->tabs().setCurrentIndex(kTransactions);
    CVTransactionTableView& table = mWindow->transactionsTab().table();
    if (table.selectTransactions(CVFindDuplicates(mList.transactions())))
        table.setFocus();
    else
        mAlerts.run(mWindow.get(), {tr("No duplicate transactions found"), QString(), tr("OK")});
}

void CVMainWindowController::exportTransactions() {
    if (mList.displayTransactions().empty())
        return;
    const auto path = mPanels.chooseSaveLocation(*mWindow, {tr("Export Transactions"), tr("Export"),
                                                            tr("%1 Export").arg(displayName(mDocument.userDefaults())),
                                                            QStringLiteral("txt"), tr("Text")});
    if (path)
        writeExport(*path);
}

void CVMainWindowController::writeExport(const QString& path) {
    // While the progress is shown other events run, which may list other lines.
    const CVDocument::Transactions rows = mList.displayTransactions();
    CVProgressPanel progress(tr("Export Transactions"), static_cast<int>(rows.size()), mWindow.get());
    const auto text = CVExportedTransactions(rows, [&progress](std::size_t done) {
        return progress.stepsDone(static_cast<int>(done), tr("Exporting transactions…"));
    });
    progress.hide();
    if (!text)
        return;
    const auto dataFile = mDocument.userDefaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    if (const auto failure = CVWriteExport(path, *text, dataFile ? QStringList{*dataFile} : QStringList()))
        mAlerts.run(mWindow.get(),
                    {tr("The transactions were not exported"),
                     tr("The file “%1” could not be written: %2. Your budget is not affected; choose another place and "
                        "export again.")
                         .arg(path, *failure),
                     tr("OK")});
}

void CVMainWindowController::showList() {
    mWindow->transactionsTab().showTotalsAndCountsField();
    mWindow->transactionsTab().table().reload();
}

void CVMainWindowController::sortByColumn(const QString& identifier) {
    mWindow->commitOpenEditor();
    mList.chooseSortColumn(identifier);
    mList.doUserSort();
    showList();
}

void CVMainWindowController::setSearchText(const QString& text) {
    mList.setSearchText(text);
    mList.refilter();
    reloadAllTables();
}

void CVMainWindowController::setSearchType(int kind) {
    mList.setSearchType(kind);
    mList.refilter();
    reloadAllTables();
}

void CVMainWindowController::setTransactionDateRange(int preset) {
    mList.setTransactionPeriod(preset);
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kTransactionPeriod, preset);
    setDateFieldsFromPopUp();
    mList.rebuild();
    reloadAllTables();
}

void CVMainWindowController::setTransactionStart(const QBDate& start) {
    mList.setRange({verifyStartDate(start, mDocument), mList.range().end});
    mWindow->transactionsTab().rangeControls().setStart(mList.range().start);
    mList.rebuild();
    reloadAllTables();
}

void CVMainWindowController::setTransactionEnd(const QBDate& end) {
    mList.setRange({mList.range().start, verifyEndDate(end, mDocument)});
    mWindow->transactionsTab().rangeControls().setEnd(mList.range().end);
    mList.rebuild();
    reloadAllTables();
}

/// The rows stay: a transaction that no longer fits the range or the search is listed until the next rebuild.
void CVMainWindowController::setObjectValue(int row, int column, const QVariant& value) {
    CVTransaction& transaction = *mList.displayTransactions()[static_cast<std::size_t>(row)];
    const QScopedValueRollback keepsRows(mKeepsRows, true);
    switch (column) {
    case CVTransactionTableModel::Date:
        transaction.setEffectiveDate(value.value<std::optional<QBDate>>());
        mList.updateDisplayDatesWithTransaction(transaction);
        mWindow->transactionsTab().rangeControls().setRange(mList.range());
        mDocument.sortTransactionsByDate();
        mDocument.updateDates();
        break;
    case CVTransactionTableModel::Amount:
        transaction.setAmount(value.toDouble());
        break;
    case CVTransactionTableModel::ToFrom:
        transaction.setPayTo(value.toString());
        break;
    case CVTransactionTableModel::For:
        transaction.setFor(value.toString());
        break;
    case CVTransactionTableModel::Category:
        transaction.setCategoryID(mDocument.insertCategoryName(value.toString())->uniqueID());
        break;
    case CVTransactionTableModel::Tax:
        transaction.setTaxFlag(!transaction.taxFlag());
        break;
    case CVTransactionTableModel::UserFlag:
        transaction.setUserFlag(!transaction.userFlag());
        break;
    default:
        return;
    }
    mList.doUserSort();
    mWindow->transactionsTab().showTotalsAndCountsField();
    mWindow->transactionsTab().table().reorder();
    mDocument.workbookSave();
}
