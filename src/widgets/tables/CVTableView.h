#pragma once

#include <QTableView>

class CVFormattedField;

/// A table in the house's style: rows of about one and a half lines in alternating tints, no grid, more room between
/// the columns. One with nothing in it can say why. Copy takes the selected rows as text. An editor with a text that
/// cannot be read stays open, and gets the focus back with the reason, until the text is mended or Escape gives it up.
class CVTableView : public QTableView {
    Q_OBJECT

public:
    explicit CVTableView(QWidget* parent = nullptr);

    /// A sentence in the middle of the table; empty for none.
    void setMessage(const QString& message);
    /// Begins to edit the current cell; false for one that cannot be edited, or is already.
    bool editCurrentCell();
    using QTableView::edit;
    /// The open editor whose text cannot be read, where there is one in sight; null elsewhere.
    [[nodiscard]] CVFormattedField* unreadableEditor() const;
    /// Gives the focus back to that editor and says what is expected.
    void returnToEditor(CVFormattedField& field);
    /// One and a half lines of the table's font; a little less where the letters are large.
    [[nodiscard]] int rowHeight() const;

    /// The header and a few rows: more is for the layout to give.
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
