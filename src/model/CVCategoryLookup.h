#pragma once

#include "model/CVDocument.h"
#include "model/CVIDMap.h"

/// Finds categories by ID for the length of one walk over the transactions: same answers as
/// `CVDocument::getCategoryByUniqueID`, at a cost that does not grow with their number. Made anew for each walk, so it
/// can never be out of date; the categories outlive it.
class CVCategoryLookup final {
public:
    explicit CVCategoryLookup(const CVDocument::Categories& categories);

    /// Null when there is none.
    [[nodiscard]] CVCategory* find(quint32 id) const { return mByID.find(id); }

private:
    CVIDMap<CVCategory*> mByID{nullptr};
};
