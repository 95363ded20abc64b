#pragma once

#include "importing/delimited/CVStatementRows.h"

#include <QStringList>

#include <optional>
#include <vector>

/// The rows of a statement, and which of them are what.
struct CVStatementTable {
    std::vector<CVStatementRow> rows = {};
    /// The line of the file in which the header begins; 0: none.
    int headerLine = 0;
    /// Of the header; of two rows where the second one completes the first. Empty without one.
    QStringList headings = {};
    /// The row behind the header, or the first.
    std::size_t first = 0;
    /// The row from which another table begins, or the number of rows.
    std::size_t end = 0;
    /// The cells that most lines have, and no fewer than the headings.
    int columns = 0;
    /// The rows with a day and an amount between `first` and `end`.
    std::vector<std::size_t> likely = {};

    /// The text of a cell; empty beyond the last one.
    [[nodiscard]] static QString cell(const CVStatementRow& row, int column);
    /// Whether the header stands there again.
    [[nodiscard]] bool repeatsHeader(const CVStatementRow& row) const;
};

/// Finds the header and the lines. `headerLine` is the one that is known; 0: there is none.
[[nodiscard]] CVStatementTable CVFindTable(std::vector<CVStatementRow> rows, std::optional<int> headerLine);
