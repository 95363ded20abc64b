#pragma once

#include "model/CVCollections.h"
#include "model/CVCompareTransactions.h"

/// Sorts transactions by `CVCompareTransactions` and keeps the order of equal ones, as std::stable_sort does. An
/// unknown key leaves everything in place.
void CVSortTransactions(CVTransactions& transactions, const CVTransactionSortContext& context);
