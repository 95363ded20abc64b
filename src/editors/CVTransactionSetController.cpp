#include "editors/CVTransactionSetController.h"

#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBXMLText.h"
#include "editors/CVEditorTable.h"
#include "editors/CVNameFault.h"
#include "editors/CVTransactionSetModel.h"
#include "model/CVDocument.h"
#include "model/CVTransactionSet.h"
#include "widgets/CVAlerts.h"

#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kSetWindowWidthInDigits = 52;
constexpr int kSetWindowHeightInLines = 20;

std::shared_ptr<CVTransactionSet> makeSet(CVDocument& document, const QString& name) {
    auto set = std::make_shared<CVTransactionSet>();
    set->setDocument(&document);
    set->setTransactionSetName(name);
    return set;
}

} // namespace

CVTransactionSetController::CVTransactionSetController(CVDocument& document, CVAlerts& alerts, CVHelpOpener* help,
                                                       QWidget* parent)
    : CVEditorWindow(tr("Transaction Sets"), "Transaction Sets", document.userDefaults(), parent)
    , mDocument(document)
    , mAlerts(alerts) {
    makeInitialSet();
    mModel = new CVTransactionSetModel(document, this);
    mTransactionSetTable = new CVEditorTable(*mModel, CVTransactionSetModel::Name, this);
    mTransactionSetTable->setObjectName(QStringLiteral("mTransactionSetTable"));
    mTransactionSetTable->setAccessibleName(tr("Transaction Sets Editor"));
    mTransactionSetTable->setSelectionMode(QAbstractItemView::SingleSelection);
    mTransactionSetTable->setUsualWidths({0, 16});
    mTransactionSetTable->rememberColumns(document.userDefaults(), "Transaction Sets Columns");
    contents().addWidget(mTransactionSetTable);
    addControls(help);
    restoreFrame(kSetWindowWidthInDigits, kSetWindowHeightInLines);
    mTransactionSetTable->setFocus();
    reload();

    connect(mModel, &CVTransactionSetModel::edited, this, &CVTransactionSetController::renameSet);
    connect(mTransactionSetTable, &CVEditorTable::rowsChanged, this, &CVTransactionSetController::updateControls);
}

CVTransactionSetController::~CVTransactionSetController() {
    CVTransactionSetController::keepEntries();
}

void CVTransactionSetController::addTransactionSet() {
    mTransactionSetTable->commitEdit();
    const auto set = makeSet(mDocument, tr("New Transaction Set"));
    set->setUniqueID(mDocument.getUniqueTransactionSetID());
    auto& sets = mDocument.transactionSets();
    sets.push_back(set);
    // A single set is made the current one: new transactions belong to it, and the main window must list it.
    if (sets.size() == 1)
        mDocument.setCurrentTransactionSet(set->uniqueID());
    save();
    announce(set);
    reload();
    mTransactionSetTable->editRow(mModel->rowCount() - 1);
}

void CVTransactionSetController::removeTransactionSet() {
    mTransactionSetTable->commitEdit();
    const std::vector<int> rows = mTransactionSetTable->selectedRows();
    if (rows.empty())
        return;
    const int row = rows.front();
    if (isCurrentSet(row))
        return refuseRemoval();
    const auto set = mModel->set(row);
    const qsizetype count = mModel->count(row);
    if (!confirmRemoval(*set, count))
        return;
    mDocument.removeTransactionsForSet(set->uniqueID());
    std::erase(mDocument.transactionSets(), set);
    mDocument.askForVersion(CVVersionReason::Deletion);
    reload();
    mTransactionSetTable->moveCursorTo(row);
    save();
    announce(nullptr);
    if (count > 0)
        emit transactionsRemoved(static_cast<int>(count));
}

void CVTransactionSetController::keepEntries() {
    mTransactionSetTable->commitEdit();
    saveName();
}

/// Makes a set for transactions that were recorded without one. The new set gets ID 0, which these transactions have.
void CVTransactionSetController::makeInitialSet() {
    if (mDocument.transactionSets().empty() && !mDocument.transactions().empty())
        mDocument.transactionSets().push_back(makeSet(mDocument, tr("Initial Transaction Set")));
}

