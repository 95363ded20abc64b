#include "model/CVTextRanks.h"

#include "model/CVCompareTransactions.h"

#include <algorithm>

void CVTextRanks::add(const QString& text) {
    if (text.isNull())
        return;
    if (mRanks.try_emplace(placeOf(text), kNoRank).second)
        mTexts.push_back(text);
}

void CVTextRanks::rank() {
    std::sort(mTexts.begin(), mTexts.end(),
              [](const QString& a, const QString& b) { return CVCompareTexts(a, b) < 0; });
    int rank = 0;
    for (std::size_t i = 0; i < mTexts.size(); ++i) {
        if (i > 0 && CVCompareTexts(mTexts[i - 1], mTexts[i]) != 0)
            ++rank;
        mRanks[placeOf(mTexts[i])] = rank;
    }
}

int CVTextRanks::rankOf(const QString& text) const {
    if (text.isNull())
        return kNoRank;
    const auto found = mRanks.find(placeOf(text));
    return found == mRanks.end() ? kNoRank : found->second;
}
