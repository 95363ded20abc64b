#pragma once

#include "budget/CVBudgetGrid.h"
#include "budget/CVDisplayPeriods.h"

/// The contents of the summary, on the screen or on paper: the periods and their columns, the categories in rows and
/// the sums of the last reload. Rows and columns are counted from 0.
class CVGridContents final {
public:
    CVGridContents(const QBDate& today, int periodType, CVDisplayPeriods::Placement placement);

    /// A change of the periods shows after the next reload.
    [[nodiscard]] CVDisplayPeriods& periods() { return mPeriods; }
    [[nodiscard]] const CVDisplayPeriods& periods() const { return mPeriods; }

    /// Computes all sums anew, in one walk over the transactions. `transactions` must exist until the next reload.
    void reload(const CVTransactions& transactions, const CVCategories& rows);
    void reload(CVTransactions&& transactions, const CVCategories& rows) = delete;

    [[nodiscard]] const CVCategories& rows() const { return mRows; }
    /// The numbers of the columns, from 1 on.
    [[nodiscard]] const std::vector<int>& columns() const { return mColumns; }
    [[nodiscard]] const CVBudgetGrid& grid() const { return mGrid; }
    /// Whether no cell and no total shows a number; without rows none does.
    [[nodiscard]] bool isEmpty() const;

    /// The transactions of a cell, in their order: those of the category with a date in the column's period. None
    /// outside the grid.
    [[nodiscard]] CVTransactions transactionsOfCell(int row, int column) const;
    /// The days of a column.
    [[nodiscard]] CVDayRange rangeOfColumn(int column) const;
    /// The number of transactions of which a sum consists: those of a category (null: of all) in a range of days.
    [[nodiscard]] std::size_t numberOfTransactions(const CVCategory* category, const CVDayRange& range) const;

private:
    [[nodiscard]] bool isInside(int row, int column) const;

    CVDisplayPeriods mPeriods;
    std::vector<int> mColumns;
    CVCategories mRows;
    CVBudgetGrid mGrid;
    /// The transactions of the last reload; null before the first one.
    const CVTransactions* mTransactions = nullptr;
};
