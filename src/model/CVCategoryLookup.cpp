#include "model/CVCategoryLookup.h"

#include "model/CVCategory.h"

CVCategoryLookup::CVCategoryLookup(const CVCategories& categories) {
    for (const auto& category : categories)
        mByID.emplace(category->uniqueID(), category.get());
}

CVCategory* CVCategoryLookup::find(quint32 id) const {
    const auto found = mByID.find(id);
    return found == mByID.end() ? nullptr : found->second;
}
