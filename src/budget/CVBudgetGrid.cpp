#include "budget/CVBudgetGrid.h"

#include "model/CVFetchAhead.h"
#include "shared/base/QBMoney.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kShowsAsZero = 0.000001;

} // namespace

/// The days around a given one that lie in the same columns, and these. Transactions come in order of their days, so
/// that many share one stretch.
struct CVBudgetGrid::Stretch {
    qint64 firstDay = std::numeric_limits<qint64>::min();
    qint64 lastDay = std::numeric_limits<qint64>::max();
    std::vector<std::size_t> columns;

    Stretch(qint64 day, std::span<const CVDayRange> ranges) {
        for (std::size_t column = 0; column < ranges.size(); ++column) {
            const qint64 start = ranges[column].start.orderKey();
            const qint64 end = ranges[column].end.orderKey();
            if (day < start) {
                lastDay = std::min(lastDay, start - 1);
            } else if (day > end) {
                firstDay = std::max(firstDay, end + 1);
            } else {
                firstDay = std::max(firstDay, start);
                lastDay = std::min(lastDay, end);
                columns.push_back(column);
            }
        }
    }

    [[nodiscard]] bool contains(qint64 day) const { return day >= firstDay && day <= lastDay; }
};

CVBudgetGrid::CVBudgetGrid(const CVDocument::Transactions& transactions, std::span<const quint32> rowCategoryIDs,
                           std::span<const CVDayRange> columns, const CVDayRange& total)
    : mColumns(columns.size())
    , mSlots(rowCategoryIDs)
    , mSums((mSlots.count() + 2) * lineLength(), 0.0) {
    for (const quint32 id : rowCategoryIDs)
        mRowSlots.push_back(id == 0 ? allSlot() : mSlots.slotOf(id));
    std::vector<CVDayRange> ranges(columns.begin(), columns.end());
    ranges.push_back(total);
    addUp(transactions, ranges);
}

void CVBudgetGrid::addUp(const CVDocument::Transactions& transactions, std::span<const CVDayRange> ranges) {
    for (std::size_t first = 0; first < transactions.size();) {
        const Stretch stretch(transactions[first]->dayKey(), ranges);
        std::size_t end = first;
        if (stretch.columns.empty()) {
            while (end < transactions.size() && stretch.contains(transactions[end]->dayKey()))
                ++end;
        }
        for (std::size_t i = 0; i < stretch.columns.size(); i += 2) {
            const bool isLast = i + 1 == stretch.columns.size();
            end = addUp(transactions, first, stretch,
                        {stretch.columns[i], isLast ? spareColumn() : stretch.columns[i + 1]});
        }
        first = end;
    }
}

/// Adds the transactions of a stretch to two columns: nearly always a day lies in one of them and in the total. Returns
/// the index behind them.
std::size_t CVBudgetGrid::addUp(const CVDocument::Transactions& transactions, std::size_t first, const Stretch& stretch,
                                std::pair<std::size_t, std::size_t> columns) {
    const auto [one, other] = columns;
    double* const all = line(allSlot());
    double allInOne = all[one];
    double allInOther = all[other];
    std::size_t i = first;
    for (; i < transactions.size() && stretch.contains(transactions[i]->dayKey()); ++i) {
        const CVTransaction& transaction = CVFetchAhead(transactions, i);
        const double amount = transaction.amount();
        const std::size_t slot = mSlots.slotOf(transaction.categoryID());
        double* const own = line(slot == CVCategorySlots::kNone ? spareSlot() : slot);
        allInOne += amount;
        allInOther += amount;
        own[one] += amount;
        own[other] += amount;
    }
    all[one] = allInOne;
    all[other] = allInOther;
    return i;
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
