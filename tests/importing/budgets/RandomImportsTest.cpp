#include "ImportBudget.h"
#include "differences/CVBudgetDifferences.h"
#include "importing/CVTakeBackImport.h"
#include "importing/ImportFixtures.h"
#include "importing/budgets/CVOtherBudget.h"
#include "kit/RandomBudget.h"
#include "storage/CVDocumentReader.h"
#include "transfer/CVTransferCSV.h"
#include "transfer/CVTransferJSON.h"

#include <QBuffer>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr quint32 kSeeds = 800;
/// A line of JSON takes long.
constexpr quint32 kSeedsOfText = 200;

/// As a line of a data file has them: each ID once, in order.
void settle(RandomBudget& budget) {
    budget.document().finishedParsingData();
    budget.builder().inOrder();
}

/// The elements of the data file, sorted, because equal days and names have no order.
QByteArrayList elements(CVDocument& document) {
    QByteArrayList elements = textButForLastID(document).split('<');
    std::sort(elements.begin(), elements.end());
    return elements;
}

/// What the transactions say but for their sets.
QStringList withoutSets(QStringList lines) {
    for (QString& line : lines)
        line = line.section(u'|', 1);
    lines.sort();
    return lines;
}

/// Whether each of `some` stands in `all` at least as often; both are sorted.
bool holds(const QStringList& all, const QStringList& some) {
    return std::includes(all.begin(), all.end(), some.begin(), some.end());
}

TEST(RandomImports, HoldAllOfBothAndNothingElseAndCanBeTakenBack) {
    int imports = 0;
    for (quint32 seed = 0; seed < kSeeds; ++seed) {
        RandomBudget ours(2 * seed);
        RandomBudget theirs(2 * seed + 1);
        settle(ours);
        settle(theirs);
        const auto before = elements(ours.document());
        const QStringList oursBefore = linesOfBudget(ours.document());
        const QStringList theirLines = linesOfBudget(theirs.document());
        const auto former = ours.document().transactions();
        const CVImported imported = importBudget(ours.document(), theirs.document());
        const QStringList after = linesOfBudget(ours.document());
        ASSERT_TRUE(holds(withoutSets(after), withoutSets(theirLines))) << "seed " << seed;
        ASSERT_TRUE(holds(withoutSets(after), withoutSets(oursBefore))) << "seed " << seed;
        for (const QString& line : theirLines)
            ASSERT_TRUE(line.startsWith(u'|') || after.contains(line)) << "seed " << seed << line.toStdString();
        ASSERT_EQ(after.size() - oursBefore.size(), static_cast<qsizetype>(imported.entries.size())) << "seed " << seed;
        ASSERT_TRUE(std::all_of(former.begin(), former.end(),
                                [&ours](const auto& transaction) {
                                    const auto& present = ours.document().transactions();
                                    return std::find(present.begin(), present.end(), transaction) != present.end();
                                }))
            << "seed " << seed;
        ASSERT_EQ(importBudget(ours.document(), theirs.document()).lines, 0) << "seed " << seed;
        if (imported.entries.empty())
            continue;
        ++imports;
        (void)CVTakeBackImport(ours.document(), imported, CVEditedTransactions::Stay);
        ASSERT_EQ(elements(ours.document()), before) << "seed " << seed;
    }
    EXPECT_GT(imports, 600);
}

/// What the transactions say, in memory.
QStringList exactLines(const CVDocument& budget) {
    QString text = QString::fromUtf8(*CVTransferJSON(budget, budget.transactions()));
    QStringList lines = text.split(u'\n');
    for (QString& line : lines)
        line.remove(QRegularExpression(",$"));
    lines.sort();
    return lines;
}

/// Transactions without a set are in one where there are others too.
QStringList withoutInitialSet(QStringList lines) {
    for (QString& line : lines)
        line.replace("\"set\":\"Initial Transaction Set\"", "\"set\":\"\"");
    lines.sort();
    return lines;
}

TEST(RandomImports, OfExportedTransactionsIntoAnEmptyBudgetAreEqual) {
    for (quint32 seed = 0; seed < kSeedsOfText; ++seed) {
        RandomBudget theirs(seed);
        settle(theirs);
        for (const bool isCSV : {true, false}) {
            const auto& transactions = theirs.document().transactions();
            const auto bytes = isCSV ? CVTransferCSV(theirs.document(), transactions)
                                     : CVTransferJSON(theirs.document(), transactions);
            QBuffer file;
            file.setData(*bytes);
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            CVDocumentReader reader;
            const CVOtherBudget other = CVOtherBudget::read(reader, file);
            ASSERT_TRUE(other.budget) << "seed " << seed << other.problem.toStdString();
            CVDetachedDocument empty;
            const CVMergedBudget merged = CVMergeForImport(*empty, **other.budget, other.plans);
            BudgetBuilder present;
            const auto all = CVBudgetDifferences::between(**merged.budget, *empty, &*empty);
            (void)CVImportFromBudget(present.document(), **merged.budget, *empty, all);
            ASSERT_EQ(withoutInitialSet(exactLines(present.document())), exactLines(theirs.document()))
                << "seed " << seed;
        }
    }
}

} // namespace
