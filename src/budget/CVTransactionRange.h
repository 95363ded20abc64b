#pragma once

#include "budget/CVDayRange.h"
#include "model/CVCollections.h"

class CVCategory;

/// The transactions in the range, in their order. With a category whose ID is not 0, only those of that category; a
/// category with ID 0 lets all through, as none does.
[[nodiscard]] CVTransactions transactionsForDateRange(const CVTransactions& transactions, const CVDayRange& range,
                                                      const CVCategory* category = nullptr);

/// The transactions of one cell of the grid: only the category's own, even when its ID is 0.
[[nodiscard]] CVTransactions transactionsOfCell(const CVTransactions& transactions, const CVDayRange& range,
                                                const CVCategory& category);
