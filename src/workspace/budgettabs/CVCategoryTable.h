#pragma once

#include "widgets/tables/CVTableView.h"
#include "workspace/budgettabs/CVCategoryTableModel.h"

#include <memory>

/// A table of sums by category. Selection, current cell and scroll position survive a reload as far as the same
/// categories are still shown.
class CVCategoryTable final : public CVTableView {
    Q_OBJECT

public:
    CVCategoryTable(std::unique_ptr<CVCategoryTableModel> model, const char* objectName, const QString& accessibleName,
                    QWidget* parent);

    void reload();

signals:
    /// The user double-clicked a cell or pressed Return on it.
    void cellOpened(const QModelIndex& cell);
    /// The width of the table or its font has changed.
    void metricsChanged();

protected:
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

    [[nodiscard]] Cell cellOf(const QModelIndex& index) const;
    [[nodiscard]] Place place() const;
    void restore(const Place& place);

    CVCategoryTableModel* mModel;
};
