#pragma once

#include "model/CVCompareTransactions.h"
#include "model/CVDocument.h"

/// Puts transactions into the order of `CVCompareTransactions`, equal ones as they were: what std::stable_sort with
/// that comparison does, without a look-up of names per comparison. `categories` are those that the transactions refer
/// to. An unknown key leaves everything in place.
void CVSortTransactions(CVDocument::Transactions& transactions, const CVTransactionSortContext& context,
                        const CVDocument::Categories& categories);
