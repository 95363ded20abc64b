#include "budget/CVSpending.h"

#include "model/CVTransaction.h"
#include "shared/base/QBMoney.h"

namespace {

void widen(CVSpending& spending, const QBDate& day) {
    if (!spending.firstDay || day.orderKey() < spending.firstDay->orderKey())
        spending.firstDay = day;
    if (!spending.lastDay || day.orderKey() > spending.lastDay->orderKey())
        spending.lastDay = day;
}

} // namespace

CVSpendingOfRange::CVSpendingOfRange(const CVDocument::Transactions& transactions, std::span<const quint32> categoryIDs,
                                     const CVDayRange& range)
    : mRange(range)
    , mSlots(categoryIDs)
    , mSpending(mSlots.count()) {
    const qint64 start = range.start.orderKey();
    const qint64 end = range.end.orderKey();
    double grandTotal = 0;
    for (const auto& transaction : transactions) {
        const auto& date = transaction->effectiveDate();
        if (!date || date->orderKey() < start || date->orderKey() > end)
            continue;
        const double amount = transaction->amount();
        grandTotal += amount;
        const std::size_t slot = mSlots.slotOf(transaction->categoryID());
        if (slot == CVCategorySlots::kNone)
            continue;
        CVSpending& spending = mSpending[slot];
        spending.total = RoundDoubleToTwoPlaces(spending.total + amount);
        ++spending.count;
        widen(spending, *date);
        if (transaction->taxFlag()) {
            spending.taxTotal = RoundDoubleToTwoPlaces(amount + spending.taxTotal);
            ++spending.taxCount;
        }
    }
    mGrandTotal = RoundDoubleToTwoPlaces(grandTotal);
}

const CVSpending& CVSpendingOfRange::of(quint32 categoryID) const {
    static const CVSpending kNothing;
    const std::size_t slot = mSlots.slotOf(categoryID);
    return slot == CVCategorySlots::kNone ? kNothing : mSpending[slot];
}
