#include "differences/CVBudgetDifferences.h"

#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVRecordIDs.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <utility>

namespace {

const QString& nameOf(const CVCategory& category) {
    return category.categoryName();
}

const QString& nameOf(const CVTransactionSet& set) {
    return set.transactionSetName();
}

template <typename Records>
Records firstOfEachID(Records records) {
    CVKeepFirstOfEachID(records);
    return records;
}

template <typename Record>
std::vector<CVRecordMatching::Record> namesOf(const std::vector<std::shared_ptr<Record>>& records) {
    std::vector<CVRecordMatching::Record> names;
    names.reserve(records.size());
    for (const auto& record : records)
        names.push_back({record->uniqueID(), nameOf(*record)});
    return names;
}

bool areSame(const CVTransactionSet& a, const CVTransactionSet& b) {
    return a.transactionSetName() == b.transactionSetName();
}

/// The plan is compared as the data file holds it.
bool areSame(const CVCategory& a, const CVCategory& b) {
    return a.categoryName() == b.categoryName() && a.expenseFrequency() == b.expenseFrequency() &&
           QString::number(a.expenseTarget(), 'f', 2) == QString::number(b.expenseTarget(), 'f', 2);
}

template <typename Record>
std::vector<CVRecordDifference<Record>> find(const std::vector<std::shared_ptr<Record>>& before,
                                             const std::vector<std::shared_ptr<Record>>& after,
                                             const CVRecordMatching& matching) {
    std::vector<CVRecordDifference<Record>> differences;
    for (const CVRecordMatching::Pair& pair : matching.pairs()) {
        const auto earlier = pair.before ? before[*pair.before] : nullptr;
        const auto later = pair.after ? after[*pair.after] : nullptr;
        if (!earlier || !later || !areSame(*earlier, *later))
            differences.push_back({earlier, later});
    }
    return differences;
}

template <typename Record>
CVRecordMatching
matched(const std::vector<std::shared_ptr<Record>>& before, const std::vector<std::shared_ptr<Record>>& after,
        const std::vector<std::shared_ptr<Record>>& common, CVRecordMatching::WithoutRecord withoutRecord) {
    return {namesOf(before), namesOf(after), CVIDsOf(common), withoutRecord};
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
    const auto setsBefore = firstOfEachID(before.transactionSets());
    const auto setsAfter = firstOfEachID(after.transactionSets());
    const auto categoriesBefore = firstOfEachID(before.categories());
    const auto categoriesAfter = firstOfEachID(after.categories());
    const CVRecordMatching sets =
        matched(setsBefore, setsAfter, common ? common->transactionSets() : CVTransactionSets(),
                CVRecordMatching::WithoutRecord::MeansTheLaterOne);
    const CVRecordMatching categories =
        matched(categoriesBefore, categoriesAfter, common ? common->categories() : CVCategories(),
                CVRecordMatching::WithoutRecord::MeansNoLaterOne);
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
