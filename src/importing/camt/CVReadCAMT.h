#pragma once

#include "importing/statements/CVStatement.h"
#include "importing/statements/CVStopRequested.h"

/// Reads the XML messages of ISO 20022 in which banks tell what happened on an account: camt.053 (statement), camt.052
/// (report) and camt.054 (notification), in all versions.
[[nodiscard]] CVStatement CVReadCAMT(const QByteArray& bytes, const CVStatementMapping& known = {},
                                     const CVStopRequested& stop = {});

/// Whether the bytes are of that kind.
[[nodiscard]] bool CVIsCAMT(const QByteArray& bytes);
