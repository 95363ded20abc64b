#include "workspace/CVEditCommands.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>

#include <algorithm>

namespace {

/// The text field that the user types into: an editable box has the focus in place of its field.
QLineEdit* fieldOf(QWidget* focused) {
    const auto* const box = qobject_cast<QComboBox*>(focused);
    return box ? box->lineEdit() : qobject_cast<QLineEdit*>(focused);
}

QString cellText(const QModelIndex& cell) {
    const QVariant spoken = cell.data(Qt::AccessibleTextRole);
    // A cell with a tab or a line end in it would fall into two.
    return (spoken.isValid() ? spoken : cell.data()).toString().simplified();
}

/// In the order of reading. Where whole rows are selected, a row stands for its cells.
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

/// A line for each row, its cells parted by tabs.
QString selectedText(const QAbstractItemView& table) {
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

bool canEditText(CVEditCommand command, const QLineEdit& field) {
    switch (command) {
    case CVEditCommand::Cut:
        return field.hasSelectedText() && !field.isReadOnly();
    case CVEditCommand::Copy:
        return field.hasSelectedText();
    case CVEditCommand::Paste:
        return !field.isReadOnly() && !QGuiApplication::clipboard()->text().isEmpty();
    case CVEditCommand::SelectAll:
        break;
    }
    return !field.text().isEmpty();
}

void editText(CVEditCommand command, QLineEdit& field) {
    switch (command) {
    case CVEditCommand::Cut:
        field.cut();
        break;
    case CVEditCommand::Copy:
        field.copy();
        break;
    case CVEditCommand::Paste:
        field.paste();
        break;
    case CVEditCommand::SelectAll:
        field.selectAll();
        break;
    }
}

} // namespace

bool CVCanEdit(CVEditCommand command, QWidget* focused) {
    if (const auto* const field = fieldOf(focused))
        return canEditText(command, *field);
    const auto* const table = qobject_cast<const QAbstractItemView*>(focused);
    if (!table)
        return false;
    return (command == CVEditCommand::Copy && table->selectionModel()->hasSelection()) ||
           (command == CVEditCommand::SelectAll && table->model()->rowCount() > 0);
}

void CVEdit(CVEditCommand command, QWidget* focused) {
    if (!CVCanEdit(command, focused))
        return;
    if (auto* const field = fieldOf(focused))
        editText(command, *field);
    else if (auto* const table = qobject_cast<QAbstractItemView*>(focused)) {
        if (command == CVEditCommand::Copy)
            QGuiApplication::clipboard()->setText(selectedText(*table));
        else
            table->selectAll();
    }
}
