#include "contents/CVGridContents.h"

#include "budget/CVCategorySlots.h"
#include "budget/CVTransactionRange.h"

#include <numeric>

CVGridContents::CVGridContents(const QBDate& today, int periodType, CVDisplayPeriods::Placement placement)
    : mPeriods(periodType, today, placement)
    , mGrid({}, {}, {}, {today, today}) {}

void CVGridContents::reload(const CVTransactions& transactions, const CVCategories& rows) {
    mColumns.resize(static_cast<std::size_t>(mPeriods.numberOfColumnsForDisplayPeriod()));
    std::iota(mColumns.begin(), mColumns.end(), 1);
    mRows = rows;
    mTransactions = &transactions;
    std::vector<CVDayRange> ranges;
    for (const int number : mColumns)
        ranges.push_back(mPeriods.column(number));
    mGrid = CVBudgetGrid(transactions, CVIDsOfCategories(rows), ranges, mPeriods.displayRange());
}

bool CVGridContents::isEmpty() const {
    if (mRows.empty())
        return true;
    for (std::size_t column = 0; column < mGrid.columns(); ++column) {
        if (mGrid.columnTotal(column))
            return false;
    }
    // Sums can cancel out in a column's total, and cells too small to show can add up to a row total that shows.
    for (std::size_t row = 0; row < mGrid.rows(); ++row) {
        if (mGrid.rowTotal(row))
            return false;
        for (std::size_t column = 0; column < mGrid.columns(); ++column) {
            if (mGrid.cell(row, column))
                return false;
        }
    }
    return true;
}

CVTransactions CVGridContents::transactionsOfCell(int row, int column) const {
    if (!isInside(row, column))
        return {};
    return ::transactionsOfCell(*mTransactions, rangeOfColumn(column), *mRows[static_cast<std::size_t>(row)]);
}

CVDayRange CVGridContents::rangeOfColumn(int column) const {
    return mPeriods.column(columns().at(static_cast<std::size_t>(column)));
}

std::size_t CVGridContents::numberOfTransactions(const CVCategory* category, const CVDayRange& range) const {
    return mTransactions ? transactionsForDateRange(*mTransactions, range, category).size() : 0;
}

bool CVGridContents::isInside(int row, int column) const {
    return row >= 0 && static_cast<std::size_t>(row) < mRows.size() && column >= 0 &&
           static_cast<std::size_t>(column) < columns().size();
}
