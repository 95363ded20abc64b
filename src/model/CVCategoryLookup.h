#pragma once

#include "model/CVCollections.h"

#include <QtGlobal>

#include <unordered_map>

/// Finds categories by ID during one walk over the transactions, as `CVDocument::getCategoryByUniqueID` does. Make a
/// new object for each walk, because it does not follow changes. The categories outlive it.
class CVCategoryLookup final {
public:
    explicit CVCategoryLookup(const CVCategories& categories);

    /// Null when there is none.
    [[nodiscard]] CVCategory* find(quint32 id) const;

private:
    std::unordered_map<quint32, CVCategory*> mByID;
};
