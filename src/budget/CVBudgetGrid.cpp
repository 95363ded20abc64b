#include "budget/CVBudgetGrid.h"

#include "budget/CVCategorySlots.h"
#include "model/CVTransaction.h"
#include "shared/base/QBMoney.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kShowsAsZero = 0.000001;

struct KeyRange {
    qint64 start;
    qint64 end;

    explicit KeyRange(const CVDayRange& range) : start(range.start.orderKey()), end(range.end.orderKey()) {}
    [[nodiscard]] bool contains(qint64 key) const { return key >= start && key <= end; }
    void widen(const KeyRange& other) {
        start = std::min(start, other.start);
        end = std::max(end, other.end);
    }
};

} // namespace

CVBudgetGrid::CVBudgetGrid(const CVDocument::Transactions& transactions, std::span<const quint32> rowCategoryIDs,
                           std::span<const CVDayRange> columns, const CVDayRange& total)
    : mColumns(columns.size()) {
    addUp(transactions, rowCategoryIDs, columns, total);
}

void CVBudgetGrid::addUp(const CVDocument::Transactions& transactions, std::span<const quint32> rowCategoryIDs,
                         std::span<const CVDayRange> columns, const CVDayRange& total) {
    const CVCategorySlots categorySlots(rowCategoryIDs);
    const std::size_t all = categorySlots.count();
    for (const quint32 id : rowCategoryIDs)
        mRowSlots.push_back(id == 0 ? all : categorySlots.slotOf(id));
    mSums.assign((all + 1) * (mColumns + 1), 0.0);

    std::vector<KeyRange> ranges(columns.begin(), columns.end());
    ranges.emplace_back(total);
    KeyRange widest = ranges.back();
    for (const KeyRange& range : ranges)
        widest.widen(range);
    for (const auto& transaction : transactions) {
        const auto& date = transaction->effectiveDate();
        if (!date || !widest.contains(date->orderKey()))
            continue;
        const qint64 key = date->orderKey();
        const std::size_t slot = categorySlots.slotOf(transaction->categoryID());
        for (std::size_t column = 0; column < ranges.size(); ++column) {
            if (!ranges[column].contains(key))
                continue;
            sum(all, column) += transaction->amount();
            if (slot != CVCategorySlots::kNone)
                sum(slot, column) += transaction->amount();
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
    return column < mColumns ? shown(mSums.size() / (mColumns + 1) - 1, column) : std::nullopt;
}

std::optional<double> CVBudgetGrid::shown(std::size_t slot, std::size_t column) const {
    const double rounded = RoundDoubleToTwoPlaces(mSums[slot * (mColumns + 1) + column]);
    return std::abs(rounded) > kShowsAsZero ? std::optional(rounded) : std::nullopt;
}
