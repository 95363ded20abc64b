#pragma once

#include "budget/CVDayRange.h"
#include "model/CVDocument.h"

class CVCategory;

/// The transactions in the range, in their order; with a category whose ID is not 0 only those of that ID. A category
/// with ID 0, like none, lets all through.
[[nodiscard]] CVDocument::Transactions transactionsForDateRange(const CVDocument::Transactions& transactions,
                                                                const CVDayRange& range,
                                                                const CVCategory* category = nullptr);

/// The transactions behind one cell of the grid: exactly the category's own, also where its ID is 0.
[[nodiscard]] CVDocument::Transactions transactionsOfCell(const CVDocument::Transactions& transactions,
                                                          const CVDayRange& range, const CVCategory& category);
