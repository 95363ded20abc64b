#include "importing/CVTakeBackImport.h"

#include "base/CVNotifications.h"
#include "importing/ImportFixtures.h"
#include "kit/CountingSaver.h"
#include "kit/NotificationCounter.h"
#include "kit/RandomBudget.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Income = CVImportTargets::Income;

class CVTakeBackImportTest : public testing::Test {
protected:
    CVTakeBackImportTest() {
        mBudget.set("Checking", 1).currentSet(1).category("Food", 3).lastID(9);
        mBudget.transaction({.date = day(2026, 3, 5), .amount = 5, .payTo = "Bus", .category = "Food", .setID = 1});
        mBudget.document().setSaver(&mSaver);
        mBefore = textButForLastID(mBudget.document());
        const std::vector lines{importLine(day(2026, 3, 7), 100, "A", "Pets"),
                                importLine(day(2026, 3, 6), 200, "B", "Food"),
                                importLine(day(2026, 3, 1), 300, "C", "Food")};
        mImported = CVImportIntoBudget(mBudget.document(), lines, {.newSet = "Card", .income = Income::SameSet});
        (void)mBudget.document().takeAskedVersion();
    }

    [[nodiscard]] CVTransaction& imported(std::size_t at) { return *mImported.entries.at(at).transaction; }
    [[nodiscard]] std::size_t takeBack(CVEditedTransactions edited = CVEditedTransactions::Stay) {
        return CVTakeBackImport(mBudget.document(), mImported, edited).size();
    }
    [[nodiscard]] QStringList payees() {
        QStringList payees;
        for (const auto& transaction : mBudget.document().transactions())
            payees.append(transaction->payTo());
        return payees;
    }
    [[nodiscard]] bool hasCategory(const QString& name) {
        return mBudget.document().doesCategoryNameExist(name) != nullptr;
    }

    CountingSaver mSaver;
    BudgetBuilder mBudget;
    QByteArray mBefore;
    CVImported mImported;
};

TEST_F(CVTakeBackImportTest, LeavesTheBudgetAsItWas) {
    EXPECT_NE(textButForLastID(mBudget.document()), mBefore);
    EXPECT_EQ(takeBack(), 3U);
    EXPECT_EQ(textButForLastID(mBudget.document()), mBefore);
}

TEST_F(CVTakeBackImportTest, IsOneChange) {
    NotificationCounter notifications(mBudget.notificationCenter());
    EXPECT_EQ(takeBack(), 3U);
    EXPECT_EQ(notifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kCategoryAddedRemoved), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kTransactionSet), 1);
    EXPECT_EQ(notifications.total(), 3);
    EXPECT_EQ(mSaver.count(), 2);
    EXPECT_TRUE(mBudget.document().takeAskedVersion().has_value());
}

TEST_F(CVTakeBackImportTest, CountsWhatWasEditedAndWhatIsGone) {
    imported(0).setAmount(9);
    mBudget.document().removeTransaction(mImported.entries[2].transaction);
    const auto state = CVStateOfImport(mBudget.document(), mImported);
    EXPECT_EQ(state.asImported, 1);
    EXPECT_EQ(state.edited, 1);
    EXPECT_EQ(state.removed, 1);
}

TEST_F(CVTakeBackImportTest, CountsNothingAsEditedWhoseCategoryWasMergedIntoAnother) {
    const auto food = mBudget.document().doesCategoryNameExist("Food");
    const auto pets = mBudget.document().doesCategoryNameExist("Pets");
    imported(1).setCategoryID(pets->uniqueID());
    EXPECT_EQ(CVStateOfImport(mBudget.document(), mImported).edited, 1) << "while the category is there";
    mBudget.document().dropCategory(food);
    EXPECT_EQ(CVStateOfImport(mBudget.document(), mImported).asImported, 3);
    EXPECT_EQ(takeBack(), 3U);
}

TEST_F(CVTakeBackImportTest, LeavesWhatWasEditedWithItsCategoryAndItsSet) {
    imported(0).setUserFlag(true);
    EXPECT_EQ(takeBack(), 2U);
    EXPECT_EQ(payees(), QStringList({"A", "Bus"}));
    EXPECT_TRUE(hasCategory("Pets"));
    EXPECT_EQ(mBudget.document().countOfTransactionSets(), 2U);
}

TEST_F(CVTakeBackImportTest, TakesWhatWasEditedWhenToldSo) {
    imported(0).setPayTo("Changed");
    EXPECT_EQ(takeBack(CVEditedTransactions::Go), 3U);
    EXPECT_EQ(textButForLastID(mBudget.document()), mBefore);
}

TEST_F(CVTakeBackImportTest, TakesATransactionThatIsAgainAsImported) {
    imported(0).setAmount(9);
    imported(0).setAmount(1);
    EXPECT_EQ(takeBack(), 3U);
}

TEST_F(CVTakeBackImportTest, LeavesACategoryThatIsUsedByNow) {
    for (const auto& transaction : mBudget.document().transactions()) {
        if (transaction->payTo() == "Bus")
            transaction->setCategoryID(mImported.categories.at(0).id);
    }
    EXPECT_EQ(takeBack(), 3U);
    EXPECT_TRUE(hasCategory("Pets"));
}

