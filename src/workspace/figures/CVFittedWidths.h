#pragma once

#include <vector>

/// Widths of columns that together fill `available`, in proportion to `widths`, yet none below `smallest`; where that
/// is not enough, each is `smallest` and they take more. In pixels.
[[nodiscard]] std::vector<int> CVFittedWidths(const std::vector<int>& widths, int available, int smallest);
