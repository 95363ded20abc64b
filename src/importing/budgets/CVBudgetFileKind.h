#pragma once

#include <QByteArray>

/// What a file that is to be imported holds, as far as it comes from this program.
enum class CVBudgetFileKind {
    /// Something else, which may be a bank's statement.
    None,
    DataFile,
    /// Transactions that were exported for other programs.
    Transfer
};

/// As many of the first bytes as tell the kind of a file.
inline constexpr qsizetype kCVTellingBytes = qsizetype{64} * 1024;

/// Recognises a file by its first bytes, whatever its name. A file that is damaged further on is recognised too.
[[nodiscard]] CVBudgetFileKind CVKindOfBudgetFile(const QByteArray& start);
