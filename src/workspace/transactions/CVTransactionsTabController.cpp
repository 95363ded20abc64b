#include "workspace/transactions/CVTransactionsTabController.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "budget/CVRangePresets.h"
#include "contents/CVDuplicates.h"
#include "contents/CVSetCategory.h"
#include "contents/CVTransactionExport.h"
#include "contents/CVTransactionList.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVFilePanels.h"
#include "widgets/CVProgressPanel.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/controls/CVRangeControls.h"
#include "workspace/controls/CVSearchField.h"
#include "workspace/transactions/CVExportKinds.h"
#include "workspace/transactions/CVSetCategoryWindow.h"
#include "workspace/transactions/CVTransactionTableModel.h"
#include "workspace/transactions/CVTransactionTableView.h"
#include "workspace/transactions/CVTransactionsTab.h"

#include <QFileInfo>
#include <QScopedValueRollback>

namespace {

/// The name of the data file without its extension.
QString displayName(const QBUserDefaults& defaults) {
    const auto path = defaults.stringForKey(CVDefaultsKeys::kDataFileLocation);
    return path ? QFileInfo(*path).completeBaseName() : QStringLiteral("Corvella Data");
}

} // namespace

CVTransactionsTabController::CVTransactionsTabController(CVDocument& document, CVTransactionList& list,
                                                         CVTransactionsTab& tab, CVAlerts& alerts, CVFilePanels& panels)
    : mDocument(document)
    , mList(list)
    , mTab(tab)
    , mAlerts(alerts)
    , mPanels(panels) {
    connectTab();
}

void CVTransactionsTabController::connectTab() {
    using Self = CVTransactionsTabController;
    connect(&mTab, &CVTransactionsTab::removeRequested, this, &Self::removeTransaction);
    connect(&mTab.searchField(), &CVSearchField::searched, this, &Self::setSearchText);
    connect(&mTab.searchField(), &CVSearchField::searchTypePicked, this, &Self::setSearchType);
    connect(&mTab.table(), &CVTransactionTableView::columnClicked, this, &Self::sortByColumn);
    connect(&mTab.table(), &CVTransactionTableView::edited, this, &Self::setObjectValue);
    const CVRangeControls& range = mTab.rangeControls();
    connect(&range, &CVRangeControls::presetPicked, this, &Self::setTransactionDateRange);
    connect(&range, &CVRangeControls::startEntered, this, &Self::setTransactionStart);
    connect(&range, &CVRangeControls::endEntered, this, &Self::setTransactionEnd);
}

void CVTransactionsTabController::reload() {
    mTab.showTotalsAndCountsField();
    mTab.table().reload();
}

void CVTransactionsTabController::sortByColumn(const QString& identifier) {
    CVCommitOpenEditor(mTab.window()->focusWidget());
    mList.chooseSortColumn(identifier);
    mList.doUserSort();
    reload();
}

void CVTransactionsTabController::removeTransaction() {
    CVTransactionTableView& table = mTab.table();
    const CVTransactions selected = table.selectedTransactions();
    if (selected.empty())
        return;
    const auto answer = mAlerts.run(mTab.window(), {tr("Are you sure you want to delete the selected transaction(s)?"),
                                                    tr("This action is not reversible."), tr("Delete"), tr("Cancel")});
    if (answer != CVAlert::kDefault)
        return;
    mDocument.removeTransactions(selected);
    table.clearSelection();
    mDocument.workbookSave();
    emit transactionsRemoved();
    // The table gets the focus, because the Remove button is now disabled and the focus would go to the next control.
    table.setFocus();
    emit removalRemarked(static_cast<int>(selected.size()));
}

void CVTransactionsTabController::setCategory() {
    const CVTransactions selected = mTab.table().selectedTransactions();
    if (selected.empty())
        return;
    QStringList names;
    for (const auto& category : mDocument.categories())
        names.append(category->categoryName());
    auto* const window = new CVSetCategoryWindow(selected, names, &mTab);
    connect(window, &CVSetCategoryWindow::categoryChosen, this,
            [this, selected](const QString& name) { giveCategory(selected, name); });
    window->show();
}

