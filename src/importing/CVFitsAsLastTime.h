#pragma once

#include "importing/statements/CVStatement.h"

/// Whether a statement that was read with the mapping of the last one says no less than read without it.
[[nodiscard]] bool CVFitsAsLastTime(const CVStatement& asLastTime, const CVStatement& statement);
