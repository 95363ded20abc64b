#include "differences/CVBudgetDifferences.h"

#include "kit/BudgetBuilder.h"
#include "kit/RandomBudget.h"
#include "storage/CVDocumentFile.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVDocumentXML.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

template <typename Record>
QString changeOf(const CVRecordDifference<Record>& difference, const QString& (Record::*name)() const) {
    const auto nameOf = [name](const auto& record) { return record ? ((*record).*name)() : QStringLiteral("-"); };
    return nameOf(difference.before) + '>' + nameOf(difference.after);
}

TEST(CVBudgetDifferences, AreNoneBetweenABudgetAndItself) {
    RandomBudget budget(1);
    EXPECT_TRUE(CVBudgetDifferences::between(budget.document(), budget.document(), nullptr).isEmpty());
}

TEST(CVBudgetDifferences, NameTheSetsAndCategoriesThatChanged) {
    BudgetBuilder before;
    before.set("Checking", 1).set("Old", 2).category("Food", 3).category("Fuel", 4).category("Gone", 5);
    BudgetBuilder after;
    after.set("Giro", 1)
        .set("New", 6)
        .category("Food", 3)
        .category("Fuel", 4, CVExpenseFrequency::kWeekly, 20)
        .category("Rent", 7);
    const auto differences = CVBudgetDifferences::between(before.document(), after.document(), &before.document());
    QStringList sets;
    for (const auto& difference : differences.sets)
        sets.append(changeOf(difference, &CVTransactionSet::transactionSetName));
    EXPECT_EQ(sets, (QStringList{"Checking>Giro", "Old>-", "->New"}));
    QStringList categories;
    for (const auto& difference : differences.categories)
        categories.append(changeOf(difference, &CVCategory::categoryName));
    EXPECT_EQ(categories, (QStringList{"Fuel>Fuel", "Gone>-", "->Rent"})) << "the plan for Fuel is another one";
}

TEST(CVBudgetDifferences, ARenamedCategoryLeavesItsTransactionsAlone) {
    BudgetBuilder before;
    before.category("Food", 3).transaction({.date = day(2014, 3, 7), .amount = 5, .category = "Food"});
    BudgetBuilder after;
    after.category("Groceries", 3).transaction({.date = day(2014, 3, 7), .amount = 5, .category = "Groceries"});
    EXPECT_TRUE(
        CVBudgetDifferences::between(before.document(), after.document(), &before.document()).transactions.empty());
    EXPECT_EQ(CVBudgetDifferences::between(before.document(), after.document(), nullptr).transactions.size(), 1U);
}

TEST(CVBudgetDifferences, ATransactionAtAnotherCategoryOfTheSameNameIsTheSame) {
    BudgetBuilder before;
    before.category("Food", 3).transaction({.date = day(2014, 3, 7), .amount = 5, .category = "Food"});
    BudgetBuilder after;
    after.category("Groceries", 3).category("Food", 21);
    after.transaction({.date = day(2014, 3, 7), .amount = 5, .category = "Food"});
    const auto differences = CVBudgetDifferences::between(before.document(), after.document(), &before.document());
    EXPECT_TRUE(differences.transactions.empty());
    EXPECT_EQ(differences.transactionsAtNamesakes.size(), 1U);
    EXPECT_EQ(differences.categories.size(), 2U);
}

TEST(CVBudgetDifferences, TransactionsWithoutASetStayInTheOneThatIsMadeForThem) {
    BudgetBuilder before;
    before.category("Food", 3).transaction({.date = day(2014, 3, 7), .amount = 5, .category = "Food"});
    BudgetBuilder after;
    after.set("Initial Transaction Set", 0).category("Food", 3);
    after.transaction({.date = day(2014, 3, 7), .amount = 5, .category = "Food"});
    const auto differences = CVBudgetDifferences::between(before.document(), after.document(), &before.document());
    EXPECT_TRUE(differences.transactions.empty());
    EXPECT_EQ(differences.sets.size(), 1U);
}

