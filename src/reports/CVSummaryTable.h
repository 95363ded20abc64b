#pragma once

#include <QString>

#include <optional>

/// What the summary report asks the table for whose rows and columns it prints. Both are counted from 0.
class CVSummaryTable {
public:
    [[nodiscard]] virtual QString columnTitle(int column) const = 0;
    /// Absent where the table shows nothing.
    [[nodiscard]] virtual std::optional<double> objectValue(int column, int row) const = 0;

protected:
    ~CVSummaryTable() = default;
};
