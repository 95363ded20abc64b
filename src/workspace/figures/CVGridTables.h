#pragma once

#include "workspace/figures/CVGridModel.h"

#include <QFrame>

#include <array>

class CVFiguresTable;
class QLabel;

/// The four tables of the summary as one: the categories at the left, their totals at the right, the periods between
/// and the periods' totals below. What stands in one line scrolls together up and down, what stands in one column has
/// one width and scrolls together to the side, and a cell is selected in one of them at a time.
class CVGridTables final : public QFrame {
    Q_OBJECT

public:
    /// `contents` outlives the tables.
    explicit CVGridTables(const CVGridContents& contents, QWidget* parent = nullptr);

    /// Shows the contents as they are now.
    void reload();

signals:
    /// The user opened a cell of the periods; counted from 0.
    void cellActivated(int row, int column);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] CVFiguresTable* addTable(CVGridModel::Part part, const char* objectName,
                                           const QString& accessibleName);
    /// Those that have a row for each category.
    [[nodiscard]] std::array<CVFiguresTable*, 3> tablesOfRows() const;
    [[nodiscard]] std::array<CVFiguresTable*, 2> tablesOfPeriods() const;
    [[nodiscard]] std::array<CVFiguresTable*, 4> tables() const;
    void lookLikeOneTable();
    void scrollTogether();
    void selectTogether();
    void goToRow(const CVFiguresTable& table, int row) const;
    void selectHereAlone(const CVFiguresTable* here);

    void adjustMetrics();
    void adjustTotalsHeight();
    void fitPeriodColumns();
    [[nodiscard]] std::vector<int> periodWidths() const;

    const CVGridContents& mContents;
    CVFiguresTable* mExpenseCategoryTable;
    CVFiguresTable* mExpensePeriodTable;
    CVFiguresTable* mExpenseCategoryTotalTable;
    CVFiguresTable* mExpensePeriodTotalTable;
    QLabel* mTotalLabel;
    /// The columns of the periods as the user left them when he last moved one; empty before he did. The shown widths
    /// follow from them and from the room, and never the other way round: a rounded pixel is no choice.
    std::vector<int> mChosenWidths;
    bool mReloading = false;
    bool mFitting = false;
};
