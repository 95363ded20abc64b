#pragma once

#include <QString>

#include <optional>

class CVCategory;
class CVGridContents;

/// The rich text of the tooltip that explains a total of the grid: its category (all categories when null), the period
/// of its column (all periods when absent) and the number of transactions; for a single cell also the plan and the
/// difference.
[[nodiscard]] QString CVToolTipOfGridCell(const CVGridContents& contents, const CVCategory* category,
                                          std::optional<int> column, double spent);
