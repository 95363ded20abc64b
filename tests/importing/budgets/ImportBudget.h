#pragma once

#include "importing/budgets/CVImportFromBudget.h"

#include <QStringList>

/// Imports all that the other budget has besides, as the program does: copies are merged.
[[nodiscard]] CVImported importBudget(CVDocument& ours, const CVDocument& theirs);

/// What the transactions say, sets and categories by their names, sorted.
[[nodiscard]] QStringList linesOfBudget(const CVDocument& budget);
