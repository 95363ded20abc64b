#include "widgets/tables/CVSharedWidths.h"

#include <algorithm>
#include <numeric>

namespace {

/// Hands out the width to some of the columns, those that need least first.
void shareWidth(std::vector<int>& widths, const std::vector<CVColumnNeed>& columns, std::vector<std::size_t> some,
                int width) {
    std::stable_sort(some.begin(), some.end(),
                     [&columns](std::size_t a, std::size_t b) { return columns[a].width < columns[b].width; });
    auto left = static_cast<int>(some.size());
    for (const std::size_t column : some) {
        widths[column] = std::min(columns[column].width, width / left);
        width -= widths[column];
        --left;
    }
}

} // namespace

std::vector<int> CVSharedWidths(const std::vector<CVColumnNeed>& columns, int width, int least) {
    std::vector<int> widths;
    std::vector<std::size_t> texts;
    int leastTexts = 0;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        widths.push_back(columns[column].width);
        if (columns[column].isText) {
            texts.push_back(column);
            leastTexts += std::min(columns[column].width, least);
        }
    }
    const int missing = std::accumulate(widths.begin(), widths.end(), -width);
    if (missing <= 0) {
        auto left = static_cast<int>(texts.size());
        int spare = -missing;
        for (const std::size_t column : texts) {
            widths[column] += spare / left;
            spare -= spare / left;
            --left;
        }
        return widths;
    }
    int forTexts = -missing;
    for (const std::size_t column : texts)
        forTexts += widths[column];
    if (forTexts >= leastTexts) {
        shareWidth(widths, columns, std::move(texts), forTexts);
        return widths;
    }
    std::vector<std::size_t> all(columns.size());
    std::iota(all.begin(), all.end(), std::size_t(0));
    shareWidth(widths, columns, std::move(all), width);
    return widths;
}
