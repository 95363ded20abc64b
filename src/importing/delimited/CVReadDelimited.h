#pragma once

#include "importing/statements/CVStatement.h"
#include "importing/statements/CVStopRequested.h"

/// Reads a statement of rows whose cells are separated by commas, semicolons, tabs or bars. See `CVReadStatement`.
[[nodiscard]] CVStatement CVReadDelimited(const QByteArray& bytes, const CVStatementMapping& known = {},
                                          const CVStopRequested& stop = {});
