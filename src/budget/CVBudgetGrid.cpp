#include "budget/CVBudgetGrid.h"

#include "base/QBMoney.h"
#include "model/CVTransaction.h"

#include <cmath>

namespace {

constexpr double kShowsAsZero = 0.000001;

} // namespace

CVBudgetGrid::CVBudgetGrid(const CVTransactions& transactions, std::span<const quint32> rowCategoryIDs,
                           std::span<const CVDayRange> columns, const CVDayRange& total)
    : mColumns(columns.size())
    , mSlots(rowCategoryIDs)
    , mSums((mSlots.count() + 1) * lineLength(), 0.0) {
    for (const quint32 id : rowCategoryIDs)
        mRowSlots.push_back(id == 0 ? allSlot() : mSlots.slotOf(id));
    std::vector<CVDayRange> ranges(columns.begin(), columns.end());
    ranges.push_back(total);
    double* const all = line(allSlot());
    for (const auto& transaction : transactions) {
        const auto day = transaction->effectiveDate();
        const std::size_t slot = mSlots.slotOf(transaction->categoryID());
        double* const own = slot == CVCategorySlots::kNone ? nullptr : line(slot);
        for (std::size_t column = 0; column < ranges.size(); ++column) {
            if (!ranges[column].contains(day))
                continue;
            all[column] += transaction->amount();
            if (own)
                own[column] += transaction->amount();
        }
    }
}

std::optional<double> CVBudgetGrid::cell(std::size_t row, std::size_t column) const {
    return row < rows() && column < mColumns ? shown(mRowSlots[row], column) : std::nullopt;
}

std::optional<double> CVBudgetGrid::rowTotal(std::size_t row) const {
    return row < rows() ? shown(mRowSlots[row], mColumns) : std::nullopt;
}

std::optional<double> CVBudgetGrid::columnTotal(std::size_t column) const {
    return column < mColumns ? shown(allSlot(), column) : std::nullopt;
}

std::optional<double> CVBudgetGrid::shown(std::size_t slot, std::size_t column) const {
    const double rounded = RoundDoubleToTwoPlaces(mSums[slot * lineLength() + column]);
    return std::abs(rounded) > kShowsAsZero ? std::optional(rounded) : std::nullopt;
}
