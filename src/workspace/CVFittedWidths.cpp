#include "workspace/CVFittedWidths.h"

#include <QtGlobal>

#include <algorithm>

std::vector<int> CVFittedWidths(const std::vector<int>& widths, int available, int smallest) {
    std::vector<int> shares;
    qint64 allShares = 0;
    for (const int width : widths) {
        shares.push_back(std::max(0, width - smallest));
        allShares += shares.back();
    }
    if (allShares == 0) {
        shares.assign(widths.size(), 1);
        allShares = static_cast<qint64>(widths.size());
    }
    qint64 rest = std::max<qint64>(0, available - static_cast<qint64>(widths.size()) * smallest);
    std::vector<int> fitted;
    for (const int share : shares) {
        // Each takes its part of what is left, so that no pixel is lost to rounding.
        const qint64 part = allShares == 0 ? 0 : rest * share / allShares;
        fitted.push_back(smallest + static_cast<int>(part));
        rest -= part;
        allShares -= share;
    }
    return fitted;
}
