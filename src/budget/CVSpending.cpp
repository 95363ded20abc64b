#include "budget/CVSpending.h"

#include "base/QBMoney.h"
#include "model/CVTransaction.h"

#include <algorithm>

namespace {

void add(CVSpending& spending, double amount, const QBDate& day, bool isTaxed) {
    spending.total = RoundDoubleToTwoPlaces(spending.total + amount);
    ++spending.count;
    spending.firstDay = std::min(spending.firstDay.value_or(day), day);
    spending.lastDay = std::max(spending.lastDay.value_or(day), day);
    if (isTaxed) {
        spending.taxTotal = RoundDoubleToTwoPlaces(spending.taxTotal + amount);
        ++spending.taxCount;
    }
}

} // namespace

CVSpendingOfRange::CVSpendingOfRange(const CVTransactions& transactions, std::span<const quint32> categoryIDs,
                                     const CVDayRange& range)
    : mRange(range)
    , mSlots(categoryIDs)
    , mSpending(mSlots.count()) {
    double grandTotal = 0;
    for (const auto& transaction : transactions) {
        const auto day = transaction->effectiveDate();
        if (!range.contains(day))
            continue;
        grandTotal += transaction->amount();
        const std::size_t slot = mSlots.slotOf(transaction->categoryID());
        if (slot != CVCategorySlots::kNone)
            add(mSpending[slot], transaction->amount(), *day, transaction->taxFlag());
    }
    mGrandTotal = RoundDoubleToTwoPlaces(grandTotal);
}

const CVSpending& CVSpendingOfRange::of(quint32 categoryID) const {
    static const CVSpending kNothing;
    const std::size_t slot = mSlots.slotOf(categoryID);
    return slot == CVCategorySlots::kNone ? kNothing : mSpending[slot];
}
