#include "importing/CVImportIntoBudget.h"

#include "base/CVNotifications.h"
#include "importing/ImportFixtures.h"
#include "kit/CountingSaver.h"
#include "kit/NotificationCounter.h"

#include <gtest/gtest.h>

namespace {

using Income = CVImportTargets::Income;

class CVImportIntoBudgetTest : public testing::Test {
protected:
    CVImportIntoBudgetTest() {
        mBudget.set("Checking", 1).set("Income", 2).currentSet(2).category("Food", 3).category("Salary", 4).lastID(9);
        mBudget.transaction({.date = day(2026, 3, 5), .amount = 5, .payTo = "Bus", .category = "Food", .setID = 1});
        mBudget.document().setSaver(&mSaver);
    }

    [[nodiscard]] CVImported import(const std::vector<CVImportLine>& lines) {
        return CVImportIntoBudget(mBudget.document(), lines, mTargets);
    }
    /// "SET/CATEGORY DAY AMOUNT PAYEE (FOR)" for each transaction.
    [[nodiscard]] QStringList entries() {
        QStringList entries;
        for (const auto& transaction : mBudget.document().transactions())
            entries.append(QString("%1/%2 %3 %4 %5 (%6)")
                               .arg(transaction->transactionSetID())
                               .arg(transaction->categoryName(),
                                    QString::fromLatin1(transaction->effectiveDate()->corvellaXMLRepresentation()),
                                    QString::number(transaction->amount(), 'f', 2), transaction->payTo(),
                                    transaction->xfor()));
        return entries;
    }
    [[nodiscard]] QStringList sets() {
        QStringList sets;
        for (const auto& set : mBudget.document().transactionSets())
            sets.append(QString::number(set->uniqueID()) + ' ' + set->transactionSetName());
        return sets;
    }
    void expectUntouched(const CVImported& imported, const QString& problem) {
        EXPECT_EQ(imported.problem, problem);
        EXPECT_TRUE(imported.entries.empty());
        EXPECT_EQ(entries(), QStringList({"1/Food 2026/03/05 5.00 Bus ()"}));
        EXPECT_EQ(sets(), QStringList({"1 Checking", "2 Income"}));
        EXPECT_EQ(mBudget.document().countOfCategories(), 2U);
        EXPECT_EQ(mSaver.count(), 0);
        EXPECT_EQ(mBudget.document().takeAskedVersion(), std::nullopt);
    }

    CountingSaver mSaver;
    BudgetBuilder mBudget;
    CVImportTargets mTargets{.set = 1, .income = Income::OwnSet, .incomeSet = 2};
};

TEST_F(CVImportIntoBudgetTest, RecordsTheCheckedLinesInTheirSets) {
    CVImportLine food = importLine(day(2026, 3, 7), 1250, "Corner Market", "Food");
    food.xfor = "bread";
    CVImportLine unchecked = importLine(day(2026, 3, 6), 100, "Nobody", "Food");
    unchecked.checked = false;
    CVImportLine salary = importLine(day(2026, 3, 1), 424000, "Ashgrove", "Salary");
    salary.isIncome = true;
    const auto imported = import({food, unchecked, salary});
    EXPECT_EQ(imported.problem, QString());
    EXPECT_EQ(entries(), QStringList({"1/Food 2026/03/07 12.50 Corner Market (bread)", "1/Food 2026/03/05 5.00 Bus ()",
                                      "2/Salary 2026/03/01 4240.00 Ashgrove ()"}));
    ASSERT_EQ(imported.entries.size(), 2U);
    EXPECT_EQ(imported.entries[0].transaction->payTo(), "Corner Market");
    EXPECT_EQ(imported.entries[1].line.payee, "Ashgrove");
    EXPECT_EQ(imported.account.name, "Checking");
    EXPECT_EQ(imported.account.id, imported.targets.set);
    EXPECT_EQ(mBudget.document().currentTransactionSet(), 2U);
}

TEST_F(CVImportIntoBudgetTest, RecordsMoneyInAsANegativeAmountInTheSameSet) {
    mTargets.income = Income::SameSet;
    CVImportLine salary = importLine(day(2026, 3, 7), -424000, "Ashgrove", "Salary");
    salary.isIncome = true;
    EXPECT_EQ(import({salary}).problem, QString());
    EXPECT_EQ(entries().front(), "1/Salary 2026/03/07 -4240.00 Ashgrove ()");
}

TEST_F(CVImportIntoBudgetTest, IsOneChange) {
    NotificationCounter notifications(mBudget.notificationCenter());
    mTargets.newSet = "Card";
    EXPECT_EQ(
        import({importLine(day(2026, 3, 7), 100, "A", "New one"), importLine(day(2026, 3, 8), 100, "B", "New two")})
            .problem,
        QString());
    EXPECT_EQ(notifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kCategoryAddedRemoved), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kTransactionSet), 1);
    EXPECT_EQ(notifications.total(), 3);
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mBudget.document().takeAskedVersion(), CVVersionReason::Import);
}

