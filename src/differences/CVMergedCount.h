#pragma once

#include <algorithm>

/// How many of something there are once two changes of their number are joined: `common` before both, `ours` and
/// `theirs` after each. What both have done the same way counts once, as far as the larger change goes.
[[nodiscard]] constexpr int CVMergedCount(int common, int ours, int theirs) {
    if (ours > common && theirs > common)
        return std::max(ours, theirs);
    if (ours < common && theirs < common)
        return std::min(ours, theirs);
    return std::max(0, ours + theirs - common);
}
