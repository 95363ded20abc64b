#include "budget/CVSpending.h"

#include "base/QBMoney.h"
#include "model/CVTransaction.h"

#include <algorithm>
#include <limits>

namespace {

/// A category's spending while it is added up.
struct SpendingSoFar {
    double total = 0;
    quint64 count = 0;
    qint64 firstDay = std::numeric_limits<qint64>::max();
    qint64 lastDay = std::numeric_limits<qint64>::min();
    double taxTotal = 0;
    quint64 taxCount = 0;

    void add(const CVTransaction& transaction) {
        const double amount = transaction.amount();
        const qint64 day = transaction.dayKey();
        total = RoundDoubleToTwoPlaces(total + amount);
        ++count;
        firstDay = std::min(firstDay, day);
        lastDay = std::max(lastDay, day);
        if (transaction.taxFlag()) {
            taxTotal = RoundDoubleToTwoPlaces(taxTotal + amount);
            ++taxCount;
        }
    }

    [[nodiscard]] CVSpending spending() const {
        if (count == 0)
            return {};
        return {total, count, QBDate::withOrderKey(firstDay), QBDate::withOrderKey(lastDay), taxTotal, taxCount};
    }
};

} // namespace

CVSpendingOfRange::CVSpendingOfRange(const CVTransactions& transactions, std::span<const quint32> categoryIDs,
                                     const CVDayRange& range)
    : mRange(range)
    , mSlots(categoryIDs) {
    const qint64 start = range.start.orderKey();
    const qint64 end = range.end.orderKey();
    std::vector<SpendingSoFar> spendingSoFar(mSlots.count());
    double grandTotal = 0;
    for (const auto& transaction : transactions) {
        if (transaction->dayKey() < start || transaction->dayKey() > end)
            continue;
        grandTotal += transaction->amount();
        const std::size_t slot = mSlots.slotOf(transaction->categoryID());
        if (slot != CVCategorySlots::kNone)
            spendingSoFar[slot].add(*transaction);
    }
    mGrandTotal = RoundDoubleToTwoPlaces(grandTotal);
    for (const SpendingSoFar& sums : spendingSoFar)
        mSpending.push_back(sums.spending());
}

const CVSpending& CVSpendingOfRange::of(quint32 categoryID) const {
    static const CVSpending kNothing;
    const std::size_t slot = mSlots.slotOf(categoryID);
    return slot == CVCategorySlots::kNone ? kNothing : mSpending[slot];
}
