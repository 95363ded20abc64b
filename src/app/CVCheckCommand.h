#pragma once

#include <QString>

#include <optional>

class QTextStream;

/// `corvella check`: reads a data file (absent: the user's own) without writing anything and prints what it holds.
/// Returns the exit status: 0, or 1 after one line on `errors` that says why the file could not be read.
[[nodiscard]] int CVRunCheck(const std::optional<QString>& dataFile, QTextStream& output, QTextStream& errors);
