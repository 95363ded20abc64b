#include "base/CVNotifications.h"
#include "kit/BudgetBuilder.h"
#include "kit/NotificationCounter.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using testing::ElementsAre;

QStringList namesOf(const CVDocument& document) {
    QStringList names;
    for (const auto& category : document.categories())
        names.append(category->categoryName());
    return names;
}

TEST(CVDocumentCategories, InsertedByNameAreNewFiledInOrderAndAnnouncedTwice) {
    BudgetBuilder budget;
    budget.category("Auto", 3).category("Rent", 4).lastID(40);
    NotificationCounter counter(budget.notificationCenter());
    const auto category = budget.document().insertCategoryName("food");
    EXPECT_EQ(category->categoryName(), "food");
    EXPECT_EQ(category->uniqueID(), 41U);
    EXPECT_EQ(category->document(), &budget.document());
    EXPECT_EQ(category->expenseFrequency(), CVExpenseFrequency::kWeekly);
    EXPECT_EQ(namesOf(budget.document()), QStringList({"Auto", "food", "Rent"}));
    EXPECT_EQ(budget.document().uniqueID(), 41U);
    EXPECT_EQ(counter.count(CVNotifications::kCategoryAddedRemoved), 2);
    EXPECT_EQ(counter.total(), 2);
}

TEST(CVDocumentCategories, InsertedAgainAreTheOnesThereAreWithoutAnAnnouncement) {
    BudgetBuilder budget;
    budget.category("Food", 3).lastID(40);
    NotificationCounter counter(budget.notificationCenter());
    EXPECT_EQ(budget.document().insertCategoryName("Food"), budget.categoryNamed("Food"));
    EXPECT_EQ(budget.document().insertCategoryName(QStringLiteral("Fo\u0001od")), budget.categoryNamed("Food"));
    EXPECT_EQ(counter.total(), 0);
    EXPECT_EQ(budget.document().countOfCategories(), 1U);
    EXPECT_EQ(budget.document().uniqueID(), 40U);
}

TEST(CVDocumentCategories, ThatDifferInCaseExistSideBySide) {
    BudgetBuilder budget;
    budget.category("food", 3).lastID(40);
    NotificationCounter counter(budget.notificationCenter());
    const auto category = budget.document().insertCategoryName("Food");
    EXPECT_NE(category, budget.categoryNamed("food"));
    EXPECT_EQ(category->uniqueID(), 41U);
    EXPECT_EQ(budget.document().countOfCategories(), 2U);
    EXPECT_EQ(counter.total(), 2);
}

TEST(CVDocumentCategories, AreAppendedByAddAndAnnouncedOnce) {
    BudgetBuilder budget;
    budget.category("Rent", 4);
    NotificationCounter counter(budget.notificationCenter());
    const auto category = std::make_shared<CVCategory>();
    category->setCategoryName("Auto");
    budget.document().addCategory(category);
    EXPECT_EQ(namesOf(budget.document()), QStringList({"Rent", "Auto"}));
    EXPECT_EQ(budget.document().objectInCategoriesAtIndex(1), category);
    EXPECT_EQ(category->uniqueID(), 0U);
    EXPECT_EQ(counter.count(CVNotifications::kCategoryAddedRemoved), 1);
    budget.document().addCategory(nullptr);
    EXPECT_EQ(budget.document().countOfCategories(), 2U);
    EXPECT_EQ(counter.total(), 1);
}

TEST(CVDocumentCategories, AreRemovedByIdentityAndAnnouncedOnce) {
    BudgetBuilder budget;
    budget.category("Food", 12).category("Food", 12).category("Food", 12);
    const CVCategories all = budget.document().categories();
    NotificationCounter counter(budget.notificationCenter());
    budget.document().removeCategory(all[1]);
    EXPECT_THAT(budget.document().categories(), ElementsAre(all[0], all[2]));
    EXPECT_EQ(counter.count(CVNotifications::kCategoryAddedRemoved), 1);
    budget.document().removeCategory(all[1]);
    EXPECT_EQ(budget.document().countOfCategories(), 2U);
    EXPECT_EQ(counter.count(CVNotifications::kCategoryAddedRemoved), 2);
    budget.document().removeCategory(nullptr);
    EXPECT_EQ(counter.total(), 2);
}

TEST(CVDocumentCategories, LeaveTheirTransactionsBehindWhenRemoved) {
    BudgetBuilder budget;
    budget.currentSet(1).category("Food", 12).transaction({.category = "Food", .setID = 1});
    const auto category = budget.categoryNamed("Food");
    budget.document().removeCategory(category);
    EXPECT_EQ(budget.transactionAt(0)->categoryID(), 12U);
    EXPECT_TRUE(budget.transactionAt(0)->categoryName().isNull());
    EXPECT_TRUE(budget.document().categoryInUse(*category));
}

TEST(CVDocumentCategories, ACategoryIsRemovedThroughTheCollectionsOwnReferenceToIt) {
    BudgetBuilder budget;
    budget.category("Food", 1).category("Fuel", 2);
    const std::shared_ptr<CVCategory> food = budget.document().categories().front();
    budget.document().removeCategory(budget.document().categories().front());
    EXPECT_EQ(food->document(), nullptr);
    ASSERT_EQ(budget.document().countOfCategories(), 1U);
    EXPECT_EQ(budget.document().objectInCategoriesAtIndex(0)->document(), &budget.document());
}

