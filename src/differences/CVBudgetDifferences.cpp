#include "differences/CVBudgetDifferences.h"

#include "differences/CVMatchRecords.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <utility>

namespace {

template <typename Record>
std::vector<CVRecordDifference<Record>> find(const std::vector<std::shared_ptr<Record>>& before,
                                             const std::vector<std::shared_ptr<Record>>& after,
                                             const CVRecordMatching& matching) {
    std::vector<CVRecordDifference<Record>> differences;
    for (const CVRecordMatching::Pair& pair : matching.pairs()) {
        const auto earlier = pair.before ? before[*pair.before] : nullptr;
        const auto later = pair.after ? after[*pair.after] : nullptr;
        if (!earlier || !later || !CVSayTheSame(*earlier, *later))
            differences.push_back({earlier, later});
    }
    return differences;
}

} // namespace

bool CVBudgetDifferences::isLaterState(const CVDocument& before, const CVDocument& after) {
    const auto& categories = before.categories();
    const auto common = std::count_if(categories.begin(), categories.end(), [&after](const auto& category) {
        const auto same = after.getCategoryByUniqueID(category->uniqueID());
        return same && same->categoryName() == category->categoryName();
    });
    return 2 * static_cast<std::size_t>(common) >= categories.size();
}

CVBudgetDifferences CVBudgetDifferences::between(const CVDocument& before, const CVDocument& after,
                                                 const CVDocument* common) {
    const auto setsBefore = CVFirstOfEachID(before.transactionSets());
    const auto setsAfter = CVFirstOfEachID(after.transactionSets());
    const auto categoriesBefore = CVFirstOfEachID(before.categories());
    const auto categoriesAfter = CVFirstOfEachID(after.categories());
    const CVRecordMatching sets = CVMatchSets(setsBefore, setsAfter, common);
    const CVRecordMatching categories = CVMatchCategories(categoriesBefore, categoriesAfter, common);
    auto [transactions, atNamesakes] =
        CVFindTransactionDifferences(before.transactions(), after.transactions(), sets, categories);
    return {sets,
            categories,
            find(setsBefore, setsAfter, sets),
            find(categoriesBefore, categoriesAfter, categories),
            std::move(transactions),
            std::move(atNamesakes)};
}

CVBudgetDifferences CVBudgetDifferences::since(const CVDocument& before, const CVDocument& after) {
    return between(before, after, isLaterState(before, after) ? &before : nullptr);
}
