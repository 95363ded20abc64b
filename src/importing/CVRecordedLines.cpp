#include "importing/CVRecordedLines.h"

#include "base/QBMoney.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <cmath>

namespace {

constexpr double kHundredthsOfOne = 100;

std::optional<qint64> hundredthsOf(double amount) {
    if (!(std::abs(amount) < kQBNoCentsFrom))
        return std::nullopt;
    return std::llround(RoundDoubleToTwoPlaces(amount) * kHundredthsOfOne);
}

} // namespace

CVRecordedLines::CVRecordedLines(const CVDocument& document) {
    mLines.reserve(document.transactions().size());
    for (const auto& transaction : document.transactions()) {
        mLines.push_back({transaction, transaction->effectiveDate(), hundredthsOf(transaction->amount()),
                          transaction->payTo(), transaction->xfor(), transaction->categoryID(),
                          transaction->transactionSetID()});
    }
    for (const auto& category : document.categories()) {
        // The first of several with an ID, or with a name, is the one that counts.
        if (!mCategories.contains(category->uniqueID()))
            mCategories.insert(category->uniqueID(), category->categoryName());
        const QString name = category->categoryName().toCaseFolded();
        if (!mCategoriesByName.contains(name))
            mCategoriesByName.insert(name, category->categoryName());
        mNames.insert(category->categoryName());
    }
    for (auto category = mCategories.constBegin(); category != mCategories.constEnd(); ++category) {
        if (!category->isEmpty())
            mNamedCategories.insert(category.key());
    }
    for (const auto& set : document.transactionSets()) {
        if (!mSets.contains(set->uniqueID()))
            mSets.insert(set->uniqueID(), set->transactionSetName());
        if (!mSetsByName.contains(set->transactionSetName()))
            mSetsByName.insert(set->transactionSetName(), set->uniqueID());
    }
}

QString CVRecordedLines::categoryMeant(const QString& name) const {
    return mNames.contains(name) ? name : mCategoriesByName.value(name.toCaseFolded());
}

std::optional<quint32> CVRecordedLines::setNamed(const QString& name) const {
    const auto found = mSetsByName.constFind(name);
    return found == mSetsByName.constEnd() ? std::nullopt : std::optional(*found);
}
