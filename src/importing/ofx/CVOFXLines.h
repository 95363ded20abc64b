#pragma once

#include "importing/ofx/CVOFXContents.h"
#include "importing/statements/CVDecimalMarks.h"
#include "importing/statements/CVStatementLine.h"
#include "importing/statements/CVStatementMapping.h"
#include "importing/statements/CVStatementQuestion.h"

#include <QChar>

#include <optional>
#include <vector>

/// What the amounts of all accounts say about the decimal mark; the balances only where those say nothing.
[[nodiscard]] CVDecimalMarks CVDecimalMarksOfOFX(const CVOFXContents& contents);

/// How the amounts are read.
struct CVOFXMarks {
    QChar mark = u'.';
    /// Whether the file writes both marks: an amount that is one with the other mark alone is read so.
    bool areBoth = false;
};

/// The lines of an account, and the question that its signs leave open.
struct CVOFXLines {
    std::vector<CVStatementLine> lines = {};
    std::optional<CVStatementQuestion> question = std::nullopt;
};
[[nodiscard]] CVOFXLines CVLinesOfOFX(const CVOFXAccount& account, const CVOFXMarks& marks,
                                      const CVStatementMapping& known);
