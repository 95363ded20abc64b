#pragma once

#include <array>
#include <cstddef>

/// The printed reports.
enum class CVReportType : unsigned {
    Transactions,
    CategoryAverages,
    /// Plan against actual.
    CategoryTotals,
    CategoryPercents,
    CategoryTax,
    Summary
};
inline constexpr std::size_t kReportTypes = 6;

/// Whether a report always lies on its side, however the page is set up: the others are narrow enough to stand.
[[nodiscard]] constexpr bool CVIsForcedToLandscape(CVReportType type) {
    constexpr std::array<bool, kReportTypes> kForced{false, true, true, false, false, true};
    return kForced[static_cast<std::size_t>(type)];
}
