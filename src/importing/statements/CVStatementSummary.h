#pragma once

#include "importing/statements/CVStatementLine.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

/// What was recognized, in one line: `parts`, then how many lines there are and from when to when:
/// "Semicolons, Windows-1252, 148 lines, 12 March to 9 April".
[[nodiscard]] QString CVSummaryOfStatement(QStringList parts, const std::vector<CVStatementLine>& lines);

/// As people write it: "Windows-1252".
[[nodiscard]] QString CVNameOfEncoding(const QByteArray& encoding);
