#include "editors/CVEditorTable.h"

#include "base/QBUserDefaults.h"
#include "editors/CVEditorCellDelegate.h"
#include "editors/CVEditorModel.h"
#include "widgets/CVIsReturnKey.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

CVEditorTable::CVEditorTable(CVEditorModel& model, int nameColumn, QWidget* parent)
    : CVTableView(parent)
    , mNameColumn(nameColumn) {
    // The table owns the model. A model that is destroyed before the table ends the selection, which would call a
    // window that is being destroyed.
    model.setParent(this);
    setModel(&model);
    setItemDelegate(new CVEditorCellDelegate(this));
    setSelectionBehavior(SelectRows);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    horizontalHeader()->setSectionResizeMode(mNameColumn, QHeaderView::Stretch);
}

void CVEditorTable::setUsualWidths(std::initializer_list<int> digits) {
    int column = 0;
    for (const int width : digits)
        setColumnWidth(column++, width * fontMetrics().horizontalAdvance('0'));
}

void CVEditorTable::rememberColumns(QBUserDefaults& defaults, const char* key) {
    horizontalHeader()->restoreState(defaults.dataForKey(key));
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this, &defaults, key] { defaults.setData(key, horizontalHeader()->saveState()); });
}

void CVEditorTable::commitEdit() {
    if (QWidget* const editor = openEditor()) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void CVEditorTable::abandonEdit() {
    if (QWidget* const editor = openEditor())
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

void CVEditorTable::showRow(int row) {
    // Scrolling needs the new places of the rows at once.
    executeDelayedItemsLayout();
    const QModelIndex name = model()->index(row, mNameColumn);
    selectionModel()->setCurrentIndex(name, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(name);
}

void CVEditorTable::editRow(int row) {
    showRow(row);
    edit(currentIndex());
}

void CVEditorTable::moveCursorTo(int row) {
    const int last = model()->rowCount() - 1;
    selectionModel()->setCurrentIndex(model()->index(std::min(row, last), mNameColumn), QItemSelectionModel::NoUpdate);
}

std::vector<int> CVEditorTable::selectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::optional<int> CVEditorTable::lastSelectedRow() const {
    const int row = currentIndex().row();
    return row >= 0 && selectionModel()->isRowSelected(row, {}) ? std::optional(row) : std::nullopt;
}

void CVEditorTable::keyboardSearch(const QString& search) {
    if (model()->rowCount() > 0 && currentIndex().column() != mNameColumn) {
        const QModelIndex name = model()->index(std::max(0, currentIndex().row()), mNameColumn);
        selectionModel()->setCurrentIndex(name, QItemSelectionModel::NoUpdate);
    }
    CVTableView::keyboardSearch(search);
}

void CVEditorTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    CVTableView::selectionChanged(selected, deselected);
    emit rowsChanged();
}

void CVEditorTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    CVTableView::currentChanged(current, previous);
    emit rowsChanged();
}

void CVEditorTable::keyPressEvent(QKeyEvent* event) {
    const bool isEditKey = CVIsReturnKey(event->key()) || event->key() == Qt::Key_F2;
    const QModelIndex name = currentIndex().siblingAtColumn(mNameColumn);
    const bool canEdit = state() != EditingState && name.flags().testFlag(Qt::ItemIsEditable);
    if (isEditKey && canEdit && !(event->modifiers() & ~Qt::KeypadModifier))
        editRow(name.row());
    else
        CVTableView::keyPressEvent(event);
}

/// Home and End go to the first and last row, because whole rows are selected and the ends of a row have no meaning.
QModelIndex CVEditorTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action != MoveHome && action != MoveEnd)
        return CVTableView::moveCursor(action, modifiers);
    const int row = action == MoveHome ? 0 : model()->rowCount() - 1;
    return model()->index(row, std::max(0, currentIndex().column()));
}

/// The open editor, which is always in the current cell; null when none is open.
QWidget* CVEditorTable::openEditor() const {
    return state() == EditingState ? indexWidget(currentIndex()) : nullptr;
}
