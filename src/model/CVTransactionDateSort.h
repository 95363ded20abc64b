#pragma once

#include "model/CVDocument.h"

/// Puts transactions into the document's order: `CVCompareTransactions` by "date", descending, equal ones as they were.
/// A list that is in order already costs one walk.
void CVSortTransactionsByDate(CVDocument::Transactions& transactions, const CVDocument::Categories& categories);
