#include "model/CVCategoryLookup.h"

#include "model/CVCategory.h"

CVCategoryLookup::CVCategoryLookup(const CVDocument::Categories& categories) {
    for (const auto& category : categories)
        mByID.insert(category->uniqueID(), category.get());
}
