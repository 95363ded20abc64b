#pragma once

#include <vector>

/// Column widths that together fill `available`, in proportion to `widths` but none below `smallest`. Where there is
/// not enough room, each is `smallest` and the sum exceeds `available`. In pixels.
[[nodiscard]] std::vector<int> CVFitWidths(const std::vector<int>& widths, int available, int smallest);
