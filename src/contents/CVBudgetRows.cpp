#include "contents/CVBudgetRows.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "budget/CVCategorySlots.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"

CVCategories buildCategoryArray(const CVDocument& document, CVShowUnused showUnused, CVShownSets shownSets) {
    if (showUnused == CVShowUnused::Yes)
        return document.categories();
    const CVCategorySlots categorySlots(CVIDsOfCategories(document.categories()));
    std::vector<char> used(categorySlots.count(), 0);
    for (const auto& transaction : document.transactions()) {
        if (shownSets == CVShownSets::Current && transaction->transactionSetID() != document.currentTransactionSet())
            continue;
        const std::size_t slot = categorySlots.slotOf(transaction->categoryID());
        if (slot != CVCategorySlots::kNone)
            used[slot] = 1;
    }
    CVCategories rows;
    for (const auto& category : document.categories()) {
        if (used[categorySlots.slotOf(category->uniqueID())])
            rows.push_back(category);
    }
    return rows;
}

CVShowUnused CVReadShowUnused(const QBUserDefaults& defaults) {
    const int value = defaults.integerForKey(CVDefaultsKeys::kShowUnusedCategories);
    return (value & 0xFF) == 1 ? CVShowUnused::Yes : CVShowUnused::No;
}
