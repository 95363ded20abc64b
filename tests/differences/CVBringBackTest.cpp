#include "differences/CVBringBack.h"

#include "base/CVNotifications.h"
#include "differences/CVBudgetDifferences.h"
#include "kit/BudgetBuilder.h"
#include "kit/CountingSaver.h"
#include "kit/NotificationCounter.h"
#include "kit/RandomBudget.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVDocumentXML.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace {

using Entry = BudgetBuilder::Entry;

CVBudgetDifferences differencesTo(BudgetBuilder& version, BudgetBuilder& present) {
    return CVBudgetDifferences::since(version.document(), present.document());
}

QString nameOfSet(const CVDocument& document, quint32 id) {
    for (const auto& set : document.transactionSets()) {
        if (set->uniqueID() == id)
            return set->transactionSetName();
    }
    return "-";
}

/// "SET/CATEGORY PAYEE AMOUNT" for each transaction.
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

Entry market(const QString& set = "Checking", const QString& category = "Food") {
    return {.date = day(2014, 3, 7), .amount = 30, .payTo = "Market", .category = category, .set = set};
}

void usual(BudgetBuilder& budget) {
    budget.set("Checking", 1).set("Cash", 2).currentSet(1).lastID(20);
    budget.category("Food", 3, CVExpenseFrequency::kMonthly, 200).category("Fuel", 4).category("Rent", 5);
}

struct BringBackRow {
    const char* behaviour;
    void (*version)(BudgetBuilder& budget);
    void (*present)(BudgetBuilder& budget);
    QStringList entries;
    QStringList sets = {"1 Checking", "2 Cash"};
    QStringList categories = {"3 Food 200", "4 Fuel 0", "5 Rent 0"};
};

void PrintTo(const BringBackRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class CVBringBackTest : public testing::TestWithParam<BringBackRow> {};

TEST_P(CVBringBackTest, BringsBackTheTransactions) {
    BudgetBuilder version;
    GetParam().version(version);
    BudgetBuilder present;
    GetParam().present(present);
    CVBudgetDifferences chosen = differencesTo(version, present);
    chosen.sets.clear();
    chosen.categories.clear();
    const quint32 shown = present.document().currentTransactionSet();
    EXPECT_EQ(CVBringBack(present.document(), version.document(), chosen), 1);
    EXPECT_EQ(entriesOf(present.document()), GetParam().entries);
    EXPECT_EQ(setsOf(present.document()), GetParam().sets);
    EXPECT_EQ(categoriesOf(present.document()), GetParam().categories);
    EXPECT_EQ(present.document().currentTransactionSet(), shown);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CVBringBackTest,
    testing::Values(BringBackRow{"into its own set, which is not the shown one",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market("Cash"));
                                 },
                                 [](BudgetBuilder& b) { usual(b); },
                                 {"Cash/Food Market 30.00"}},
                    BringBackRow{"into a set that was renamed since",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market("Cash"));
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.setNamed("Cash")->setTransactionSetName("Purse");
                                 },
                                 {"Purse/Food Market 30.00"},
                                 {"1 Checking", "2 Purse"}},
                    BringBackRow{"into a set that is gone, which returns with its ID",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.set("Old", 9).transaction(market("Old"));
                                 },
                                 [](BudgetBuilder& b) { usual(b); },
                                 {"Old/Food Market 30.00"},
                                 {"1 Checking", "2 Cash", "9 Old"}},
                    BringBackRow{
                        "into a set that is gone and whose ID another has, which the version did not know as its own",
                        [](BudgetBuilder& b) { b.set("Old", 9).category("X", 1).transaction(market("Old", "X")); },
                        [](BudgetBuilder& b) { b.set("New", 9).currentSet(9).category("Y", 2).lastID(20); },
                        {"Old/X Market 30.00"},
                        {"9 New", "21 Old"},
                        {"1 X 0", "2 Y 0"}},
                    BringBackRow{"into a category that is gone, which returns with its plan and its ID",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.document().removeCategory(b.categoryNamed("Food"));
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"3 Food 200", "4 Fuel 0", "5 Rent 0"}},
                    BringBackRow{"into a category that is gone and whose ID another has",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.document().removeCategory(b.categoryNamed("Food"));
                                     b.category("Toys", 3);
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"21 Food 200", "4 Fuel 0", "5 Rent 0", "3 Toys 0"}},
                    BringBackRow{"into the category of that name beside one that was renamed since",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.categoryNamed("Food")->setCategoryName("Groceries");
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"21 Food 200", "4 Fuel 0", "3 Groceries 200", "5 Rent 0"}},
                    BringBackRow{"into the category of that name under another ID, whose plan stays",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.document().removeCategory(b.categoryNamed("Food"));
                                     b.category("Food", 8, CVExpenseFrequency::kWeekly, 7);
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"8 Food 7", "4 Fuel 0", "5 Rent 0"}},
                    BringBackRow{"not into a category whose name has other capitals",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.document().removeCategory(b.categoryNamed("Food"));
                                     b.category("FOOD", 8);
                                 },
                                 {"Checking/Food Market 30.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"8 FOOD 0", "3 Food 200", "4 Fuel 0", "5 Rent 0"}},
                    BringBackRow{"one of two equal ones",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market()).transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 {"Checking/Food Market 30.00", "Checking/Food Market 30.00"}},
                    BringBackRow{"what a changed one said",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     Entry changed = market("Checking", "Fuel");
                                     changed.amount = 31;
                                     b.transaction(changed);
                                 },
                                 {"Checking/Food Market 30.00"}},
                    BringBackRow{"and leaves what was added since",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction(market());
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     Entry added = market();
                                     added.date = day(2014, 3, 9);
                                     b.transaction(added);
                                 },
                                 {"Checking/Food Market 30.00", "Checking/Food Market 30.00"}},
                    BringBackRow{"one without set and category",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction({.payTo = "Market", .categoryID = 90, .setID = 91});
                                 },
                                 [](BudgetBuilder& b) { usual(b); },
                                 {"-/- Market 0.00"}},
                    BringBackRow{"one without a category whose ID a category has by now",
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.transaction({.payTo = "Market", .categoryID = 8, .setID = 1});
                                 },
                                 [](BudgetBuilder& b) {
                                     usual(b);
                                     b.category("Toys", 8);
                                 },
                                 {"Checking/- Market 0.00"},
                                 {"1 Checking", "2 Cash"},
                                 {"3 Food 200", "4 Fuel 0", "5 Rent 0", "8 Toys 0"}}));