void CVTransactionSetController::addControls(CVHelpOpener* help) {
    connect(&addButton(tr("&Add")), &QPushButton::clicked, this, &CVTransactionSetController::addTransactionSet);
    mRemoveTransactionSetButton = &addButton(tr("&Delete"));
    mRemoveTransactionSetButton->setObjectName(QStringLiteral("mRemoveTransactionSetButton"));
    connect(mRemoveTransactionSetButton, &QPushButton::clicked, this,
            &CVTransactionSetController::removeTransactionSet);
    auto* const shortcut = new QShortcut(QKeySequence::Delete, mTransactionSetTable);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, mRemoveTransactionSetButton, &QPushButton::click);
    addHelpButton(help, QStringLiteral("TransactionSets.html"));
}

void CVTransactionSetController::renameSet(int row, const QString& text) {
    const auto set = mModel->set(row);
    const QString name = xml_storableLine(text);
    if (text == set->transactionSetName() || name == set->transactionSetName())
        return;
    set->setTransactionSetName(name);
    mHasUnsavedName = true;
    announce(set);
    mModel->showName(row);
    updateControls();
    announceRemark();
}

bool CVTransactionSetController::isCurrentSet(int row) const {
    return static_cast<std::size_t>(row) == mDocument.popupIndexOfCurrentTransactionSet();
}

bool CVTransactionSetController::confirmRemoval(const CVTransactionSet& set, qsizetype count) {
    const QString noUndo = tr("You can't undo this action.");
    const QString message =
        count == 0
            ? noUndo
            : tr("%1 %2").arg(tr("Deleting this transaction set will delete all associated transactions."), noUndo);
    const QString title = tr("Do you really want to delete the '%1' transaction set?").arg(set.transactionSetName());
    if (mAlerts.run(this, {title, message, tr("Delete"), tr("Cancel")}) != CVAlert::kDefault)
        return false;
    if (count == 0)
        return true;
    CVAlert last{tr("Delete Transaction Set Last Warning"),
                 tr("You are about to delete %1 transactions.  Do you really want to do this?").arg(count), tr("No"),
                 tr("Yes")};
    last.escapeAnswer = CVAlert::kDefault;
    return mAlerts.run(this, last) == CVAlert::kAlternate;
}

void CVTransactionSetController::refuseRemoval() {
    CVAlert refusal{tr("You can not delete the current transaction set."),
                    tr("Change the current transaction set with the popup on the main window."), tr("OK")};
    refusal.style = CVAlert::Style::Information;
    mAlerts.run(this, refusal);
}

/// Announces a changed or added set; a null `set` announces that a set was deleted.
void CVTransactionSetController::announce(const std::shared_ptr<CVTransactionSet>& set) const {
    mDocument.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet),
                                                    set ? std::any(set) : std::any());
}

void CVTransactionSetController::save() {
    mHasUnsavedName = false;
    mDocument.workbookSave();
}

void CVTransactionSetController::saveName() {
    if (mHasUnsavedName)
        save();
}

void CVTransactionSetController::reload() {
    mModel->reload();
    mTransactionSetTable->setMessage(
        mModel->rowCount() > 0 ? QString() : tr("No transaction sets yet. Add one for each book that you keep."));
    updateControls();
}

/// Disables Delete for the last set, which must stay.
void CVTransactionSetController::updateControls() {
    mRemoveTransactionSetButton->setEnabled(mTransactionSetTable->selectionModel()->hasSelection() &&
                                            mModel->rowCount() != 1);
    setRemark(remark());
}

/// The remark on the selected row.
QString CVTransactionSetController::remark() const {
    const auto row = mTransactionSetTable->lastSelectedRow();
    if (!row)
        return {};
    switch (CVFaultOfName(mModel->index(*row, CVTransactionSetModel::Name))) {
    case CVNameFault::Empty:
        return tr("This transaction set has no name.");
    case CVNameFault::Taken:
        return tr("Another transaction set has this name too.");
    case CVNameFault::None:
        break;
    }
    if (mModel->rowCount() == 1)
        return tr("The only transaction set cannot be deleted.");
    return isCurrentSet(*row) ? tr("This is the current transaction set.") : QString();
}
