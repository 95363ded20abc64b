#pragma once

#include "model/CVDocument.h"

/// The yardstick of work on all transactions: one plain walk that reads the category, the date and the amount of each
/// record.
void CVWalkPlainly(const CVTransactions& transactions);
