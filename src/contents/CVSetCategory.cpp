#include "contents/CVSetCategory.h"

#include "base/QBXMLText.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"

namespace {

/// The category of that name, made without a word where there is none.
std::shared_ptr<CVCategory> categoryNamed(CVDocument& document, const QString& name) {
    if (auto existing = document.doesCategoryNameExist(name))
        return existing;
    auto category = std::make_shared<CVCategory>();
    category->setCategoryName(name);
    category->setUniqueID(document.getUniqueCategoryID());
    category->setDocument(&document);
    document.appendCategory(category);
    return category;
}

} // namespace

std::size_t CVSetCategory(CVDocument& document, std::span<const std::shared_ptr<CVTransaction>> transactions,
                          const QString& name) {
    const QString storable = xml_storableText(name);
    const auto existing = document.doesCategoryNameExist(storable);
    CVTransactions changed;
    for (const auto& transaction : transactions) {
        if (transaction->document() == &document && (!existing || transaction->categoryID() != existing->uniqueID()))
            changed.push_back(transaction);
    }
    if (changed.empty())
        return 0;
    const auto category = categoryNamed(document, storable);
    for (const auto& transaction : changed)
        transaction->setCategoryID(category->uniqueID());
    document.finishChanges();
    return changed.size();
}
