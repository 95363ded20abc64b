#include "BroughtBack.h"

#include <algorithm>

namespace {

QString nameOfSet(const CVDocument& document, quint32 id) {
    for (const auto& set : document.transactionSets()) {
        if (set->uniqueID() == id)
            return set->transactionSetName();
    }
    return "-";
}

} // namespace

CVBudgetDifferences differencesTo(BudgetBuilder& version, BudgetBuilder& present) {
    return CVBudgetDifferences::since(version.document(), present.document());
}

QStringList entriesOf(const CVDocument& document) {
    QStringList entries;
    for (const auto& transaction : document.transactions()) {
        const QString category = transaction->categoryName();
        entries.append(nameOfSet(document, transaction->transactionSetID()) + '/' +
                       (category.isNull() ? "-" : category) + ' ' + transaction->payTo() + ' ' +
                       QString::number(transaction->amount(), 'f', 2));
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

QStringList setsOf(const CVDocument& document) {
    QStringList sets;
    for (const auto& set : document.transactionSets())
        sets.append(QString::number(set->uniqueID()) + ' ' + set->transactionSetName());
    return sets;
}

QStringList categoriesOf(const CVDocument& document) {
    QStringList categories;
    for (const auto& category : document.categories())
        categories.append(QString::number(category->uniqueID()) + ' ' + category->categoryName() + ' ' +
                          QString::number(category->expenseTarget()));
    return categories;
}

BudgetBuilder::Entry market(const QString& set, const QString& category) {
    return {.date = day(2014, 3, 7), .amount = 30, .payTo = "Market", .category = category, .set = set};
}
