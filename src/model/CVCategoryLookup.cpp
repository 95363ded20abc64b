#include "model/CVCategoryLookup.h"

#include "model/CVCategory.h"
#include "model/CVCompareTransactions.h"

#include <algorithm>

CVCategoryLookup::CVCategoryLookup(const CVDocument::Categories& categories) {
    for (const auto& category : categories) {
        if (mByID.insert(category->uniqueID(), category.get()))
            mFirsts.push_back(category.get());
    }
}

std::unordered_map<quint32, int> CVCategoryLookup::nameRanks() const {
    std::vector<const CVCategory*> named;
    for (const CVCategory* const category : mFirsts) {
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
