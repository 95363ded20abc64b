#pragma once

#include "importing/statements/CVStatement.h"
#include "importing/statements/CVStopRequested.h"

/// Reads a QIF file: lines that begin with a letter for what they hold, with `^` behind each entry. Lists, such as
/// those of categories, and investments are left out.
[[nodiscard]] CVStatement CVReadQIF(const QByteArray& bytes, const CVStatementMapping& known = {},
                                    const CVStopRequested& stop = {});

/// Whether the bytes are of that kind, with a header or without one.
[[nodiscard]] bool CVIsQIF(const QByteArray& bytes);
