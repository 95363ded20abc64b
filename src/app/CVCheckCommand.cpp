#include "app/CVCheckCommand.h"

#include "app/CVReadOnlyBudget.h"

#include <QTextStream>

int CVRunCheck(const std::optional<QString>& dataFile, QTextStream& output, QTextStream& errors) {
    CVReadOnlyBudget budget;
    if (!budget.read(dataFile, errors))
        return 1;
    const CVDocument& document = budget.document();
    output << "transactions: " << document.transactions().size() << '\n'
           << "categories: " << document.countOfCategories() << '\n'
           << "transaction sets: " << document.countOfTransactionSets() << '\n'
           << "current set: " << document.currentTransactionSet() << Qt::endl;
    return 0;
}
