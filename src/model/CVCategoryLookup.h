#pragma once

#include "model/CVCollections.h"
#include "model/CVIDMap.h"

/// Finds categories by ID during one walk over the transactions. Answers as `CVDocument::getCategoryByUniqueID` does,
/// but at a cost that does not grow with the number of categories. Each walk makes its own, so that it is never out of
/// date. The categories outlive it.
class CVCategoryLookup final {
public:
    explicit CVCategoryLookup(const CVCategories& categories);

    /// Null when there is none.
    [[nodiscard]] CVCategory* find(quint32 id) const { return mByID.find(id); }

private:
    CVIDMap<CVCategory*> mByID{nullptr};
};
