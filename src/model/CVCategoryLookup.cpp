#include "model/CVCategoryLookup.h"

#include "model/CVCategory.h"

CVCategoryLookup::CVCategoryLookup(const CVCategories& categories) {
    for (const auto& category : categories)
        mByID.insert(category->uniqueID(), category.get());
}
