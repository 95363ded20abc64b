#include "model/CVTextRanks.h"

#include "model/CVCompareTransactions.h"

#include <algorithm>
#include <numeric>

int CVTextRanks::add(const QString& text) {
    if (text.isNull())
        return kNoRank;
    const Place place{text.constData(), text.size()};
    const auto [number, isNew] = mNumbers.try_emplace(place, static_cast<int>(mTexts.size()));
    if (isNew)
        mTexts.push_back(text);
    return number->second;
}

void CVTextRanks::rank() {
    std::vector<std::size_t> order(mTexts.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::sort(order.begin(), order.end(),
              [this](std::size_t a, std::size_t b) { return CVCompareTexts(mTexts[a], mTexts[b]) < 0; });
    mRanks.assign(mTexts.size(), 0);
    for (std::size_t i = 1; i < order.size(); ++i) {
        const bool isSame = CVCompareTexts(mTexts[order[i - 1]], mTexts[order[i]]) == 0;
        mRanks[order[i]] = mRanks[order[i - 1]] + (isSame ? 0 : 1);
    }
}
