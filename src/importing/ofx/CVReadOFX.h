#pragma once

#include "importing/statements/CVStatement.h"
#include "importing/statements/CVStopRequested.h"

/// Whether the bytes are a statement in OFX or QFX, by their beginning.
[[nodiscard]] bool CVIsOFX(const QByteArray& bytes);

/// Reads a statement in OFX or QFX, version 1 or 2. See `CVReadStatement`.
[[nodiscard]] CVStatement CVReadOFX(const QByteArray& bytes, const CVStatementMapping& known = {},
                                    const CVStopRequested& stop = {});
