#pragma once

#include "importing/delimited/CVAmountRule.h"
#include "importing/delimited/CVStatementTable.h"
#include "importing/statements/CVStatementLine.h"
#include "importing/statements/CVStatementMapping.h"
#include "importing/statements/CVStopRequested.h"

#include <optional>
#include <vector>

/// How the cells of a row become a line.
struct CVLineRule {
    /// Of every column; those of the amounts are in `amounts`.
    std::vector<CVColumnRole> roles = {};
    int day = -1;
    CVDayOrder order = CVDayOrder::DayMonthYear;
    /// Of days without one: that of the first line.
    std::optional<int> year = std::nullopt;
    /// Whether a new year begins among the lines.
    bool doesYearChange = false;
    CVAmountRule amounts = {};
};

/// The lines of a table. Rows without a day and an amount are left out, and so are balances and sums; a row with one of
/// both is a line that cannot be read. A row of text alone goes on with the purpose of the line above, and rows
/// without a day that make its amount together are its parts. Fewer lines
/// where `stop` answers true.
[[nodiscard]] std::vector<CVStatementLine> CVReadStatementLines(const CVStatementTable& table, const CVLineRule& rule,
                                                                const CVStopRequested& stop);
