#pragma once

#include <QString>

#include <optional>

class QTextStream;

/// `corvella versions`: writes a line for each earlier version of a data file (absent: the user's own) and for each
/// copy that was kept of it, newest first: when it ceased to be the present state, why it was kept, its bytes and its
/// path, with tabulators between them. Reads no budget. Returns the exit status: 0, or 1 after one line on `errors`
/// that says what failed.
[[nodiscard]] int CVRunVersions(const std::optional<QString>& dataFile, QTextStream& errors);

/// The path of the version or kept copy of the user's own data file that has this file name. The name itself when it
/// names an existing file, is a path, or no version has it.
[[nodiscard]] QString CVFindVersionNamed(const QString& name);
