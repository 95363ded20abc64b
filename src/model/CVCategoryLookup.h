#pragma once

#include "model/CVDocument.h"
#include "model/CVIDMap.h"

#include <unordered_map>

/// Finds categories by ID for the length of one walk over the transactions: same answers as
/// `CVDocument::getCategoryByUniqueID`, at a cost that does not grow with their number. Made anew for each walk, so it
/// can never be out of date; the categories outlive it.
class CVCategoryLookup final {
public:
    /// A name whose place in the order is unknown: the category is missing or has no name.
    static constexpr int kNoRank = -1;

    explicit CVCategoryLookup(const CVDocument::Categories& categories);

    /// Null when there is none.
    [[nodiscard]] CVCategory* find(quint32 id) const { return mByID.find(id); }

    /// For each ID the place of its category's name among all names, without regard to case: names that compare as
    /// equal share a rank.
    [[nodiscard]] std::unordered_map<quint32, int> nameRanks() const;

private:
    CVIDMap<CVCategory*> mByID{nullptr};
    /// The first of each ID.
    std::vector<CVCategory*> mFirsts;
};