/// The rows stay, as after a change of a cell.
void CVTransactionsTabController::giveCategory(const CVTransactions& transactions, const QString& name) {
    const QScopedValueRollback keepsRows(mKeepsRows, true);
    if (CVSetCategory(mDocument, transactions, name) > 0)
        showChangedRows();
    emit categorySet(static_cast<int>(transactions.size()), name);
}

void CVTransactionsTabController::detectDuplicates() {
    CVTransactionTableView& table = mTab.table();
    if (table.selectTransactions(CVFindDuplicatesOfEachSet(mList.transactions())))
        table.setFocus();
    else
        mAlerts.run(mTab.window(), {tr("No duplicate transactions found"), QString(), tr("OK")});
}

void CVTransactionsTabController::exportTransactions() {
    if (mList.displayTransactions().empty())
        return;
    const QList<CVExportKind> kinds = CVExportKinds(mDocument);
    QList<CVFileKind> files;
    for (const CVExportKind& kind : kinds)
        files.append(kind.file);
    const auto location =
        mPanels.chooseSaveLocation(*mTab.window(), {tr("Export Transactions"), tr("Export"),
                                                    tr("%1 Export").arg(displayName(mDocument.userDefaults())), files});
    if (location)
        writeExport(location->path, kinds[location->kind]);
}

void CVTransactionsTabController::writeExport(const QString& path, const CVExportKind& kind) {
    // The rows are copied, because events that run while the progress is shown may change the list.
    const CVTransactions rows = kind.sets == CVShownSets::All ? mDocument.transactions() : mList.displayTransactions();
    CVProgressPanel progress(tr("Export Transactions"), static_cast<int>(rows.size()), mTab.window());
    const auto text = CVMakeExport(kind.format, mDocument, rows, [&progress](std::size_t done) {
        return progress.stepsDone(static_cast<int>(done), tr("Exporting transactions…"));
    });
    progress.hide();
    if (!text)
        return;
    if (const auto failure = CVWriteExport(path, *text, mDocument.dataFiles()))
        mAlerts.run(mTab.window(),
                    {tr("The transactions were not exported"),
                     tr("The file “%1” could not be written: %2. Your budget is not affected; choose another place and "
                        "export again.")
                         .arg(path, *failure),
                     tr("OK")});
}

void CVTransactionsTabController::setSearchText(const QString& text) {
    mList.setSearchText(text);
    mList.refilter();
    emit listChanged();
}

void CVTransactionsTabController::setSearchType(int kind) {
    mList.setSearchType(kind);
    mList.refilter();
    emit listChanged();
}

void CVTransactionsTabController::setTransactionDateRange(int preset) {
    mList.setTransactionPeriod(preset);
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kTransactionPeriod, preset);
    emit presetPicked();
}

/// Moves a start that lies before the first transaction to the day of that transaction. The text in the other field
/// stays.
void CVTransactionsTabController::setTransactionStart(const QBDate& start) {
    mList.setRange({verifyStartDate(start, mDocument), mList.range().end});
    mTab.rangeControls().setStart(mList.range().start);
    mList.rebuild();
    emit listChanged();
}

/// Moves an end that lies after both today and the last transaction to the later of these two days.
void CVTransactionsTabController::setTransactionEnd(const QBDate& end) {
    mList.setRange({mList.range().start, verifyEndDate(end, mDocument)});
    mTab.rangeControls().setEnd(mList.range().end);
    mList.rebuild();
    emit listChanged();
}

/// Changes a cell and keeps the rows: a transaction that no longer matches the range or the search stays listed until
/// the next rebuild.
void CVTransactionsTabController::setObjectValue(int row, int column, const QVariant& value) {
    CVTransaction& transaction = *mList.displayTransactions()[static_cast<std::size_t>(row)];
    const QScopedValueRollback keepsRows(mKeepsRows, true);
    switch (column) {
    case CVTransactionTableModel::Date:
        transaction.setEffectiveDate(value.value<std::optional<QBDate>>());
        mList.updateDisplayDatesWithTransaction(transaction);
        mTab.rangeControls().setRange(mList.range());
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
    showChangedRows();
}

/// Shows the same rows with their changed values in their order, and saves.
void CVTransactionsTabController::showChangedRows() {
    mList.doUserSort();
    mTab.showTotalsAndCountsField();
    mTab.table().reorder();
    mDocument.workbookSave();
}
