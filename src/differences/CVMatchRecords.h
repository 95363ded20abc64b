#pragma once

#include "differences/CVRecordMatching.h"
#include "model/CVCollections.h"
#include "model/CVRecordIDs.h"

class CVDocument;

/// Of several records with one ID only the first counts, as in the data file.
template <typename Records>
[[nodiscard]] Records CVFirstOfEachID(Records records) {
    CVKeepFirstOfEachID(records);
    return records;
}

/// Tells which sets, or which categories, of two states are the same. Each ID stands once in either list. `common` is
/// an earlier state of both; null when they have none in common.
[[nodiscard]] CVRecordMatching CVMatchSets(const CVTransactionSets& before, const CVTransactionSets& after,
                                           const CVDocument* common);
[[nodiscard]] CVRecordMatching CVMatchCategories(const CVCategories& before, const CVCategories& after,
                                                 const CVDocument* common);

/// Whether names and plans are equal; a plan is compared as the data file holds it.
[[nodiscard]] bool CVSayTheSame(const CVTransactionSet& a, const CVTransactionSet& b);
[[nodiscard]] bool CVSayTheSame(const CVCategory& a, const CVCategory& b);
[[nodiscard]] bool CVHaveTheSamePlan(const CVCategory& a, const CVCategory& b);
