#pragma once

#include "importing/budgets/CVBudgetFileKind.h"

#include <QString>

/// What the file at that path holds; `None` too where it cannot be read, and for a pipe, which could be read only once.
[[nodiscard]] CVBudgetFileKind CVReadBudgetFileKind(const QString& path);
