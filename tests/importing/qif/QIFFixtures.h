#pragma once

#include "importing/CVReadStatement.h"

#include <QString>

#include <vector>

/// "2024/03/12|-1250|payee|purpose|category|bank's number" for each line, or "2! why" for line 2, which cannot be read.
[[nodiscard]] QString qifLinesOf(const CVStatement& statement);

[[nodiscard]] std::vector<CVStatementQuestion::About> subjectsOf(const CVStatement& statement);

struct QIFRow {
    const char* bytes;
    const char* lines;
};

/// Reads each of the files without help and expects its lines.
void expectQIFRows(const std::vector<QIFRow>& rows);
