#include "commands/CVSetsCommand.h"

#include "commands/CVReadOnlyBudget.h"
#include "commands/CVStandardStreams.h"
#include "model/CVTransactionSet.h"

int CVRunSets(const std::optional<QString>& dataFile, QTextStream& errors) {
    CVReadOnlyBudget budget;
    if (!budget.read(dataFile, errors))
        return 1;
    QByteArray text;
    for (const auto& set : budget.document().transactionSets())
        text += set->transactionSetName().toUtf8() + '\n';
    return CVStandardStreams::write(text, budget.dataFiles(), errors);
}
