#pragma once

#include "importing/statements/CVStatementLine.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

/// What was recognized, in one line: `parts`, then how many lines there are and from when to when:
/// "Semicolons, Windows-1252, 148 lines, 12 March to 9 April".
[[nodiscard]] QString CVSummaryOfStatement(QStringList parts, const std::vector<CVStatementLine>& lines);

/// From the first to the last day, with the year where it is not this one: "12 March to 9 April".
[[nodiscard]] QString CVPeriodInWords(const QBDate& first, const QBDate& last);

/// As people write it: "Windows-1252".
[[nodiscard]] QString CVNameOfEncoding(const QByteArray& encoding);
