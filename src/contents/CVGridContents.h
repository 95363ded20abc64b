#pragma once

#include "budget/CVBudgetGrid.h"
#include "budget/CVDisplayPeriods.h"
#include "budget/CVGridColumns.h"

/// What the summary shows, on the screen or on paper: the periods, which columns they take, the categories in rows and
/// the sums of the last reload. Rows and columns are counted from 0.
class CVGridContents final {
public:
    CVGridContents(const QBDate& today, int periodType, CVDisplayPeriods::Placement placement);

    /// A change of the periods shows after the next reload.
    [[nodiscard]] CVDisplayPeriods& periods() { return mPeriods; }
    [[nodiscard]] const CVDisplayPeriods& periods() const { return mPeriods; }

    /// Adds everything up anew, in one walk over the transactions. They stay where they are as long as cells are asked
    /// for.
    void reload(const CVDocument::Transactions& transactions, const CVDocument::Categories& rows);
    void reload(CVDocument::Transactions&& transactions, const CVDocument::Categories& rows) = delete;

    [[nodiscard]] const CVDocument::Categories& rows() const { return mRows; }
    /// The numbers of the columns in the table, from 1 on.
    [[nodiscard]] const std::vector<int>& columns() const { return mColumns.shown(); }
    [[nodiscard]] const CVBudgetGrid& grid() const { return mGrid; }
    /// Whether no cell and no total shows a number; without rows none does.
    [[nodiscard]] bool isEmpty() const;

    /// The transactions behind a cell, in their order: the category's own, whose dates lie in the column's period. None
    /// outside the grid.
    [[nodiscard]] CVDocument::Transactions transactionsOfCell(int row, int column) const;
    /// The days of a column.
    [[nodiscard]] CVDayRange rangeOfColumn(int column) const;
    /// How many transactions a sum was added up from: a row's category, or all without one, in a range of days.
    [[nodiscard]] std::size_t numberOfTransactions(const CVCategory* category, const CVDayRange& range) const;

private:
    [[nodiscard]] bool isInside(int row, int column) const;

    CVDisplayPeriods mPeriods;
    CVGridColumns mColumns;
    CVDocument::Categories mRows;
    CVBudgetGrid mGrid;
    /// Those of the last reload; null before.
    const CVDocument::Transactions* mTransactions = nullptr;
};