TEST_F(CVTakeBackImportTest, LeavesACategoryThatSomebodyHasPlanned) {
    mBudget.categoryNamed("Pets")->setExpenseTarget(20);
    EXPECT_EQ(takeBack(), 3U);
    EXPECT_TRUE(hasCategory("Pets"));
}

TEST_F(CVTakeBackImportTest, LeavesASetThatSomebodyHasRenamed) {
    mBudget.setNamed("Card")->setTransactionSetName("Credit card");
    EXPECT_EQ(takeBack(), 3U);
    EXPECT_EQ(mBudget.document().countOfTransactionSets(), 2U);
}

TEST_F(CVTakeBackImportTest, ShowsTheFormerSetWhereTheShownOneGoes) {
    mBudget.currentSet(mImported.sets.at(0).id);
    EXPECT_EQ(takeBack(), 3U);
    EXPECT_EQ(mBudget.document().currentTransactionSet(), 1U);
}

TEST_F(CVTakeBackImportTest, DoesNothingTheSecondTime) {
    EXPECT_EQ(takeBack(), 3U);
    const int saves = mSaver.count();
    EXPECT_EQ(takeBack(), 0U);
    EXPECT_EQ(mSaver.count(), saves);
}

TEST_F(CVTakeBackImportTest, DoesNothingToABudgetThatIsOnlyLookedAt) {
    mSaver.setReadOnly();
    EXPECT_EQ(takeBack(), 0U);
    EXPECT_EQ(payees().size(), 4);
}

TEST_F(CVTakeBackImportTest, AnswersTheLinesThatWereTakenBack) {
    imported(1).setAmount(77);
    const auto lines = CVTakeBackImport(mBudget.document(), mImported, CVEditedTransactions::Stay);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].payee, "A");
    EXPECT_EQ(lines[1].payee, "C");
}

TEST_F(CVTakeBackImportTest, LeavesTransactionsThatSayTheSame) {
    mBudget.transaction({.date = day(2026, 3, 7),
                         .amount = 1,
                         .payTo = "A",
                         .categoryID = mImported.categories.at(0).id,
                         .setID = mImported.sets.at(0).id});
    EXPECT_EQ(takeBack(), 3U);
    EXPECT_EQ(payees(), QStringList({"A", "Bus"}));
}

/// A random statement for a random budget.
std::vector<CVImportLine> randomLines(RandomBudget& random) {
    std::vector<CVImportLine> lines;
    for (quint32 left = random.below(20); left > 0; --left) {
        CVImportLine line = importLine(random.date().value_or(day(2014, 1, 1)), random.below(100'000), random.text(),
                                       random.text() + (random.oneIn(2) ? "" : "x"));
        line.xfor = random.text();
        line.isIncome = random.oneIn(3);
        line.checked = !random.oneIn(5) && !line.category.isEmpty();
        lines.push_back(line);
    }
    return lines;
}

CVImportTargets randomTargets(RandomBudget& random) {
    const auto set = [&random] {
        const auto& sets = random.document().transactionSets();
        return sets.empty() ? 0 : sets[random.below(static_cast<quint32>(sets.size()))]->uniqueID();
    };
    const auto name = [&random] { return random.oneIn(2) ? QString() : random.oneIn(2) ? random.text() : "New"; };
    return {set(), name(), static_cast<Income>(random.below(3)), set(), name()};
}

/// Gives each transaction a category that has a name. Without one, its place within its day is nobody's.
void giveCategories(CVDocument& document) {
    const auto& categories = document.categories();
    const auto named = std::find_if(categories.begin(), categories.end(),
                                    [](const auto& category) { return !category->categoryName().isNull(); });
    for (const auto& transaction : document.transactions()) {
        if (named != categories.end() && transaction->categoryName().isNull())
            transaction->setCategoryID((*named)->uniqueID());
    }
}

QByteArrayList linesInOrder(QByteArray text) {
    // No line feed stands between the sets and the first transaction.
    QByteArrayList lines = text.replace("<Transaction ", "\n<Transaction ").split('\n');
    std::sort(lines.begin(), lines.end());
    return lines;
}

TEST(CVTakeBackImport, LeavesARandomBudgetAsItWas) {
    int imports = 0;
    int made = 0;
    for (quint32 seed = 1; seed <= 2000; ++seed) {
        RandomBudget random(seed);
        CVDocument& document = random.document();
        document.finishedParsingData();
        const bool hasCategories = random.oneIn(2);
        if (hasCategories)
            giveCategories(document);
        document.finishChanges();
        const bool isOrdered = hasCategories && document.countOfCategories() > 0;
        const QByteArray before = textButForLastID(document);
        const CVImported imported = CVImportIntoBudget(document, randomLines(random), randomTargets(random));
        if (!imported.problem.isEmpty()) {
            ASSERT_TRUE(textButForLastID(document) == before) << seed << imported.problem.toStdString();
            continue;
        }
        ++imports;
        made += imported.sets.empty() || imported.categories.empty() ? 0 : 1;
        EXPECT_EQ(CVTakeBackImport(document, imported, CVEditedTransactions::Stay).size(), imported.entries.size());
        const QByteArray after = textButForLastID(document);
        ASSERT_TRUE(linesInOrder(after) == linesInOrder(before)) << seed;
        ASSERT_TRUE(!isOrdered || after == before) << seed;
    }
    EXPECT_GT(imports, 1000);
    EXPECT_GT(made, 300);
}

} // namespace
