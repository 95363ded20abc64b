#include "contents/CVMergeCategories.h"

#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"

#include <algorithm>

namespace {

bool hasPlan(const CVCategory& category) {
    return category.expenseTarget() != 0;
}

std::size_t countOf(const CVDocument& document, const CVCategory& category) {
    const auto& transactions = document.transactions();
    const auto count = std::count_if(transactions.begin(), transactions.end(), [&category](const auto& transaction) {
        return transaction->categoryID() == category.uniqueID();
    });
    return static_cast<std::size_t>(count);
}

} // namespace

CVCategoryMerge CVExamineMerge(const CVDocument& document, const std::shared_ptr<CVCategory>& from,
                               const std::shared_ptr<CVCategory>& into) {
    const bool takesPlan = hasPlan(*from) && !hasPlan(*into);
    return {from, into, countOf(document, *from), countOf(document, *into), takesPlan ? from : into};
}

bool CVMergeCategories(CVDocument& document, const std::shared_ptr<CVCategory>& from,
                       const std::shared_ptr<CVCategory>& into) {
    if (from == into || from->document() != &document || into->document() != &document)
        return false;
    if (hasPlan(*from) && !hasPlan(*into)) {
        into->setExpenseFrequency(from->expenseFrequency());
        into->setExpenseTarget(from->expenseTarget());
    }
    for (const auto& transaction : document.transactions()) {
        if (transaction->categoryID() == from->uniqueID())
            transaction->setCategoryID(into->uniqueID());
    }
    // A category of the document that goes is a deletion, which asks for the version.
    document.dropCategory(from);
    document.finishChanges();
    return true;
}
