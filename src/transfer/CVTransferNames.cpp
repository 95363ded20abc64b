#include "transfer/CVTransferNames.h"

#include "model/CVCategory.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

namespace {

QByteArray nameWithID(const std::unordered_map<quint32, QByteArray>& names, quint32 id) {
    const auto found = names.find(id);
    return found == names.end() ? QByteArray() : found->second;
}

} // namespace

CVTransferNames::CVTransferNames(const CVDocument& document) {
    for (const auto& set : document.transactionSets())
        mSets.emplace(set->uniqueID(), set->transactionSetName().toUtf8());
    for (const auto& category : document.categories())
        mCategories.emplace(category->uniqueID(), category->categoryName().toUtf8());
}

QByteArray CVTransferNames::setOf(const CVTransaction& transaction) const {
    return nameWithID(mSets, transaction.transactionSetID());
}

QByteArray CVTransferNames::categoryOf(const CVTransaction& transaction) const {
    return nameWithID(mCategories, transaction.categoryID());
}