TEST(CVBudgetDifferences, KnowALaterStateByHalfOfItsCategories) {
    BudgetBuilder before;
    before.category("Food", 1).category("Fuel", 2);
    BudgetBuilder renamed;
    renamed.category("Food", 1).category("Car", 2).category("Rent", 3);
    EXPECT_TRUE(CVBudgetDifferences::isLaterState(before.document(), renamed.document()));
    BudgetBuilder other;
    other.category("Rent", 1).category("Food", 2);
    EXPECT_FALSE(CVBudgetDifferences::isLaterState(before.document(), other.document()));
}

/// Every line of the budget as its data file holds it, in the order of the texts.
QStringList sortedLines(const QStringList& lines) {
    QStringList sorted = lines;
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

QString lineOf(const CVTransaction& transaction, quint32 set, quint32 category) {
    const auto textOf = [](const QString& text) { return text.isNull() ? QStringLiteral("(null)") : '"' + text + '"'; };
    return QStringList{QString::number(set),
                       QString::number(category),
                       transaction.effectiveDate()
                           ? QString::fromLatin1(transaction.effectiveDate()->corvellaXMLRepresentation())
                           : QString(),
                       QString::number(transaction.amount(), 'f', 2),
                       textOf(transaction.payTo()),
                       textOf(transaction.xfor()),
                       QString::number(transaction.taxFlag()),
                       QString::number(transaction.userFlag())}
        .join('|');
}

QStringList linesOf(const CVDocument& document) {
    QStringList lines;
    for (const auto& transaction : document.transactions())
        lines.append(lineOf(*transaction, transaction->transactionSetID(), transaction->categoryID()));
    return sortedLines(lines);
}

/// The plain meaning of the differences: takes out what is gone, keeps the rest under the IDs of the later state, adds
/// what is new.
QStringList applied(const CVBudgetDifferences& differences, const CVDocument& before) {
    std::unordered_set<const CVTransaction*> gone;
    QStringList lines;
    for (const auto& changes : {differences.transactions, differences.transactionsAtNamesakes}) {
        for (const auto& difference : changes) {
            if (difference.before)
                gone.insert(difference.before.get());
            if (difference.after)
                lines.append(
                    lineOf(*difference.after, difference.after->transactionSetID(), difference.after->categoryID()));
        }
    }
    for (const auto& transaction : before.transactions()) {
        if (gone.contains(transaction.get()))
            continue;
        const auto set = differences.setMatching.idAfter(transaction->transactionSetID());
        const auto category = differences.categoryMatching.idAfter(transaction->categoryID());
        EXPECT_TRUE(set && category) << "a transaction that stays belongs to something that stays";
        lines.append(lineOf(*transaction, set.value_or(0), category.value_or(0)));
    }
    return sortedLines(lines);
}

/// The budget as a data file gives it, without records that share an ID.
void readBack(const CVDocument& document, BudgetBuilder& read) {
    CVDocumentParserDelegate parser(&read.document());
    ASSERT_TRUE(parser.prepareFromData(CVDocumentXMLRepresentation(document).joined().leftJustified(64)) &&
                parser.parseDocumentData());
}

TEST(CVBudgetDifferencesProperty, AppliedToOneBudgetGiveTheOther) {
    for (quint32 seed = 0; seed < 400; ++seed) {
        RandomBudget first(seed);
        BudgetBuilder before;
        readBack(first.document(), before);
        const bool isLater = seed % 2 == 0;
        RandomBudget second(isLater ? seed : seed + 10'000);
        for (quint32 changes = seed % 30; isLater && changes > 0; --changes)
            second.change();
        BudgetBuilder after;
        readBack(second.document(), after);
        const auto differences =
            CVBudgetDifferences::between(before.document(), after.document(), isLater ? &before.document() : nullptr);
        ASSERT_EQ(applied(differences, before.document()), linesOf(after.document())) << seed;
        for (const auto& [earlier, later] : differences.transactionsAtNamesakes)
            ASSERT_EQ(earlier->categoryName(), later->categoryName()) << seed;
        for (const auto& difference : differences.transactions)
            ASSERT_TRUE(difference.before || difference.after) << seed;
    }
}

} // namespace
