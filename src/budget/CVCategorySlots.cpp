#include "budget/CVCategorySlots.h"

#include "model/CVCategory.h"

#include <algorithm>

namespace {

constexpr quint32 kSmallIDs = 4096;

} // namespace

std::vector<quint32> CVCategoryIDs(const CVDocument::Categories& categories) {
    std::vector<quint32> ids;
    ids.reserve(categories.size());
    for (const auto& category : categories)
        ids.push_back(category->uniqueID());
    return ids;
}

CVCategorySlots::CVCategorySlots(std::span<const quint32> categoryIDs) {
    for (const quint32 id : categoryIDs) {
        if (slotOf(id) != kNone)
            continue;
        if (id < kSmallIDs) {
            mSmall.resize(std::max<std::size_t>(mSmall.size(), id + 1), kNone);
            mSmall[id] = mCount++;
        } else {
            mLarge.emplace(id, mCount++);
        }
    }
}

std::size_t CVCategorySlots::slotOfLarge(quint32 id) const {
    const auto found = mLarge.find(id);
    return found == mLarge.end() ? kNone : found->second;
}
