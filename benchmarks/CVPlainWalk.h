#pragma once

#include "model/CVDocument.h"

/// The yardstick of whatever goes through all transactions: one plain walk that reads the category, the date and the
/// amount of each record.
void CVPlainWalk(const CVTransactions& transactions);
