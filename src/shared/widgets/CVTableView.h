#pragma once

#include <QTableView>

/// A table in the house's style: rows of about one and a half lines in alternating tints, no grid, more room between
/// the columns. One with nothing in it can say why. Copy takes the selected rows as text.
class CVTableView : public QTableView {
    Q_OBJECT

public:
    explicit CVTableView(QWidget* parent = nullptr);

    /// A sentence in the middle of the table; empty for none.
    void setMessage(const QString& message);
    /// Begins to edit the current cell; false for one that cannot be edited, or is already.
    bool editCurrentCell();
    /// One and a half lines of the table's font; a little less where the letters are large.
    [[nodiscard]] int rowHeight() const;

    /// The header and a few rows: more is for the layout to give.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void setUpHeaders();

    QString mMessage;
};
