#pragma once

#include "kit/BudgetBuilder.h"

/// Adds two sets, of which the first is shown, and three categories.
inline void usual(BudgetBuilder& budget) {
    budget.set("Checking", 1).set("Cash", 2).currentSet(1).lastID(20);
    budget.category("Food", 3, CVExpenseFrequency::kMonthly, 200).category("Fuel", 4).category("Rent", 5);
}
