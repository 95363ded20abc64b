#pragma once

#include "workspace/CVFiguresModel.h"

#include <QTableView>

#include <memory>

/// A table of figures in the house's style. Selection, current cell and scroll position survive a reload as far as the
/// same categories are still shown; a table with nothing in it can say why.
class CVFiguresTable final : public QTableView {
    Q_OBJECT

public:
    CVFiguresTable(std::unique_ptr<CVFiguresModel> model, const char* objectName, const QString& accessibleName,
                   QWidget* parent);

    void reload();
    /// A sentence in the middle of the table; empty for none.
    void setMessage(const QString& message);
    /// One and a half lines of the table's font.
    [[nodiscard]] int rowHeight() const;

signals:
    /// The user double-clicked a cell or pressed Return on it.
    void cellOpened(const QModelIndex& cell);
    /// The room for columns or the size of the letters is another.
    void metricsChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// A cell that can be found again after a reload.
    struct Cell {
        const CVCategory* category = nullptr;
        int column = -1;
    };
    struct Place {
        QList<Cell> selected;
        QModelIndex currentBefore;
        Cell current;
        int across = 0;
        int down = 0;
    };

    void setUpHeaders();
    [[nodiscard]] Cell cellOf(const QModelIndex& index) const;
    [[nodiscard]] Place place() const;
    void restore(const Place& place);

    CVFiguresModel* mModel;
    QString mMessage;
};
