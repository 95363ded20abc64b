#pragma once

#include <QString>

#include <optional>

class QTextStream;

/// `corvella check`: reads a data file (absent: the user's own) and writes to standard output what the file holds;
/// writes nothing else anywhere. Returns the exit status: 0, or 1 after one line on `errors` that says what failed.
[[nodiscard]] int CVRunCheck(const std::optional<QString>& dataFile, QTextStream& errors);
