#include "model/CVCategory.h"

#include "base/CVNotifications.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "kit/NotificationCounter.h"

#include <gtest/gtest.h>

namespace {

const QString kNull;
const QString kEmpty = QLatin1String("");

TEST(CVCategory, BeginsWeeklyWithAMonthlyBudgetAndBoundsOfToday) {
    const FixedToday today(day(2014, 3, 7));
    const CVCategory category;
    EXPECT_TRUE(category.categoryName().isEmpty());
    EXPECT_FALSE(category.categoryName().isNull());
    EXPECT_EQ(category.expenseFrequency(), 0);
    EXPECT_EQ(category.expenseTarget(), 0);
    EXPECT_EQ(category.uniqueID(), 0U);
    EXPECT_EQ(category.earliestTransactionDate(), day(2014, 3, 7));
    EXPECT_EQ(category.latestTransactionDate(), day(2014, 3, 7));
    EXPECT_EQ(category.document(), nullptr);
    EXPECT_EQ(category.billFrequency(), "M");
    EXPECT_EQ(category.budgetExpenseFrequency(), 3);
    EXPECT_EQ(category.total(), 0);
    EXPECT_EQ(category.monthly(), 0);
    EXPECT_EQ(category.biWeekly(), 0);
    EXPECT_EQ(category.weekly(), 0);
    EXPECT_EQ(category.monthlyPeriods(), 0U);
    EXPECT_EQ(category.biWeeklyPeriods(), 0U);
    EXPECT_EQ(category.weeklyPeriods(), 0U);
    EXPECT_EQ(category.numberOfTransactions(), 0U);
}

TEST(CVCategory, KeepsWhatItsSettersAreGiven) {
    CVCategory category;
    category.setUniqueID(1);
    category.setExpenseFrequency(-1);
    category.setExpenseTarget(2.5);
    category.setBillFrequency("2 Months");
    category.setBudgetExpenseFrequency(4);
    category.setTotal(3.5);
    category.setMonthly(4.5);
    category.setBiWeekly(5.5);
    category.setWeekly(6.5);
    category.setMonthlyPeriods(7);
    category.setBiWeeklyPeriods(8);
    category.setWeeklyPeriods(9);
    category.setNumberOfTransactions(quint64(1) << 40);
    category.setEarliestTransactionDate(day(2001, 2, 3));
    category.setLatestTransactionDate(day(2004, 5, 6));

    EXPECT_EQ(category.uniqueID(), 1U);
    EXPECT_EQ(category.expenseFrequency(), -1);
    EXPECT_EQ(category.expenseTarget(), 2.5);
    EXPECT_EQ(category.billFrequency(), "2 Months");
    EXPECT_EQ(category.budgetExpenseFrequency(), 4);
    EXPECT_EQ(category.total(), 3.5);
    EXPECT_EQ(category.monthly(), 4.5);
    EXPECT_EQ(category.biWeekly(), 5.5);
    EXPECT_EQ(category.weekly(), 6.5);
    EXPECT_EQ(category.monthlyPeriods(), 7U);
    EXPECT_EQ(category.biWeeklyPeriods(), 8U);
    EXPECT_EQ(category.weeklyPeriods(), 9U);
    EXPECT_EQ(category.numberOfTransactions(), quint64(1) << 40);
    EXPECT_EQ(category.earliestTransactionDate(), day(2001, 2, 3));
    EXPECT_EQ(category.latestTransactionDate(), day(2004, 5, 6));
}

TEST(CVCategory, StoresATargetThatDiffersByTheLeast) {
    CVCategory category;
    category.setExpenseTarget(10);
    category.setExpenseTarget(10.0000000001);
    EXPECT_EQ(category.expenseTarget(), 10.0000000001);
}

TEST(CVCategory, WidensItsBoundsOnlyAsFarAsNeeded) {
    const FixedToday today(day(2014, 3, 7));
    CVCategory category;
    const auto expectBounds = [&category](const QBDate& earliest, const QBDate& latest) {
        EXPECT_EQ(category.earliestTransactionDate(), earliest);
        EXPECT_EQ(category.latestTransactionDate(), latest);
    };
    category.widenBounds(day(2014, 3, 7));
    expectBounds(day(2014, 3, 7), day(2014, 3, 7));
    category.widenBounds(day(2014, 3, 9));
    expectBounds(day(2014, 3, 7), day(2014, 3, 9));
    category.widenBounds(day(2013, 12, 31));
    expectBounds(day(2013, 12, 31), day(2014, 3, 9));
    category.widenBounds(day(2014, 1, 1));
    expectBounds(day(2013, 12, 31), day(2014, 3, 9));
}

struct NameRow {
    QString before;
    QString after;
    QString stored;
    int posts;
};

const NameRow kNames[]{
    {"Food", "Food", "Food", 0},
    {"Food", "food", "food", 1},
    {"Food", "Meals", "Meals", 1},
    {"Food", kEmpty, kEmpty, 1},
    {"Food", kNull, kNull, 1},
    {kEmpty, kEmpty, kEmpty, 0},
    {kEmpty, kNull, kNull, 1},
    {kNull, kNull, kNull, 0},
    {kNull, kEmpty, kEmpty, 1},
    {kNull, "Food", "Food", 1},
    {"Food", QStringLiteral("Fo\u0001od"), "Food", 0},
    {"Food", QStringLiteral("A\r\nB\uFFFE"), "A\nB", 1},
};

TEST(CVCategory, AnnouncesAnotherNameOnceAndTheSameNameNotAtAll) {
    for (const NameRow& row : kNames) {
        SCOPED_TRACE(testing::PrintToString(row.before) + " to " + testing::PrintToString(row.after));
        BudgetBuilder budget;
        budget.category(row.before, 12);
        NotificationCounter counter(budget.notificationCenter());
        CVCategory& category = *budget.document().objectInCategoriesAtIndex(0);
        category.setCategoryName(row.after);
        EXPECT_EQ(category.categoryName(), row.stored);
        EXPECT_EQ(category.categoryName().isNull(), row.stored.isNull());
        EXPECT_EQ(counter.count(CVNotifications::kCategoryAddedRemoved), row.posts);
        EXPECT_EQ(counter.total(), row.posts);
    }
}

TEST(CVCategory, LeavesTheOrderOfTheDocumentToTheCaller) {
    BudgetBuilder budget;
    budget.category("a", 1).category("b", 2);
    budget.categoryNamed("a")->setCategoryName("z");
    EXPECT_EQ(budget.document().objectInCategoriesAtIndex(0)->categoryName(), "z");
    budget.document().sortCategories();
    EXPECT_EQ(budget.document().objectInCategoriesAtIndex(0)->categoryName(), "b");
}

TEST(CVCategory, OfNoDocumentIsRenamedQuietly) {
    CVCategory category;
    category.setCategoryName("Food");
    EXPECT_EQ(category.categoryName(), "Food");
}

TEST(CVCategory, AnnouncesNothingButItsName) {
    BudgetBuilder budget;
    budget.category("Food", 12);
    NotificationCounter counter(budget.notificationCenter());
    CVCategory& category = *budget.categoryNamed("Food");
    category.setUniqueID(13);
    category.setExpenseFrequency(5);
    category.setExpenseTarget(7);
    category.setBillFrequency("Yearly");
    category.setEarliestTransactionDate(day(2001, 1, 1));
    category.widenBounds(day(2000, 1, 1));
    category.setTotal(1);
    EXPECT_EQ(counter.total(), 0);
}

TEST(CVCategory, HasStandardNamesThatADocumentCanHold) {
    const auto names = CVCategory::standardCategoryNames();
    ASSERT_TRUE(names.has_value());
    EXPECT_GE(names->size(), 10);
    QStringList distinct = *names;
    distinct.removeDuplicates();
    EXPECT_EQ(distinct, *names);
    for (const QString& name : *names)
        EXPECT_EQ(name.trimmed(), name);
    EXPECT_FALSE(names->contains(QString()));
    EXPECT_EQ(CVCategory::standardCategoryNames(), names);
}

struct TextRow {
    QString name;
    quint32 id;
    qint64 frequency;
    double target;
    const char* text;
};

const TextRow kTexts[]{
    {"Medical", 12, 3, 50,
     R"xml(<Category id="12">Medical<ExpenseEstimates frequency="Monthly" target="50.00" /></Category>)xml"},
    {"R&D <x> \"q\" Zoë", 4294967295U, 0, -0.004,
     R"xml(<Category id="4294967295">R&amp;D &lt;x&gt; &quot;q&quot; Zoë<ExpenseEstimates frequency="Weekly" target="-0.00" /></Category>)xml"},
    {kEmpty, 0, 7, 1234567.5,
     R"xml(<Category id="0"><ExpenseEstimates frequency="Annually" target="1234567.50" /></Category>)xml"},
    {kNull, 1, 2, 0.999,
     R"xml(<Category id="1"><ExpenseEstimates frequency="Semi-Monthly" target="1.00" /></Category>)xml"},
    {"x", 1, -1, 0, R"xml(<Category id="1">x<ExpenseEstimates frequency="(null)" target="0.00" /></Category>)xml"},
    {"x", 1, 8, 0, R"xml(<Category id="1">x<ExpenseEstimates frequency="(null)" target="0.00" /></Category>)xml"},
};

TEST(CVCategoryText, IsTheElementWithoutALineFeed) {
    for (const TextRow& row : kTexts) {
        BudgetBuilder budget;
        budget.category(row.name, row.id, row.frequency, row.target);
        EXPECT_EQ(budget.document().objectInCategoriesAtIndex(0)->xmlRepresentation(), row.text);
    }
}

TEST(CVCategoryText, HoldsNoComputedValue) {
    BudgetBuilder budget;
    budget.category("Food", 12);
    CVCategory& category = *budget.categoryNamed("Food");
    const QByteArray before = category.xmlRepresentation();
    category.setTotal(5);
    category.setBillFrequency("Yearly");
    category.setBudgetExpenseFrequency(7);
    category.setEarliestTransactionDate(day(2001, 1, 1));
    category.setNumberOfTransactions(3);
    EXPECT_EQ(category.xmlRepresentation(), before);
}

} // namespace
