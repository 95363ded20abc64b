#include "model/CVCategoryLookup.h"

#include "model/CVCategory.h"
#include "model/CVCompareTransactions.h"

#include <algorithm>

CVCategoryLookup::CVCategoryLookup(const CVDocument::Categories& categories) {
    mByID.reserve(categories.size());
    for (const auto& category : categories)
        mByID.try_emplace(category->uniqueID(), category.get());
}

CVCategory* CVCategoryLookup::find(quint32 id) const {
    const auto found = mByID.find(id);
    return found == mByID.end() ? nullptr : found->second;
}

std::unordered_map<quint32, int> CVCategoryLookup::nameRanks() const {
    std::vector<const CVCategory*> named;
    for (const auto& [id, category] : mByID) {
        if (!category->categoryName().isNull())
            named.push_back(category);
    }
    std::sort(named.begin(), named.end(), [](const CVCategory* a, const CVCategory* b) {
        return CVCompareTexts(a->categoryName(), b->categoryName()) < 0;
    });
    std::unordered_map<quint32, int> ranks;
    int rank = 0;
    for (std::size_t i = 0; i < named.size(); ++i) {
        if (i > 0 && CVCompareTexts(named[i - 1]->categoryName(), named[i]->categoryName()) != 0)
            ++rank;
        ranks.emplace(named[i]->uniqueID(), rank);
    }
    return ranks;
}
