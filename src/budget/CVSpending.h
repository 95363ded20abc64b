#pragma once

#include "budget/CVCategorySlots.h"
#include "budget/CVDayRange.h"
#include "model/CVDocument.h"

#include <vector>

/// What one category's transactions in a range of days come to.
struct CVSpending {
    /// Rounded to two places after every addition.
    double total = 0;
    quint64 count = 0;
    /// The first and the last day spent on; absent while the count is 0.
    std::optional<QBDate> firstDay;
    std::optional<QBDate> lastDay;
    /// The tax-flagged ones alone; the sum rounded after every addition.
    double taxTotal = 0;
    quint64 taxCount = 0;
};

/// The spending of several categories in a range of days, from one walk over the transactions in their order: each
/// sum is bit for bit the one that a walk for that category alone gives. Holds figures of the moment it was made.
class CVSpendingOfRange final {
public:
    CVSpendingOfRange(const CVDocument::Transactions& transactions, std::span<const quint32> categoryIDs,
                      const CVDayRange& range);

    [[nodiscard]] const CVDayRange& range() const { return mRange; }
    /// Of a category among those that it was made for (categories with one ID share their spending), else nothing
    /// spent.
    [[nodiscard]] const CVSpending& of(quint32 categoryID) const;
    /// The amounts of all transactions in the range, of whatever category, added without rounding and rounded once.
    [[nodiscard]] double grandTotal() const { return mGrandTotal; }

private:
    CVDayRange mRange;
    CVCategorySlots mSlots;
    std::vector<CVSpending> mSpending;
    double mGrandTotal = 0;
};
