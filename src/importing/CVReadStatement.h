#pragma once

#include "importing/statements/CVStatement.h"
#include "importing/statements/CVStopRequested.h"

/// A file beyond is refused.
inline constexpr qsizetype kCVLargestStatement = qsizetype{64} * 1024 * 1024;

/// Reads a statement of any kind, which its content tells. `known` is what was answered, chosen or remembered; the rest
/// is guessed. Rows that are pasted from a spreadsheet are such bytes too. When it is stopped, the statement has a
/// problem that says so.
[[nodiscard]] CVStatement CVReadStatement(const QByteArray& bytes, const CVStatementMapping& known = {},
                                          const CVStopRequested& stop = {});
