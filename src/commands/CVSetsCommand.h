#pragma once

#include <QString>

#include <optional>

class QTextStream;

/// `corvella sets`: writes the names of the transaction sets of a data file (absent: the user's own) to standard
/// output, one line each, in the order of the file. Returns the exit status: 0, or 1 after one line on `errors` that
/// says what failed.
[[nodiscard]] int CVRunSets(const std::optional<QString>& dataFile, QTextStream& errors);