/// A version with two transactions of the market and one of the baker, and the present budget without them.
class BringBackTest : public testing::Test {
protected:
    void SetUp() override {
        usual(mVersion);
        usual(mPresent);
        mVersion.transaction(market()).transaction(market("Cash", "Fuel"));
        mVersion.transaction({.date = day(2014, 3, 9), .amount = 5, .payTo = "Baker", .setID = 1});
        mPresent.document().setSaver(&mSaver);
    }
    [[nodiscard]] CVBudgetDifferences differences() { return differencesTo(mVersion, mPresent); }
    int bringBack(const CVBudgetDifferences& chosen) {
        return CVBringBack(mPresent.document(), mVersion.document(), chosen);
    }

    BudgetBuilder mVersion;
    BudgetBuilder mPresent;
    CountingSaver mSaver;
};

TEST_F(BringBackTest, OnlyTheChosenOnesReturn) {
    CVBudgetDifferences chosen = differences();
    ASSERT_EQ(chosen.transactions.size(), 3U);
    std::erase_if(chosen.transactions, [](const auto& difference) { return difference.before->payTo() != "Baker"; });
    EXPECT_EQ(bringBack(chosen), 1);
    EXPECT_EQ(entriesOf(mPresent.document()), QStringList{"Checking/- Baker 5.00"});
}

