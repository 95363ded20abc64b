#pragma once

#include "widgets/tables/CVTableView.h"

#include <optional>
#include <vector>

class CVEditorModel;
class QBUserDefaults;

/// The table of an editor window. Whole rows are selected. Return, F2 or a double-click edits the name in a row; typed
/// letters select a row by its name. Home and End go to the first and the last row.
class CVEditorTable final : public CVTableView {
    Q_OBJECT

public:
    /// The table becomes the model's parent. `nameColumn` is the column with the names of the rows.
    CVEditorTable(CVEditorModel& model, int nameColumn, QWidget* parent);

    /// Sets the usual widths, one for each column, in widths of a digit. The name column gets the remaining width
    /// instead.
    void setUsualWidths(std::initializer_list<int> digits);

    /// Restores the column widths stored under `key`, if any, and stores the user's changes there. The defaults outlive
    /// the table.
    void rememberColumns(QBUserDefaults& defaults, const char* key);

    /// Closes the open editor, if any: commitEdit() keeps the typed text, abandonEdit() discards it.
    void commitEdit();
    void abandonEdit();

    /// Selects that row alone and scrolls to it.
    void showRow(int row);
    /// Selects the row and opens the editor of its name, with the whole text selected.
    void editRow(int row);
    /// Makes that row the current one, or the last row when there are fewer; selects nothing.
    void moveCursorTo(int row);
    /// The selected rows in ascending order.
    [[nodiscard]] std::vector<int> selectedRows() const;

    /// The current row, if it is selected.
    [[nodiscard]] std::optional<int> lastSelectedRow() const;

    void keyboardSearch(const QString& search) override;

signals:
    /// The current row or the selection has changed.
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
