#include "workspace/budgettabs/CVCategoryTable.h"

#include "widgets/CVIsReturnKey.h"
#include "widgets/tables/CVCellDelegate.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <unordered_map>

CVCategoryTable::CVCategoryTable(std::unique_ptr<CVCategoryTableModel> model, const char* objectName,
                                 const QString& accessibleName, QWidget* parent)
    : CVTableView(parent)
    , mModel(model.release()) {
    setObjectName(QLatin1String(objectName));
    setAccessibleName(accessibleName);
    mModel->setParent(this);
    setModel(mModel);
    setItemDelegate(new CVCellDelegate(this));
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    // A click on a header does nothing: the table cannot be sorted.
    horizontalHeader()->setSectionsClickable(false);
    connect(this, &QTableView::doubleClicked, this, &CVCategoryTable::cellOpened);
}

void CVCategoryTable::reload() {
    const bool wasEditing = state() == EditingState;
    const Place before = place();
    mModel->reload();
    // Scrolling needs the new number of rows at once.
    executeDelayedItemsLayout();
    restore(before);
    // When the row of an open editor is gone, the editor and the focus are gone too.
    if (wasEditing && state() != EditingState)
        setFocus(Qt::OtherFocusReason);
}

void CVCategoryTable::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = CVIsReturnKey(event->key());
    if (isReturn && editCurrentCell())
        return;
    if (isReturn && currentIndex().isValid())
        emit cellOpened(currentIndex());
    else
        CVTableView::keyPressEvent(event);
}

void CVCategoryTable::resizeEvent(QResizeEvent* event) {
    CVTableView::resizeEvent(event);
    emit metricsChanged();
}

void CVCategoryTable::changeEvent(QEvent* event) {
    CVTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        emit metricsChanged();
}

CVCategoryTable::Cell CVCategoryTable::cellOf(const QModelIndex& index) const {
    return {index.isValid() ? mModel->categoryOfRow(index.row()) : nullptr, index.column()};
}

CVCategoryTable::Place CVCategoryTable::place() const {
    Place place{
        {}, currentIndex(), cellOf(currentIndex()), horizontalScrollBar()->value(), verticalScrollBar()->value()};
    for (const QModelIndex& index : selectionModel()->selectedIndexes())
        place.selected.append(cellOf(index));
    return place;
}

void CVCategoryTable::restore(const Place& place) {
    std::unordered_map<const CVCategory*, int> rows;
    for (int row = 0; row < mModel->rowCount(); ++row)
        rows.emplace(mModel->categoryOfRow(row), row);
    const auto indexOf = [&](const Cell& cell) {
        const auto row = rows.find(cell.category);
        return row == rows.end() ? QModelIndex() : mModel->index(row->second, cell.column);
    };
    QItemSelection selection;
    for (const Cell& cell : place.selected) {
        if (const QModelIndex index = indexOf(cell); index.isValid())
            selection.select(index, index);
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (place.currentBefore.isValid()) {
        // The same category stays current, or the row in its place when the category is gone, so that the arrow keys go
        // on from there.
        QModelIndex current = indexOf(place.current);
        if (!current.isValid())
            current = mModel->index(qMin(place.currentBefore.row(), mModel->rowCount() - 1),
                                    qMin(place.currentBefore.column(), mModel->columnCount() - 1));
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    }
    horizontalScrollBar()->setValue(place.across);
    verticalScrollBar()->setValue(place.down);
}
