#pragma once

#include <QString>

#include <optional>

/// The table that the summary report prints. Rows and columns are counted from 0.
class CVSummaryTable {
public:
    [[nodiscard]] virtual QString columnTitle(int column) const = 0;
    /// The value of a cell; absent when the table shows nothing there.
    [[nodiscard]] virtual std::optional<double> objectValue(int column, int row) const = 0;

protected:
    ~CVSummaryTable() = default;
};
