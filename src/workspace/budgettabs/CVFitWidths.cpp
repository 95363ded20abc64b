#include "workspace/budgettabs/CVFitWidths.h"

#include <QtGlobal>

#include <algorithm>
#include <numeric>

std::vector<int> CVFitWidths(const std::vector<int>& widths, int available, int smallest) {
    std::vector<std::size_t> narrowToWide(widths.size());
    std::iota(narrowToWide.begin(), narrowToWide.end(), 0U);
    std::stable_sort(narrowToWide.begin(), narrowToWide.end(),
                     [&](std::size_t one, std::size_t other) { return widths[one] < widths[other]; });

    const auto sharesOf = [&](std::size_t column) { return std::max(1, widths[column]); };
    qint64 shares = 0;
    for (const std::size_t column : narrowToWide)
        shares += sharesOf(column);
    qint64 rest = available;
    std::vector<int> fitted(widths.size());
    // Each column takes its share of what the narrower columns have left, so that no pixel is lost to rounding.
    for (const std::size_t column : narrowToWide) {
        const qint64 part = std::max<qint64>(smallest, rest * sharesOf(column) / shares);
        fitted[column] = static_cast<int>(part);
        rest = std::max<qint64>(0, rest - part);
        shares -= sharesOf(column);
    }
    return fitted;
}