TEST(CVDocumentCategories, AreInUseOnlyInTheCurrentSet) {
    BudgetBuilder budget;
    budget.category("Food", 12)
        .category("Rent", 13)
        .category("Auto", 14)
        .transaction({.category = "Food", .setID = 1})
        .transaction({.category = "Rent", .setID = 2});
    CVDocument& document = budget.document();
    const auto inUse = [&](const char* name) { return document.categoryInUse(*budget.categoryNamed(name)); };
    document.setCurrentTransactionSet(1);
    EXPECT_TRUE(inUse("Food"));
    EXPECT_FALSE(inUse("Rent"));
    EXPECT_FALSE(inUse("Auto"));
    document.setCurrentTransactionSet(2);
    EXPECT_FALSE(inUse("Food"));
    EXPECT_TRUE(inUse("Rent"));
    document.setCurrentTransactionSet(0);
    EXPECT_FALSE(inUse("Food"));
}

TEST(CVDocumentCategories, AreFoundByIDTheFirstOfSeveral) {
    BudgetBuilder budget;
    budget.category("a", 5).category("b", 6).category("c", 6).category("d", 0);
    const CVDocument& document = budget.document();
    EXPECT_EQ(document.getCategoryByUniqueID(5), budget.categoryNamed("a"));
    EXPECT_EQ(document.getCategoryByUniqueID(6), budget.categoryNamed("b"));
    EXPECT_EQ(document.getCategoryByUniqueID(0), budget.categoryNamed("d"));
    EXPECT_EQ(document.getCategoryByUniqueID(7), nullptr);
}

TEST(CVDocumentCategories, AreFoundByTheExactName) {
    BudgetBuilder budget;
    budget.category("food", 1).category("Food", 2).category("Food", 3).category("Ärger", 4);
    const CVDocument& document = budget.document();
    EXPECT_EQ(document.doesCategoryNameExist("food")->uniqueID(), 1U);
    EXPECT_EQ(document.doesCategoryNameExist("Food")->uniqueID(), 2U);
    EXPECT_EQ(document.doesCategoryNameExist("Ärger")->uniqueID(), 4U);
    for (const char* const name : {"FOOD", "Foo", "Food ", "ärger", ""})
        EXPECT_EQ(document.doesCategoryNameExist(QString::fromUtf8(name)), nullptr) << name;
}

TEST(CVDocumentCategories, WithoutANameAndWithAnEmptyOneDiffer) {
    BudgetBuilder budget;
    budget.category("", 1);
    EXPECT_EQ(budget.document().doesCategoryNameExist(QString()), nullptr);
    budget.category(QString(), 2);
    EXPECT_EQ(budget.document().doesCategoryNameExist(QString())->uniqueID(), 2U);
    EXPECT_EQ(budget.document().doesCategoryNameExist("")->uniqueID(), 1U);
}

TEST(CVDocumentCategories, AreSortedWithoutRegardToCaseAndEqualOnesAsTheyWere) {
    BudgetBuilder budget;
    budget.category("zoo", 1)
        .category("Food", 2)
        .category("auto", 3)
        .category("food", 4)
        .category("FOOD", 5)
        .category("Rent", 6)
        .category("", 7);
    NotificationCounter counter(budget.notificationCenter());
    budget.document().sortCategories();
    EXPECT_EQ(namesOf(budget.document()), QStringList({"", "auto", "Food", "food", "FOOD", "Rent", "zoo"}));
    EXPECT_EQ(counter.total(), 0);
}

TEST(CVDocumentCategories, AllGoAtOnceWithoutAnAnnouncement) {
    BudgetBuilder budget;
    budget.category("a", 1).category("b", 2);
    NotificationCounter counter(budget.notificationCenter());
    budget.document().removeAllCategories();
    EXPECT_EQ(budget.document().countOfCategories(), 0U);
    EXPECT_EQ(counter.total(), 0);
}

TEST(CVDocumentCategories, AtTheBeginningAreTheStandardOnesInOrderWithNewIDs) {
    BudgetBuilder budget;
    budget.category("Zebra", 3).lastID(40);
    NotificationCounter counter(budget.notificationCenter());
    budget.document().setInitialCategories();
    const QStringList standard = CVCategory::standardCategoryNames().value();
    EXPECT_EQ(budget.document().countOfCategories(), static_cast<std::size_t>(standard.size()) + 1);
    const QStringList names = namesOf(budget.document());
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    }));
    for (qsizetype i = 0; i < standard.size(); ++i) {
        const auto& category = budget.categoryNamed(standard[i]);
        EXPECT_EQ(category->uniqueID(), 41U + static_cast<quint32>(i)) << "IDs are issued in the order of the list";
        EXPECT_EQ(category->document(), &budget.document());
    }
    EXPECT_EQ(budget.document().uniqueID(), 40U + static_cast<quint32>(standard.size()));
    EXPECT_EQ(counter.total(), 0);
}

} // namespace
