#pragma once

#include <array>
#include <cstddef>

/// The printed reports.
enum class CVReportType : unsigned {
    Transactions,
    CategoryAverages,
    /// The planned amounts against the actual ones.
    CategoryTotals,
    CategoryPercents,
    CategoryTax,
    Summary
};
inline constexpr std::size_t kReportTypes = 6;

/// Whether a report is always printed in landscape, whatever the page set-up, because it is too wide for portrait.
[[nodiscard]] constexpr bool CVIsForcedToLandscape(CVReportType type) {
    constexpr std::array<bool, kReportTypes> kForced{false, true, true, false, false, true};
    return kForced[static_cast<std::size_t>(type)];
}
