#include "commands/CVCheckCommand.h"

#include "commands/CVReadOnlyBudget.h"
#include "commands/CVStandardStreams.h"
#include "model/CVDocument.h"

int CVRunCheck(const std::optional<QString>& dataFile, QTextStream& errors) {
    CVReadOnlyBudget budget;
    if (!budget.read(dataFile, errors))
        return 1;
    const CVDocument& document = budget.document();
    const QString text = QStringLiteral("transactions: %1\ncategories: %2\ntransaction sets: %3\ncurrent set: %4\n")
                             .arg(document.transactions().size())
                             .arg(document.countOfCategories())
                             .arg(document.countOfTransactionSets())
                             .arg(document.currentTransactionSet());
    return CVStandardStreams::write(text.toUtf8(), budget.dataFiles(), errors);
}
