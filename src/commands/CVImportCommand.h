#pragma once

#include "commands/CVImportRequest.h"

class QTextStream;

/// `corvella import`, of a statement or of another budget, as the content of the file says. Returns the exit status: 0,
/// or 1 after one line on `errors` that says what failed, what is to be answered, or which lines could not be read or
/// have no category; then nothing is recorded. 2 where the options do not fit the file.
[[nodiscard]] int CVRunImport(const CVImportRequest& request, QTextStream& errors);
