#pragma once

#include <QTableView>

class CVFormattedField;

/// A table in the program's style: rows of about one and a half lines in alternating colours, no grid, more room
/// between the columns. An empty table can show a message. Copy puts the selected rows on the clipboard as text and as
/// HTML. An editor whose text cannot be read stays open and gets the focus back with the reason, until the text is
/// corrected or Escape discards it.
class CVTableView : public QTableView {
    Q_OBJECT

public:
    explicit CVTableView(QWidget* parent = nullptr);

    /// Shows a sentence in the middle of the table; an empty `message` shows none.
    void setMessage(const QString& message);
    /// Opens the editor of the current cell; false when the cell is not editable or an editor is open.
    bool editCurrentCell();
    using QTableView::edit;
    /// The open editor whose text cannot be read, if it is visible; null otherwise.
    [[nodiscard]] CVFormattedField* unreadableEditor() const;
    /// Gives the focus back to that editor and says what is expected.
    void returnToEditor(CVFormattedField& field);
    /// One and a half lines of the table's font, but at most 10 pixels more than one line.
    [[nodiscard]] int rowHeight() const;

    /// Room for the header and two rows; the layout may give more.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void setUpHeaders();

    QString mMessage;
    /// The cell whose editor was opened last.
    QPersistentModelIndex mEdited;
};
