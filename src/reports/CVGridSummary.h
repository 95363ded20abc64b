#pragma once

#include "reports/CVSummaryTable.h"

class CVGridContents;

/// Gives the summary report the cells of the budget grid. References the grid, which outlives it.
class CVGridSummary final : public CVSummaryTable {
public:
    explicit CVGridSummary(const CVGridContents& grid) : mGrid(grid) {}

    [[nodiscard]] QString columnTitle(int column) const override;
    [[nodiscard]] std::optional<double> objectValue(int column, int row) const override;

private:
    const CVGridContents& mGrid;
};