TEST_F(BringBackTest, AnnouncesEachKindOnceAndSavesOnce) {
    NotificationCounter announced(mPresent.notificationCenter());
    mVersion.set("Old", 9).set("Older", 10).category("Gone", 30);
    mVersion.transaction(market("Old", "Gone")).transaction(market("Older", "Gone"));
    mPresent.categoryNamed("Rent")->setExpenseTarget(9);
    mPresent.categoryNamed("Fuel")->setCategoryName("Car");
    mPresent.setNamed("Cash")->setTransactionSetName("Purse");
    announced.reset();
    EXPECT_EQ(bringBack(differences()), 5 + 3 + 3);
    EXPECT_EQ(announced.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(announced.count(CVNotifications::kCategoryAddedRemoved), 1);
    EXPECT_EQ(announced.count(CVNotifications::kTransactionSet), 1);
    EXPECT_EQ(announced.total(), 3);
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(BringBackTest, NothingToBringBackIsNeitherAnnouncedNorSaved) {
    NotificationCounter announced(mPresent.notificationCenter());
    EXPECT_EQ(bringBack(differencesTo(mVersion, mVersion)), 0);
    EXPECT_EQ(announced.total(), 0);
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(BringBackTest, TheOrderAndTheBoundsOfTheDatesAreRight) {
    mPresent.transaction({.date = day(2014, 3, 8), .amount = 1, .payTo = "Kiosk", .setID = 1}).inOrder();
    EXPECT_EQ(bringBack(differences()), 3);
    QStringList payees;
    for (const auto& transaction : mPresent.document().transactions())
        payees.append(transaction->payTo());
    EXPECT_EQ(payees, (QStringList{"Baker", "Kiosk", "Market", "Market"}));
    EXPECT_EQ(mPresent.document().earliestTransactionDate(), day(2014, 3, 7));
    EXPECT_EQ(mPresent.document().latestTransactionDate(), day(2014, 3, 9));
    EXPECT_EQ(mPresent.categoryNamed("Food")->earliestTransactionDate(), day(2014, 3, 7));
}

TEST_F(BringBackTest, WhatIsThereAgainIsPassedOver) {
    const CVBudgetDifferences chosen = differences();
    EXPECT_EQ(bringBack(chosen), 3);
    EXPECT_EQ(bringBack(chosen), 0);
    EXPECT_EQ(mPresent.document().transactions().size(), 3U);
}

TEST_F(BringBackTest, ATransactionThatWasAddedAfterTheChoiceIsNotWrittenOver) {
    const CVBudgetDifferences chosen = differences();
    Entry similar = market();
    similar.amount = 31;
    mPresent.transaction(similar);
    EXPECT_EQ(bringBack(chosen), 3);
    EXPECT_EQ(mPresent.document().transactions().size(), 4U);
}

TEST_F(BringBackTest, AChangedOneThatHasChangedOnceMoreSinceTheChoiceIsPassedOver) {
    Entry changed = market();
    changed.amount = 31;
    mPresent.transaction(changed);
    CVBudgetDifferences chosen = differences();
    std::erase_if(chosen.transactions, [](const auto& difference) { return !difference.after; });
    ASSERT_EQ(chosen.transactions.size(), 1U);
    // The window holds a copy of what it shows.
    chosen.transactions[0].after = std::make_shared<CVTransaction>(*chosen.transactions[0].after);
    mPresent.transactionAt(0)->setAmount(32);
    EXPECT_EQ(bringBack(chosen), 0);
    EXPECT_EQ(entriesOf(mPresent.document()), QStringList{"Checking/Food Market 32.00"});
    mPresent.transactionAt(0)->setAmount(31);
    EXPECT_EQ(bringBack(chosen), 1);
    EXPECT_EQ(entriesOf(mPresent.document()), QStringList{"Checking/Food Market 30.00"});
}

TEST_F(BringBackTest, RemovedSetsAndCategoriesReturnEmptyAndChangedOnesGetNameAndPlanBack) {
    mVersion.set("Old", 9).category("Gone", 30, CVExpenseFrequency::kAnnually, 12);
    mVersion.transaction(market("Old", "Gone"));
    mPresent.categoryNamed("Food")->setExpenseTarget(9);
    mPresent.setNamed("Cash")->setTransactionSetName("Purse");
    CVBudgetDifferences chosen = differences();
    chosen.transactions.clear();
    EXPECT_EQ(bringBack(chosen), 4);
    EXPECT_EQ(setsOf(mPresent.document()), (QStringList{"1 Checking", "2 Cash", "9 Old"}));
    EXPECT_EQ(categoriesOf(mPresent.document()), (QStringList{"3 Food 200", "4 Fuel 0", "30 Gone 12", "5 Rent 0"}));
    EXPECT_EQ(mPresent.categoryNamed("Gone")->expenseFrequency(), CVExpenseFrequency::kAnnually);
    EXPECT_TRUE(mPresent.document().transactions().empty());
}

/// A transaction of the market is gone, and another one of the baker is in the category that was renamed.
class BringBackBesideARenamedCategory : public testing::Test {
protected:
    void SetUp() override {
        usual(mVersion);
        mVersion.transaction(market()).transaction(baker("Food"));
        usual(mPresent);
        mPresent.categoryNamed("Food")->setCategoryName("Groceries");
        mPresent.transaction(baker("Groceries"));
        CVBudgetDifferences chosen = differences();
        ASSERT_EQ(chosen.transactions.size(), 1U);
        chosen.categories.clear();
        ASSERT_EQ(CVBringBack(mPresent.document(), mVersion.document(), chosen), 1);
    }
    static Entry baker(const QString& category) {
        return {.date = day(2014, 3, 9), .amount = 5, .payTo = "Baker", .category = category, .set = "Checking"};
    }
    [[nodiscard]] CVBudgetDifferences differences() { return differencesTo(mVersion, mPresent); }

    BudgetBuilder mVersion;
    BudgetBuilder mPresent;
};

TEST_F(BringBackBesideARenamedCategory, TheTransactionDiffersNoMore) {
    EXPECT_EQ(entriesOf(mPresent.document()),
              (QStringList{"Checking/Food Market 30.00", "Checking/Groceries Baker 5.00"}));
    EXPECT_TRUE(differences().transactions.empty());
}

TEST_F(BringBackBesideARenamedCategory, TheFormerNameJoinsTheCategoryThatWasMadeForIt) {
    mPresent.document().setSaver(nullptr);
    NotificationCounter announced(mPresent.notificationCenter());
    EXPECT_EQ(CVBringBack(mPresent.document(), mVersion.document(), differences()), 1);
    EXPECT_EQ(categoriesOf(mPresent.document()), (QStringList{"3 Food 200", "4 Fuel 0", "5 Rent 0"}));
    EXPECT_EQ(entriesOf(mPresent.document()), (QStringList{"Checking/Food Baker 5.00", "Checking/Food Market 30.00"}));
    EXPECT_TRUE(differences().isEmpty());
    EXPECT_EQ(announced.count(CVNotifications::kCategoryAddedRemoved), 1);
}

TEST_F(BringBackBesideARenamedCategory, AChangedTransactionReturnsTogetherWithTheFormerName) {
    mPresent.transactionAt(0)->setAmount(31);
    mPresent.transactionAt(1)->setAmount(32);
    EXPECT_EQ(CVBringBack(mPresent.document(), mVersion.document(), differences()), 3);
    EXPECT_TRUE(differences().isEmpty());
}

TEST(BringBackAmongCategoriesOfOneName, ATransactionReturnsToItsOwn) {
    BudgetBuilder version;
    version.set("Checking", 1).category("Food", 3).category("Food", 4);
    version.transaction({.date = day(2014, 3, 7), .amount = 30, .payTo = "Market", .categoryID = 4, .setID = 1});
    BudgetBuilder present;
    present.set("Checking", 1).category("Food", 3).category("Food", 4);
    EXPECT_EQ(CVBringBack(present.document(), version.document(), differencesTo(version, present)), 1);
    EXPECT_EQ(present.transactionAt(0)->categoryID(), 4U);
}

TEST(BringBackUnderANewID, NothingElseOfTheVersionReturnsUnderIt) {
    BudgetBuilder version;
    version.set("Old", 9).category("X", 1).transaction(market("Old", "X"));
    version.transaction({.payTo = "Kiosk", .categoryID = 22, .setID = 21});
    BudgetBuilder present;
    present.set("New", 9).category("Y", 1).lastID(20);
    EXPECT_EQ(CVBringBack(present.document(), version.document(), differencesTo(version, present)), 2 + 1 + 1);
    EXPECT_EQ(entriesOf(present.document()), (QStringList{"-/- Kiosk 0.00", "Old/X Market 30.00"}));
    EXPECT_EQ(setsOf(present.document()), (QStringList{"9 New", "22 Old"}));
    EXPECT_EQ(categoriesOf(present.document()), (QStringList{"23 X 0", "1 Y 0"}));
}

TEST(BringBackIntoAFreshBudget, ShowsTheSetThatReturned) {
    BudgetBuilder version;
    usual(version);
    version.transaction(market());
    BudgetBuilder fresh;
    fresh.category("Food", 1);
    CVBudgetDifferences chosen = differencesTo(version, fresh);
    chosen.sets.clear();
    EXPECT_GT(CVBringBack(fresh.document(), version.document(), chosen), 0);
    EXPECT_EQ(setsOf(fresh.document()), QStringList{"1 Checking"});
    EXPECT_EQ(fresh.document().shownTransactionSet(), 1U);
}

TEST(BringBackIntoAFreshBudget, KeepsTheTransactionsWithoutASetInAShownOne) {
    BudgetBuilder version;
    usual(version);
    version.transaction(market());
    BudgetBuilder fresh;
    fresh.transaction({.payTo = "Kiosk"});
    EXPECT_GT(CVBringBack(fresh.document(), version.document(), differencesTo(version, fresh)), 0);
    EXPECT_EQ(setsOf(fresh.document()), (QStringList{"0 Initial Transaction Set", "1 Checking", "2 Cash"}));
    EXPECT_EQ(fresh.document().shownTransactionSet(), 0U);
}

void readBackInto(BudgetBuilder& read, const CVDocument& document) {
    CVDocumentParserDelegate parser(&read.document());
    ASSERT_TRUE(parser.prepareFromData(CVDocumentXMLRepresentation(document).joined().leftJustified(64)) &&
                parser.parseDocumentData());
}

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
        readBackInto(version, first.document());
        const bool isLater = seed % 3 != 0;
        RandomBudget second(isLater ? seed : seed + 10'000);
        for (quint32 changes = seed % 30; isLater && changes > 0; --changes)
            second.change();
        BudgetBuilder present;
        readBackInto(present, second.document());
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
