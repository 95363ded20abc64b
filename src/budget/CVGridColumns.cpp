#include "budget/CVGridColumns.h"

#include <algorithm>
#include <numeric>

CVGridColumns::CVGridColumns(int columns) : mShown(static_cast<std::size_t>(columns)) {
    std::iota(mShown.begin(), mShown.end(), 1);
}

void CVGridColumns::configure(std::size_t wanted) {
    if (wanted < mShown.size()) {
        const auto first = mShown.begin() + static_cast<std::ptrdiff_t>(wanted);
        mSpare.insert(mSpare.begin(), first, mShown.end());
        mShown.erase(first, mShown.end());
        return;
    }
    const std::size_t missing = std::min(wanted - mShown.size(), mSpare.size());
    const auto end = mSpare.begin() + static_cast<std::ptrdiff_t>(missing);
    mShown.insert(mShown.end(), mSpare.begin(), end);
    mSpare.erase(mSpare.begin(), end);
}
