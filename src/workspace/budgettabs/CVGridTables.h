#pragma once

#include "workspace/budgettabs/CVGridModel.h"

#include <QFrame>

#include <array>

class CVCategoryTable;
class QLabel;

/// Shows the four tables of the summary as one: the categories at the left, their totals at the right, the periods
/// between them and the periods' totals below. Tables side by side scroll together vertically. Tables above each other
/// have the same column widths and scroll together horizontally. Only one of the tables has a selection at a time.
class CVGridTables final : public QFrame {
    Q_OBJECT

public:
    /// `contents` outlives the tables.
    explicit CVGridTables(const CVGridContents& contents, QWidget* parent = nullptr);

    /// Shows the contents as they are now.
    void reload();

signals:
    /// The user opened a cell of the periods; row and column are counted from 0.
    void cellActivated(int row, int column);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] CVCategoryTable* addTable(CVGridModel::Part part, const char* objectName,
                                            const QString& accessibleName);
    /// The tables that have a row for each category.
    [[nodiscard]] std::array<CVCategoryTable*, 3> tablesOfRows() const;
    [[nodiscard]] std::array<CVCategoryTable*, 2> tablesOfPeriods() const;
    [[nodiscard]] std::array<CVCategoryTable*, 4> tables() const;
    void lookLikeOneTable();
    void scrollTogether();
    void selectTogether();
    void goToRow(const CVCategoryTable& table, int row) const;
    void selectHereAlone(const CVCategoryTable* here);

    void adjustMetrics();
    void adjustTotalsHeight();
    void fitPeriodColumns();
    [[nodiscard]] std::vector<int> periodWidths() const;

    const CVGridContents& mContents;
    CVCategoryTable* mExpenseCategoryTable;
    CVCategoryTable* mExpensePeriodTable;
    CVCategoryTable* mExpenseCategoryTotalTable;
    CVCategoryTable* mExpensePeriodTotalTable;
    QLabel* mTotalLabel;
    /// The widths of the period columns as the user last dragged them; empty before that. The shown widths are computed
    /// from these and from the available room; a rounded width is never stored here.
    std::vector<int> mChosenWidths;
    bool mReloading = false;
    bool mFitting = false;
};
