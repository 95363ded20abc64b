#include "commands/CVCheckCommand.h"

#include "commands/CVErrorLine.h"
#include "commands/CVReadOnlyBudget.h"
#include "commands/CVStandardStreams.h"
#include "model/CVDocument.h"

#include <QCoreApplication>

namespace {

struct CheckText {
    Q_DECLARE_TR_FUNCTIONS(CVCheckCommand)
};

} // namespace

int CVRunCheck(const std::optional<QString>& dataFile, QTextStream& errors) {
    CVReadOnlyBudget budget;
    if (!budget.read(dataFile, errors))
        return 1;
    const CVPartlyRead& partly = budget.partlyRead();
    if (partly.count == 1)
        CVWriteErrorLine(
            errors,
            CheckText::tr("note: 1 place was not understood, or only in part: %1").arg(partly.lines.constFirst()));
    else if (partly.count > 1)
        CVWriteErrorLine(errors, CheckText::tr("note: %1 places were not understood, or only in part; the first: %2")
                                     .arg(QString::number(partly.count), partly.lines.constFirst()));
    const CVDocument& document = budget.document();
    const QString text = QStringLiteral("transactions: %1\ncategories: %2\ntransaction sets: %3\ncurrent set: %4\n")
                             .arg(document.transactions().size())
                             .arg(document.countOfCategories())
                             .arg(document.countOfTransactionSets())
                             .arg(document.currentTransactionSet());
    return CVStandardStreams::write(text.toUtf8(), budget.dataFiles(), errors);
}
