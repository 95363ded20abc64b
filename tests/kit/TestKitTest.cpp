#include "base/QBUserDefaults.h"
#include "kit/FixedToday.h"
#include "kit/RandomBudget.h"
#include "kit/ScratchHome.h"
#include "kit/StartedProgram.h"
#include "storage/CVDocumentXML.h"

#include <QFileInfo>
#include <QSettings>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace {

TEST(ScratchHome, IsAFolderWithASpaceInItsNameThatGoesWithIt) {
    QString path;
    {
        ScratchHome home;
        ScratchHome other;
        path = home.path();
        EXPECT_TRUE(QFileInfo(path).isDir());
        EXPECT_TRUE(QFileInfo(path).fileName().contains(u' '));
        EXPECT_NE(path, other.path());
        EXPECT_TRUE(home.folders().applicationSupport.startsWith(path + u'/'));
        EXPECT_FALSE(QFileInfo::exists(home.folders().applicationSupport));
        home.userDefaults().setInteger("number", 5);
        home.userDefaults().synchronize();
        EXPECT_EQ(QBUserDefaults(home.settingsStore()).integerForKey("number"), 5);
        EXPECT_EQ(other.userDefaults().integerForKey("number"), 0);
    }
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST(BudgetBuilder, FilesRecordsAsTheyAreGiven) {
    const FixedToday today(day(2014, 3, 7));
    BudgetBuilder budget;
    budget.set("Checking", 27)
        .category("Food", 12, CVExpenseFrequency::kMonthly, 50)
        .transaction({.date = day(2014, 3, 1), .payTo = QString(), .xfor = "f", .category = "Food", .set = "Checking"})
        .transaction({.date = day(2014, 3, 2), .payTo = "p", .xfor = QString(), .categoryID = 5, .setID = 6})
        .lastID(40)
        .currentSet(27);
    const CVTransaction& first = *budget.transactionAt(0);
    EXPECT_EQ(first.categoryName(), "Food");
    EXPECT_EQ(first.transactionSetID(), 27U);
    EXPECT_TRUE(first.payTo().isNull());
    EXPECT_EQ(first.xfor(), "f");
    const CVTransaction& second = *budget.transactionAt(1);
    EXPECT_EQ(second.categoryID(), 5U);
    EXPECT_EQ(second.transactionSetID(), 6U);
    EXPECT_EQ(second.payTo(), "p");
    EXPECT_TRUE(second.xfor().isNull());
    EXPECT_EQ(budget.document().uniqueID(), 40U);
    EXPECT_EQ(budget.document().currentTransactionSet(), 27U);
    budget.inOrder();
    EXPECT_EQ(budget.transactionAt(0).get(), &second);
    EXPECT_EQ(budget.document().earliestTransactionDate(), day(2014, 3, 1));
}

TEST(RandomBudget, IsTheSameForTheSameSeed) {
    std::set<QByteArray> texts;
    for (quint32 seed = 0; seed < 50; ++seed) {
        RandomBudget one(seed);
        RandomBudget other(seed);
        for (int i = 0; i < 30; ++i) {
            one.change();
            other.change();
        }
        const QByteArray text = CVDocumentXMLRepresentation(one.document()).joined();
        ASSERT_EQ(text, CVDocumentXMLRepresentation(other.document()).joined());
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), 50U);
}

/// Counts the features of one random budget on which the tests rely.
void note(RandomBudget& budget, std::map<std::string, int>& seen) {
    const CVDocument& document = budget.document();
    const auto& transactions = document.transactions();
    const auto& categories = document.categories();
    seen["no transactions"] += transactions.empty() ? 1 : 0;
    seen["no sets"] += document.countOfTransactionSets() == 0 ? 1 : 0;
    seen["several sets"] += document.countOfTransactionSets() > 1 ? 1 : 0;
    seen["disorder"] +=
        std::is_sorted(transactions.begin(), transactions.end(),
                       [](const auto& a, const auto& b) { return a->effectiveDate() > b->effectiveDate(); })
            ? 0
            : 1;
    for (const auto& transaction : transactions) {
        seen["no date"] += transaction->effectiveDate() ? 0 : 1;
        seen["null text"] += transaction->payTo().isNull() || transaction->xfor().isNull() ? 1 : 0;
        seen["empty text"] += transaction->payTo().isEmpty() && !transaction->payTo().isNull() ? 1 : 0;
        seen["markup"] += transaction->payTo().contains(u'&') ? 1 : 0;
        seen["dangling category"] += document.getCategoryByUniqueID(transaction->categoryID()) ? 0 : 1;
        seen["negative amount"] += transaction->amount() < 0 ? 1 : 0;
        seen["huge amount"] += transaction->amount() > 1e15 ? 1 : 0;
    }
    for (const auto& category : categories) {
        seen["category without a name"] += category->categoryName().isNull() ? 1 : 0;
        seen["shared ID"] += document.getCategoryByUniqueID(category->uniqueID()) != category ? 1 : 0;
        seen["unknown frequency"] += CVExpenseFrequency::nameOfCode(category->expenseFrequency()).data() ? 0 : 1;
        for (const auto& other : categories)
            seen["differ in case"] +=
                category->categoryName() != other->categoryName() &&
                        category->categoryName().compare(other->categoryName(), Qt::CaseInsensitive) == 0
                    ? 1
                    : 0;
    }
}

TEST(StartedProgram, TellsItsOutputAndItsStatus) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("CORVELLA_WORD", "Zoë");
    StartedProgram program("sh", {"-c", "echo \"$CORVELLA_WORD $1\"; exit 3", "sh", "two words"}, environment);
    EXPECT_EQ(program.wait(), 3);
    EXPECT_FALSE(program.isRunning());
    EXPECT_EQ(program.output(), "Zoë two words\n");
    EXPECT_EQ(StartedProgram("there is no such program", {}).wait(), -1);
}

TEST(StartedProgram, RunsUntilItEnds) {
    StartedProgram program("sleep", {"0.2"});
    EXPECT_TRUE(program.isRunning());
    while (program.isRunning())
        QThread::msleep(1);
    EXPECT_EQ(program.wait(), 0);
}

TEST(RandomBudget, HoldsWhatAFileMayHold) {
    std::map<std::string, int> seen;
    for (quint32 seed = 0; seed < 200; ++seed) {
        RandomBudget budget(seed);
        note(budget, seen);
    }
    EXPECT_EQ(seen.size(), 15U);
    for (const auto& [what, count] : seen)
        EXPECT_GE(count, 3) << what;
}

} // namespace
