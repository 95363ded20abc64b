#include "ImportBudget.h"
#include "importing/CVTakeBackImport.h"
#include "importing/ImportFixtures.h"
#include "kit/RandomBudget.h"
#include "model/CVRecordIDs.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr quint32 kSeeds = 1500;

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
    EXPECT_GT(imports, 1000);
}

} // namespace
