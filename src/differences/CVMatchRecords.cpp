#include "differences/CVMatchRecords.h"

#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransactionSet.h"

namespace {

const QString& nameOf(const CVCategory& category) {
    return category.categoryName();
}

const QString& nameOf(const CVTransactionSet& set) {
    return set.transactionSetName();
}

template <typename Record>
std::vector<CVRecordMatching::Record> namesOf(const std::vector<std::shared_ptr<Record>>& records) {
    std::vector<CVRecordMatching::Record> names;
    names.reserve(records.size());
    for (const auto& record : records)
        names.push_back({record->uniqueID(), nameOf(*record)});
    return names;
}

} // namespace

CVRecordMatching CVMatchSets(const CVTransactionSets& before, const CVTransactionSets& after,
                             const CVDocument* common) {
    return {namesOf(before), namesOf(after), CVIDsOf(common ? common->transactionSets() : CVTransactionSets()),
            CVRecordMatching::WithoutRecord::MeansTheLaterOne};
}

CVRecordMatching CVMatchCategories(const CVCategories& before, const CVCategories& after, const CVDocument* common) {
    return {namesOf(before), namesOf(after), CVIDsOf(common ? common->categories() : CVCategories()),
            CVRecordMatching::WithoutRecord::MeansNoLaterOne};
}

bool CVSayTheSame(const CVTransactionSet& a, const CVTransactionSet& b) {
    return a.transactionSetName() == b.transactionSetName();
}

bool CVSayTheSame(const CVCategory& a, const CVCategory& b) {
    return a.categoryName() == b.categoryName() && CVHaveTheSamePlan(a, b);
}

bool CVHaveTheSamePlan(const CVCategory& a, const CVCategory& b) {
    return a.expenseFrequency() == b.expenseFrequency() &&
           QString::number(a.expenseTarget(), 'f', 2) == QString::number(b.expenseTarget(), 'f', 2);
}
