#pragma once

#include "commands/CVImportRequest.h"

class QTextStream;

/// `corvella import`. Returns the exit status: 0, or 1 after one line on `errors` that says what failed, what is to be
/// answered, or which lines could not be read or have no category; then nothing is recorded.
[[nodiscard]] int CVRunImport(const CVImportRequest& request, QTextStream& errors);