TEST_F(CVImportIntoBudgetTest, MakesCategoriesOnceAndFindsThemWhateverTheirCase) {
    const auto imported =
        import({importLine(day(2026, 3, 7), 100, "A", "Pets"), importLine(day(2026, 3, 6), 100, "B", " pets "),
                importLine(day(2026, 3, 4), 100, "C", "FOOD")});
    EXPECT_EQ(entries(), QStringList({"1/Pets 2026/03/07 1.00 A ()", "1/Pets 2026/03/06 1.00 B ()",
                                      "1/Food 2026/03/05 5.00 Bus ()", "1/Food 2026/03/04 1.00 C ()"}));
    EXPECT_EQ(imported.categories.size(), 1U);
    EXPECT_EQ(mBudget.document().countOfCategories(), 3U);
}

TEST_F(CVImportIntoBudgetTest, GivesNewRecordsIDsThatNothingNames) {
    mBudget.lastID(2);
    mBudget.transaction({.date = day(2026, 3, 1), .amount = 1, .payTo = "Old", .categoryID = 6, .setID = 5});
    mTargets.newSet = "Card";
    const auto imported =
        import({importLine(day(2026, 3, 7), 100, "A", "P"), importLine(day(2026, 3, 7), 100, "A", "Q")});
    EXPECT_EQ(imported.sets.at(0).id, 3U);
    EXPECT_EQ(imported.categories.at(0).id, 5U);
    EXPECT_EQ(imported.categories.at(1).id, 7U);
    EXPECT_EQ(mBudget.document().uniqueID(), 7U);
}

TEST_F(CVImportIntoBudgetTest, TakesASetOfTheNameThatIsThereByNow) {
    mTargets.newSet = "Income";
    const auto imported = import({importLine(day(2026, 3, 7), 100, "A", "Food")});
    EXPECT_TRUE(imported.sets.empty());
    EXPECT_EQ(imported.targets.set, 2U);
    EXPECT_EQ(imported.account.name, "Income");
}

TEST_F(CVImportIntoBudgetTest, MakesNoSetThatNoLineGoesInto) {
    mTargets = {.newSet = "Card", .income = Income::OwnSet, .newIncomeSet = "Wages"};
    EXPECT_EQ(import({importLine(day(2026, 3, 7), 100, "A", "Food")}).sets.size(), 1U);
    EXPECT_EQ(sets(), QStringList({"1 Checking", "2 Income", "10 Card"}));
}

TEST_F(CVImportIntoBudgetTest, LeavesTheTextsInOneLineThatAFileCanHold) {
    CVImportLine line = importLine(day(2026, 3, 7), 100, "A\r\n B", "Food");
    line.xfor = QString("x") + QChar(1) + "y";
    EXPECT_EQ(import({line}).problem, QString());
    EXPECT_EQ(entries().front(), "1/Food 2026/03/07 1.00 A B (xy)");
}

