#include "history/CVVersionTable.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "history/CVVersionTableModel.h"
#include "widgets/tables/CVCellDelegate.h"

#include <QHeaderView>
#include <QScopedValueRollback>

#include <algorithm>

namespace {

/// The usual widths of all columns but the last, in widths of a digit.
constexpr std::array kVersionWidths{20, 34, 14};

} // namespace

CVVersionTable::CVVersionTable(QWidget* parent) : CVTableView(parent), mModel(new CVVersionTableModel(this)) {
    setModel(mModel);
    setItemDelegate(new CVCellDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    const int digit = fontMetrics().horizontalAdvance('0');
    int column = 0;
    for (const int width : kVersionWidths)
        setColumnWidth(column++, width * digit);
    horizontalHeader()->setStretchLastSection(true);
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this, &CVVersionTable::rowChanged);
}

void CVVersionTable::setVersions(const QList<CVListedVersion>& versions, std::size_t presentTransactions) {
    const QScopedValueRollback listing(mIsListing, true);
    const QString path = chosenPath();
    mModel->setVersions(versions, presentTransactions);
    chooseRow(mWantsNewest ? newestRow() : mModel->rowOf(path));
}

void CVVersionTable::chooseRow(int row) {
    const QModelIndex cell = mModel->index(row, std::max(0, currentIndex().column()));
    if (!selectionModel()->isRowSelected(row, {}))
        selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void CVVersionTable::rowChanged() {
    if (mIsListing)
        return;
    mWantsNewest = mWantsNewest && currentIndex().row() == newestRow();
    emit picked();
}

void CVVersionTable::setFindings(const CVVersionFindings& findings) {
    mModel->setFindings(findings);
}

void CVVersionTable::updateFormats() {
    mModel->updateFormats();
}

int CVVersionTable::countVersions() const {
    return mModel->rowCount() - 1;
}

const CVListedVersion* CVVersionTable::chosen() const {
    return mModel->versionAt(currentIndex().row());
}

QString CVVersionTable::chosenPath() const {
    return chosen() ? chosen()->path : QString();
}

std::optional<CVVersionFindings> CVVersionTable::chosenFindings() const {
    return mModel->findingsAt(currentIndex().row());
}

void CVVersionTable::restoreColumns(const QBUserDefaults& defaults) {
    horizontalHeader()->restoreState(defaults.dataForKey(CVDefaultsKeys::kVersionColumns));
}

void CVVersionTable::keepColumns(QBUserDefaults& defaults) const {
    defaults.setData(CVDefaultsKeys::kVersionColumns, horizontalHeader()->saveState());
}
