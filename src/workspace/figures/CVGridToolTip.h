#pragma once

#include <QString>

#include <optional>

class CVCategory;
class CVGridContents;

/// Where a sum of the grid comes from: whose (without a category, everybody's), in which column's period (without one,
/// in all of them), from how many transactions; for a single cell also what was planned and the difference. Rich text.
[[nodiscard]] QString CVGridToolTip(const CVGridContents& contents, const CVCategory* category,
                                    std::optional<int> column, double spent);