TEST_F(CVImportIntoBudgetTest, DoesNothingWithoutACheckedLine) {
    CVImportLine line = importLine(day(2026, 3, 7), 100, "A", "New");
    line.checked = false;
    expectUntouched(import({line}), "No line is checked, so nothing was imported.");
}

TEST_F(CVImportIntoBudgetTest, DoesNothingWhereACheckedLineHasNoCategory) {
    expectUntouched(import({importLine(day(2026, 3, 7), 100, "A", "New"), importLine(day(2026, 3, 7), 100, "A", " ")}),
                    "Line 2 has no category, so nothing was imported.");
}

TEST_F(CVImportIntoBudgetTest, DoesNothingWhereACheckedLineHasNoDay) {
    CVImportLine line = importLine(day(2026, 3, 7), 100, "A", "Food");
    line.day.reset();
    expectUntouched(import({importLine(day(2026, 3, 7), 100, "A", "New"), line}),
                    "Line 2 has no date, so nothing was imported.");
}

TEST_F(CVImportIntoBudgetTest, DoesNothingWhereASetIsGone) {
    const QString problem = "The set for the transactions is not there any more, so nothing was imported.";
    CVImportLine salary = importLine(day(2026, 3, 7), 100, "A", "Food");
    salary.isIncome = true;
    mTargets = {.set = 1, .income = Income::OwnSet, .incomeSet = 77};
    expectUntouched(import({salary}), problem);
    mTargets = {.set = 77, .income = Income::OwnSet, .incomeSet = 2};
    expectUntouched(import({importLine(day(2026, 3, 7), 100, "A", "Food")}), problem);
}

TEST_F(CVImportIntoBudgetTest, DoesNothingToABudgetThatIsOnlyLookedAt) {
    mSaver.setReadOnly();
    expectUntouched(import({importLine(day(2026, 3, 7), 100, "A", "Food")}),
                    "Your budget can only be looked at, so nothing was imported.");
}

struct FirstSetRow {
    const char* behaviour;
    bool hasTransactions;
    CVImportTargets targets;
    QStringList sets;
    quint32 shown;
};

TEST(CVImportIntoBudgetWithoutSets, ShowsWhatWasShownOrTheFirstSet) {
    for (const FirstSetRow& row :
         {FirstSetRow{"no set is made", true, {.income = Income::SameSet}, {}, 0},
          FirstSetRow{
              "all goes into the first set", false, {.newSet = "Card", .income = Income::SameSet}, {"1 Card"}, 1},
          FirstSetRow{"transactions without a set stay shown",
                      true,
                      {.newSet = "Card", .income = Income::SameSet},
                      {"0 Initial Transaction Set", "1 Card"},
                      0},
          FirstSetRow{"the income alone gets a set",
                      false,
                      {.income = Income::OwnSet, .newIncomeSet = "Wages"},
                      {"0 Initial Transaction Set", "1 Wages"},
                      0}}) {
        BudgetBuilder budget;
        budget.category("Food", 3);
        if (row.hasTransactions)
            budget.transaction({.date = day(2026, 3, 5), .amount = 5, .payTo = "Bus", .category = "Food"});
        CVImportLine salary = importLine(day(2026, 3, 7), 100, "A", "Food");
        salary.isIncome = true;
        const std::vector lines{importLine(day(2026, 3, 7), 100, "A", "Food"), salary};
        EXPECT_EQ(CVImportIntoBudget(budget.document(), lines, row.targets).problem, QString()) << row.behaviour;
        QStringList sets;
        for (const auto& set : budget.document().transactionSets())
            sets.append(QString::number(set->uniqueID()) + ' ' + set->transactionSetName());
        EXPECT_EQ(sets, row.sets) << row.behaviour;
        EXPECT_EQ(budget.document().currentTransactionSet(), row.shown) << row.behaviour;
    }
}

} // namespace
