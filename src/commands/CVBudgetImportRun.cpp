#include "commands/CVBudgetImportRun.h"

#include "commands/CVBudgetToChange.h"
#include "commands/CVErrorLine.h"
#include "commands/CVNamedDataFile.h"
#include "commands/CVReadOnlyBudget.h"
#include "commands/CVStandardStreams.h"
#include "commands/CVStraightQuotes.h"
#include "differences/CVBudgetDifferences.h"
#include "files/CVFileSignature.h"
#include "importing/budgets/CVImportFromBudget.h"
#include "importing/budgets/CVOtherBudget.h"
#include "storage/CVDocumentReader.h"
#include "transfer/CVTransferCSV.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>

namespace {

struct BudgetImportText {
    Q_DECLARE_TR_FUNCTIONS(CVBudgetImportRun)
};

constexpr int kBudgetNotImported = 1;

CVBudgetDifferences newIn(const CVMergedBudget& merged, const CVDocument& ours) {
    return CVBudgetDifferences::between(**merged.budget, ours, &ours);
}

CVTransactions transactionsOf(const CVBudgetDifferences& differences) {
    CVTransactions transactions;
    for (const auto& [theirs, ours] : differences.transactions) {
        if (theirs && !ours)
            transactions.push_back(theirs);
    }
    return transactions;
}

} // namespace

QString CVBudgetImportRun::refusal(CVBudgetFileKind kind) const {
    if (mRequest.optionsOfStatement.isEmpty())
        return {};
    return (kind == CVBudgetFileKind::DataFile
                ? BudgetImportText::tr("--%1 goes with a bank's statement; %2 is a Corvella budget, whose transactions "
                                       "say which set and category they are in")
                : BudgetImportText::tr("--%1 goes with a bank's statement; %2 holds transactions that Corvella has "
                                       "exported, which say which set and category they are in"))
        .arg(mRequest.optionsOfStatement.constFirst(), named());
}

QString CVBudgetImportRun::named() const {
    return u'"' + QDir::toNativeSeparators(mRequest.file) + u'"';
}

bool CVBudgetImportRun::isOwn(const QString& dataFile) const {
    if (!CVIsSameFile(mFile.fileName(), dataFile))
        return false;
    CVWriteErrorLine(mErrors,
                     BudgetImportText::tr("%1 is the data file itself; there is nothing to import").arg(named()));
    return true;
}

CVOtherBudget CVBudgetImportRun::read() {
    CVDocumentReader reader;
    CVOtherBudget other = CVOtherBudget::read(reader, mFile);
    if (!other.budget)
        CVWriteErrorLine(
            mErrors, BudgetImportText::tr("%1 could not be read: %2").arg(named(), CVStraightQuotes(other.problem)));
    else if (const QString partly = other.partlyText(); !partly.isEmpty())
        CVWriteErrorLine(mErrors, BudgetImportText::tr("note: %1").arg(CVStraightQuotes(partly)));
    return other;
}

int CVBudgetImportRun::dryRun() {
    CVReadOnlyBudget budget;
    const auto data = CVNamedDataFile::find(mRequest.dataFile, CVStandardFolders::ofUser(), budget.userDefaults());
    if (!data.isMissing && (isOwn(data.path) || !budget.readAndSort(mRequest.dataFile, mErrors)))
        return kBudgetNotImported;
    const CVOtherBudget other = read();
    if (!other.budget)
        return kBudgetNotImported;
    const CVMergedBudget merged = CVMergeForImport(budget.document(), **other.budget, other.plans);
    const auto lines = CVTransferCSV(**merged.budget, transactionsOf(newIn(merged, budget.document())));
    return CVStandardStreams::write(*lines, budget.dataFiles() + QStringList{mFile.fileName()}, mErrors);
}

int CVBudgetImportRun::import() {
    const QBUserDefaults defaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten);
    const CVStandardFolders folders = CVStandardFolders::ofUser();
    const auto data = CVNamedDataFile::find(mRequest.dataFile, folders, defaults);
    if (!data.problem.isEmpty())
        CVWriteErrorLine(mErrors, data.problem);
    if (!data.problem.isEmpty() || isOwn(data.path))
        return kBudgetNotImported;
    CVBudgetToChange budget;
    if (!budget.open(data.path, mErrors))
        return kBudgetNotImported;
    const CVOtherBudget other = read();
    if (!other.budget)
        return kBudgetNotImported;
    CVDocument& document = budget.document();
    const CVMergedBudget merged = CVMergeForImport(document, **other.budget, other.plans);
    const CVImported imported = CVImportFromBudget(document, **merged.budget, document, newIn(merged, document));
    if (imported.lines > 0 && !budget.waitUntilSaved(mErrors))
        return kBudgetNotImported;
    const std::size_t count = imported.entries.size();
    const QString text = count == 1 ? BudgetImportText::tr("1 transaction imported")
                                    : BudgetImportText::tr("%1 transactions imported").arg(count);
    const QStringList spared = CVOwnDataFiles(folders, defaults) + QStringList{data.path, mFile.fileName()};
    return CVStandardStreams::write((text + u'\n').toUtf8(), spared, mErrors);
}
