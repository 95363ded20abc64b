#pragma once

#include <QStringList>

struct CVBudgetDifferences;

/// One line for each difference, for scripts and people alike, in English whatever the user's locale: "+", "-" or "~",
/// then, each after a tabulator, what it is ("set", "category" or "transaction") and what it says. A transaction says
/// set, day (2014-03-07), amount (12.50), payee, purpose, category, X where taxed, X where flagged. What changed stands
/// as "old => new". Tabulators and line feeds within texts become blanks.
[[nodiscard]] QStringList CVMakeDifferenceLines(const CVBudgetDifferences& differences);
