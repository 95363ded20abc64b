#include "BroughtBack.h"
#include "ReadInto.h"
#include "differences/CVBringBack.h"
#include "kit/RandomBudget.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <unordered_set>

namespace {

QString quoted(const QString& text) {
    return text.isNull() ? QStringLiteral("(null)") : '"' + text + '"';
}

/// What the data file holds of a transaction, with the names of set and category in place of their IDs. One without a
/// set belongs to the set that has its ID in `present`.
QString contentByNames(const CVTransaction& transaction, const CVDocument& document, const CVDocument& present) {
    const auto setIn = [&transaction](const CVDocument& budget) {
        for (const auto& set : budget.transactionSets()) {
            if (set->uniqueID() == transaction.transactionSetID())
                return quoted(set->transactionSetName());
        }
        return QString();
    };
    const QString set = setIn(document).isEmpty() ? setIn(present) : setIn(document);
    const auto category = document.getCategoryByUniqueID(transaction.categoryID());
    QByteArray text = transaction.xmlRepresentation().toByteArray();
    return (set.isEmpty() ? QString::number(transaction.transactionSetID()) : set) + '/' +
           (category ? quoted(category->categoryName()) : QString()) +
           QString::fromUtf8(
               text.sliced(text.indexOf(" flag="), text.indexOf(" transaction_set_id") - text.indexOf(" flag="))) +
           QString::fromUtf8(text.sliced(text.indexOf("><"))) + quoted(transaction.payTo()) +
           quoted(transaction.xfor());
}

QStringList contents(const CVDocument& document, const CVDocument& present) {
    QStringList texts;
    for (const auto& transaction : document.transactions())
        texts.append(contentByNames(*transaction, document, present));
    return texts;
}

/// The names and plans of the categories and the names of the sets, without those that are left out and without the set
/// that is made for transactions that had none.
template <typename Left>
QStringList namesAndPlans(const CVDocument& document, Left isLeftOut) {
    QStringList texts;
    for (const auto& category : document.categories()) {
        const QByteArray text = category->xmlRepresentation();
        if (!isLeftOut(category.get()))
            texts.append(quoted(category->categoryName()) +
                         QString::fromUtf8(text.sliced(text.indexOf("<ExpenseEstimates"))));
    }
    for (const auto& set : document.transactionSets()) {
        if (!isLeftOut(set.get()))
            texts.append("set " + quoted(set->transactionSetName()));
    }
    texts.removeAll("set \"Initial Transaction Set\"");
    std::sort(texts.begin(), texts.end());
    return texts;
}

TEST(CVBringBackProperty, AllDifferencesGiveTheVersionAndWhatWasAddedSince) {
    int broughtBack = 0;
    for (quint32 seed = 0; seed < 600; ++seed) {
        RandomBudget first(seed);
        BudgetBuilder version;
        readInto(version, first.document());
        const bool isLater = seed % 3 != 0;
        RandomBudget second(isLater ? seed : seed + 10'000);
        for (quint32 changes = seed % 30; isLater && changes > 0; --changes)
            second.change();
        BudgetBuilder present;
        readInto(present, second.document());
        const CVBudgetDifferences chosen = differencesTo(version, present);
        CVTransactions added;
        std::unordered_set<const void*> addedRecords;
        const auto noteAdded = [&addedRecords](const auto& differences) {
            for (const auto& difference : differences) {
                if (!difference.before)
                    addedRecords.insert(difference.after.get());
            }
        };
        noteAdded(chosen.sets);
        noteAdded(chosen.categories);
        for (const auto& difference : chosen.transactions) {
            if (!difference.before)
                added.push_back(difference.after);
        }
        broughtBack += CVBringBack(present.document(), version.document(), chosen);

        QStringList expected = contents(version.document(), present.document());
        for (const auto& transaction : added)
            expected.append(contentByNames(*transaction, present.document(), present.document()));
        QStringList actual = contents(present.document(), present.document());
        std::sort(expected.begin(), expected.end());
        std::sort(actual.begin(), actual.end());
        EXPECT_EQ(actual, expected) << "seed " << seed;
        const auto isAdded = [&addedRecords](const void* record) { return addedRecords.contains(record); };
        EXPECT_EQ(namesAndPlans(present.document(), isAdded),
                  namesAndPlans(version.document(), [](const void*) { return false; }))
            << "seed " << seed;
    }
    EXPECT_GT(broughtBack, 5000);
}

} // namespace
