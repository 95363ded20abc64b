#include "budget/CVCategorySlots.h"

#include "model/CVCategory.h"

std::vector<quint32> CVIDsOfCategories(const CVCategories& categories) {
    std::vector<quint32> ids;
    ids.reserve(categories.size());
    for (const auto& category : categories)
        ids.push_back(category->uniqueID());
    return ids;
}

CVCategorySlots::CVCategorySlots(std::span<const quint32> categoryIDs) {
    for (const quint32 id : categoryIDs)
        mSlots.emplace(id, mSlots.size());
}

std::size_t CVCategorySlots::slotOf(quint32 id) const {
    const auto found = mSlots.find(id);
    return found == mSlots.end() ? kNone : found->second;
}
