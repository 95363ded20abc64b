#include "workspace/CVEditCommands.h"

#include "widgets/tables/CVTextOfSelection.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>

namespace {

/// The text field that the user types into. An editable combo box has the focus in place of its field.
QLineEdit* fieldOf(QWidget* focused) {
    const auto* const box = qobject_cast<QComboBox*>(focused);
    return box ? box->lineEdit() : qobject_cast<QLineEdit*>(focused);
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
            CVCopySelection(*table);
        else
            table->selectAll();
    }
}
