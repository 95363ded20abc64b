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

QString selectedRows(const QAbstractItemView& table) {
    QModelIndexList rows = table.selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QString text;
    for (const QModelIndex& row : rows) {
        for (int column = 0; column < table.model()->columnCount(); ++column)
            text += (column > 0 ? QStringLiteral("\t") : QString()) + cellText(row.siblingAtColumn(column));
        text += '\n';
    }
    return text;
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
            QGuiApplication::clipboard()->setText(selectedRows(*table));
        else
            table->selectAll();
    }
}
