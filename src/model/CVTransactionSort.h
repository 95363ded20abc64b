#pragma once

#include "model/CVCompareTransactions.h"
#include "model/CVDocument.h"

/// Puts transactions into the order of `CVCompareTransactions`, equal ones as they were: what std::stable_sort with
/// that comparison does, without a look-up of names per comparison. `categories` are those that the transactions refer
/// to. An unknown key leaves everything in place; a list in which few lines stand in the wrong place costs one walk.
/// True when no line lacks what it is sorted by: then any part of the list is in order as well.
bool CVSortTransactions(CVDocument::Transactions& transactions, const CVTransactionSortContext& context,
                        const CVDocument::Categories& categories);
/// The same for a list that does not own them; none of the pointers is null.
bool CVSortTransactions(std::vector<CVTransaction*>& transactions, const CVTransactionSortContext& context,
                        const CVDocument::Categories& categories);
