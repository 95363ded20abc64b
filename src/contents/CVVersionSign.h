#pragma once

#include <QtGlobal>

#include <cstddef>

/// What happened to something since an earlier version of the budget.
enum class CVVersionSign : quint8 { Removed, Added, Changed };
inline constexpr std::size_t kCVVersionSigns = 3;

/// The sign of a difference between the version and the present budget.
template <typename Difference>
[[nodiscard]] CVVersionSign CVSignOf(const Difference& difference) {
    if (!difference.after)
        return CVVersionSign::Removed;
    return difference.before ? CVVersionSign::Changed : CVVersionSign::Added;
}
