#pragma once

#include "budget/CVCategorySlots.h"
#include "budget/CVDayRange.h"
#include "model/CVCollections.h"

#include <optional>
#include <span>
#include <vector>

/// All numbers of the budget grid, from one walk over the transactions: the sum of each row's category in each column's
/// range and in the total range, and the sum of all transactions in each column's range. Amounts are added in the
/// transactions' order without rounding and the sum is rounded once, so that each number is bit for bit the same as
/// from a walk for it alone. A sum of zero is absent. A transaction without a date does not count.
class CVBudgetGrid final {
public:
    /// `total` is the range of the row totals: from the first column's start to the last one's end.
    CVBudgetGrid(const CVTransactions& transactions, std::span<const quint32> rowCategoryIDs,
                 std::span<const CVDayRange> columns, const CVDayRange& total);

    [[nodiscard]] std::size_t rows() const { return mRowSlots.size(); }
    [[nodiscard]] std::size_t columns() const { return mColumns; }
    /// Absent for a sum within 0.000001 of zero, and outside the grid.
    [[nodiscard]] std::optional<double> cell(std::size_t row, std::size_t column) const;
    [[nodiscard]] std::optional<double> rowTotal(std::size_t row) const;
    [[nodiscard]] std::optional<double> columnTotal(std::size_t column) const;

private:
    [[nodiscard]] std::size_t lineLength() const { return mColumns + 1; }
    [[nodiscard]] std::size_t allSlot() const { return mSlots.count(); }
    [[nodiscard]] double* line(std::size_t slot) { return mSums.data() + slot * lineLength(); }
    [[nodiscard]] std::optional<double> shown(std::size_t slot, std::size_t column) const;

    std::size_t mColumns;
    CVCategorySlots mSlots;
    /// One line of sums for each slot, then one for all transactions, which is also the line of a category with ID 0. A
    /// line holds the sums of the columns, then the total.
    std::vector<double> mSums;
    /// The line that each row shows.
    std::vector<std::size_t> mRowSlots;
};
