#pragma once

#include "widgets/tables/CVTableView.h"

#include <optional>
#include <vector>

class CVEditorModel;
class QBUserDefaults;

/// The table of an editor. Whole rows are selected. Return, F2 or a double-click edits the text that names a row;
/// letters select by it. Home and End lead to the first and the last row.
class CVEditorTable final : public CVTableView {
    Q_OBJECT

public:
    /// The table becomes the model's parent; `nameColumn` is the column with the texts that name the rows.
    CVEditorTable(CVEditorModel& model, int nameColumn, QWidget* parent);

    /// Widths in widths of a digit, one for each column; the column with the names takes what is left.
    void setUsualWidths(std::initializer_list<int> digits);

    /// Takes the widths that `key` holds, if any, and keeps there what the user makes of them. The defaults outlive the
    /// table.
    void rememberColumns(QBUserDefaults& defaults, const char* key);

    /// Ends editing: what was typed is taken, or lost. Without an open editor: nothing.
    void commitEdit();
    void abandonEdit();

    /// Selects that row alone and scrolls to it.
    void showRow(int row);
    /// Shows the row and opens the editor of its name, with the whole text selected.
    void editRow(int row);
    /// The cursor of the keyboard goes to that row, or to the last when there are less; nothing is selected.
    void moveCursorTo(int row);
    /// From the top.
    [[nodiscard]] std::vector<int> selectedRows() const;

    /// The current row, if it is selected.
    [[nodiscard]] std::optional<int> lastSelectedRow() const;

    void keyboardSearch(const QString& search) override;

signals:
    /// Another row is current, or other rows are selected.
    void rowsChanged();

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    [[nodiscard]] QWidget* openEditor() const;

    int mNameColumn;
};
