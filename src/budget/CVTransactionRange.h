#pragma once

#include "budget/CVDayRange.h"
#include "model/CVDocument.h"

class CVCategory;

/// The transactions in the range, in their order. With a category whose ID is not 0, only those of that category; a
/// category with ID 0 lets all through, as none does.
[[nodiscard]] CVDocument::Transactions transactionsForDateRange(const CVDocument::Transactions& transactions,
                                                                const CVDayRange& range,
                                                                const CVCategory* category = nullptr);

/// The transactions of one cell of the grid: only the category's own, even when its ID is 0.
[[nodiscard]] CVDocument::Transactions transactionsOfCell(const CVDocument::Transactions& transactions,
                                                          const CVDayRange& range, const CVCategory& category);
