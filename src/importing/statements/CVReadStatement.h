#pragma once

#include "importing/statements/CVStatement.h"

#include <functional>

/// Asked often while something long is done, with the part that is done; true: stop.
using CVStopRequested = std::function<bool(int permille)>;

/// A file beyond is refused.
inline constexpr qsizetype kCVLargestStatement = qsizetype{64} * 1024 * 1024;

/// Reads a statement. `known` is what was answered, chosen or remembered; the rest is guessed. Rows that are pasted
/// from a spreadsheet are such bytes too. When it is stopped, the statement has a problem that says so.
[[nodiscard]] CVStatement CVReadStatement(const QByteArray& bytes, const CVStatementMapping& known = {},
                                          const CVStopRequested& stop = {});
