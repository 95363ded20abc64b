#include "widgets/tables/CVTextOfSelection.h"

#include <QAbstractItemView>

#include <algorithm>

namespace {

QString cellText(const QModelIndex& cell) {
    const QVariant spoken = cell.data(Qt::AccessibleTextRole);
    // A tab or a line break in a cell would split it into two cells.
    return (spoken.isValid() ? spoken : cell.data()).toString().simplified();
}

/// The selected cells in no certain order. Where whole rows are selected, a row stands for all its cells.
QModelIndexList selectedCells(const QAbstractItemView& table) {
    const QItemSelectionModel& selection = *table.selectionModel();
    if (table.selectionBehavior() == QAbstractItemView::SelectItems)
        return selection.selectedIndexes();
    QModelIndexList cells;
    for (const QModelIndex& row : selection.selectedRows()) {
        for (int column = 0; column < table.model()->columnCount(); ++column)
            cells.append(row.siblingAtColumn(column));
    }
    return cells;
}

} // namespace

QString CVTextOfSelection(const QAbstractItemView& table) {
    QModelIndexList cells = selectedCells(table);
    std::sort(cells.begin(), cells.end());
    QString text;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (i > 0)
            text += cells[i].row() == cells[i - 1].row() ? '\t' : '\n';
        text += cellText(cells[i]);
    }
    return text + '\n';
}
