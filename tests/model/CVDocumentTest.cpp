#include "model/CVDocument.h"

#include "base/CVDefaultsKeys.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "kit/NotificationCounter.h"
#include "model/CVDocumentSaver.h"

#include <gmock/gmock.h>

#include <limits>
#include <set>
#include <vector>

namespace {

using testing::ElementsAre;

/// Records the content of the document at each save.
class RecordingSaver final : public CVDocumentSaver {
public:
    struct Save {
        const CVDocument* document;
        std::size_t transactions;
        std::size_t categories;
        quint32 lastID;
        int numberOfItems;
    };

    bool workbookSave(CVDocument& document) override {
        mSaves.push_back({&document, document.transactions().size(), document.countOfCategories(), document.uniqueID(),
                          document.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems)});
        return mAnswer;
    }
    [[nodiscard]] QStringList dataFiles() const override { return {"own"}; }
    [[nodiscard]] const std::vector<Save>& saves() const { return mSaves; }
    void setAnswer(bool answer) { mAnswer = answer; }

private:
    std::vector<Save> mSaves;
    bool mAnswer = true;
};

TEST(CVDocument, BeginsEmpty) {
    BudgetBuilder budget;
    const CVDocument& document = budget.document();
    EXPECT_TRUE(document.transactions().empty());
    EXPECT_EQ(document.countOfCategories(), 0U);
    EXPECT_EQ(document.countOfTransactionSets(), 0U);
    EXPECT_EQ(document.currentTransactionSet(), 0U);
    EXPECT_EQ(document.uniqueID(), 0U);
    EXPECT_EQ(document.earliestTransactionDate(), std::nullopt);
    EXPECT_EQ(document.latestTransactionDate(), std::nullopt);
}

TEST(CVDocument, IssuesIDsFromOneOnForCategoriesAndSetsAlike) {
    BudgetBuilder budget;
    CVDocument& document = budget.document();
    EXPECT_EQ(document.getUniqueID(), 1U);
    EXPECT_EQ(document.insertCategoryName("Food")->uniqueID(), 2U);
    EXPECT_EQ(document.getUniqueID(), 3U);
    EXPECT_EQ(document.uniqueID(), 3U);
    document.setUniqueID(40);
    EXPECT_EQ(document.uniqueID(), 40U);
    EXPECT_EQ(document.getUniqueID(), 41U);
}

TEST(CVDocument, IssuesNoIDThatARecordOfTheKindHasOrATransactionNames) {
    BudgetBuilder budget;
    budget.set("Checking", 2).set("Savings", 4).category("Food", 1).category("Rent", 3);
    budget.transaction({.categoryID = 6, .setID = 5});
    CVDocument& document = budget.document();
    EXPECT_EQ(document.getUniqueTransactionSetID(), 1U);
    EXPECT_EQ(document.getUniqueTransactionSetID(), 3U);
    EXPECT_EQ(document.getUniqueTransactionSetID(), 6U) << "5 is named by a transaction";
    document.setUniqueID(0);
    EXPECT_EQ(document.getUniqueCategoryID(), 2U);
    EXPECT_EQ(document.insertCategoryName("Fuel")->uniqueID(), 4U);
    EXPECT_EQ(document.insertCategoryName("Fun")->uniqueID(), 5U);
    EXPECT_EQ(document.insertCategoryName("Gifts")->uniqueID(), 7U) << "6 is named by a transaction";
}

TEST(CVDocument, IssuesNoIDOfZeroWhenTheCounterBeginsAnew) {
    BudgetBuilder budget;
    budget.set("Checking", 1).lastID(std::numeric_limits<quint32>::max());
    EXPECT_EQ(budget.document().getUniqueTransactionSetID(), 2U);
    budget.lastID(std::numeric_limits<quint32>::max());
    EXPECT_EQ(budget.document().getUniqueCategoryID(), 1U);
}

TEST(CVDocument, AResetBeginsWithOneAgainAndLaterSetsPassOverThoseThatStayed) {
    BudgetBuilder budget;
    CVDocument& document = budget.document();
    document.addDefaults();
    const quint32 last = document.uniqueID();
    budget.set("Checking", last + 1).set("Savings", last + 2).lastID(last + 2);
    document.reset_to_default_info();
    EXPECT_EQ(document.uniqueID(), last);
    EXPECT_EQ(document.getUniqueTransactionSetID(), last + 3);
    EXPECT_EQ(document.insertCategoryName("Mine")->uniqueID(), last + 4);
}

TEST(CVDocument, TheStandardCategoriesPassOverTheIDsThatCategoriesHave) {
    BudgetBuilder budget;
    budget.category("Zoo", 2);
    budget.document().addDefaults();
    std::set<quint32> ids;
    for (const auto& category : budget.document().categories())
        EXPECT_TRUE(ids.insert(category->uniqueID()).second) << category->categoryName().toStdString();
    EXPECT_EQ(budget.document().getCategoryByUniqueID(2)->categoryName(), "Zoo");
}

TEST(CVDocument, SavesThroughItsSaver) {
    BudgetBuilder budget;
    RecordingSaver saver;
    EXPECT_TRUE(budget.document().workbookSave()) << "without a saver";
    budget.document().setSaver(&saver);
    EXPECT_TRUE(budget.document().workbookSave());
    ASSERT_EQ(saver.saves().size(), 1U);
    EXPECT_EQ(saver.saves()[0].document, &budget.document());
    saver.setAnswer(false);
    EXPECT_FALSE(budget.document().workbookSave());
    budget.document().setSaver(nullptr);
    EXPECT_TRUE(budget.document().workbookSave());
    EXPECT_EQ(saver.saves().size(), 2U);
}

TEST(CVDocument, SavesOnlyWhenAsked) {
    BudgetBuilder budget;
    RecordingSaver saver;
    budget.document().setSaver(&saver);
    budget.document().insertTransaction(makeTransaction({.date = day(2014, 3, 7)}));
    (void)budget.document().insertCategoryName("Food");
    budget.document().removeTransactionsForSet(0);
    budget.document().addDefaults();
    EXPECT_TRUE(saver.saves().empty());
}

TEST(CVDocumentSets, AreFoundByIDAndElseTheLastOne) {
    BudgetBuilder budget;
    EXPECT_EQ(budget.document().findTransactionSetFromID(0), nullptr);
    budget.set("a", 5).set("b", 6).set("c", 6).set("d", 7);
    const CVDocument& document = budget.document();
    EXPECT_EQ(document.findTransactionSetFromID(5), budget.setNamed("a"));
    EXPECT_EQ(document.findTransactionSetFromID(6), budget.setNamed("b"));
    EXPECT_EQ(document.findTransactionSetFromID(7), budget.setNamed("d"));
    EXPECT_EQ(document.findTransactionSetFromID(0), budget.setNamed("d"));
    EXPECT_EQ(document.findTransactionSetFromID(99), budget.setNamed("d"));
    EXPECT_EQ(document.objectInTransactionSetsAtIndex(1), budget.setNamed("b"));
    EXPECT_EQ(document.countOfTransactionSets(), 4U);
}

TEST(CVDocumentSets, HaveTheFirstWithTheCurrentIDOrNoneAtTheTop) {
    BudgetBuilder budget;
    const auto index = [&budget](quint32 current) {
        budget.document().setCurrentTransactionSet(current);
        return budget.document().popupIndexOfCurrentTransactionSet();
    };
    EXPECT_EQ(index(0), 0U);
    EXPECT_EQ(index(5), 0U);
    budget.set("a", 5).set("b", 6).set("c", 6).set("d", 0);
    EXPECT_EQ(index(5), 0U);
    EXPECT_EQ(index(6), 1U);
    EXPECT_EQ(index(0), 3U);
    EXPECT_EQ(index(99), 0U);
    EXPECT_EQ(budget.document().currentTransactionSet(), 99U);
}

TEST(CVDocumentDefaults, AreTheStandardCategoriesAndAPaidToListOfTen) {
    BudgetBuilder budget;
    budget.document().addDefaults();
    EXPECT_EQ(budget.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems), 10);
    EXPECT_EQ(budget.document().countOfCategories(),
              static_cast<std::size_t>(CVCategory::standardCategoryNames().value().size()));
}

TEST(CVDocumentReset, StartsOverButKeepsTheSetsAndSavesOnce) {
    BudgetBuilder budget;
    budget.set("Checking", 27)
        .set("Savings", 28)
        .currentSet(28)
        .category("My own", 29)
        .transaction({.date = day(2014, 3, 7), .category = "My own", .set = "Savings"})
        .lastID(40)
        .inOrder();
    budget.userDefaults().setInteger(CVDefaultsKeys::kNumberOfItems, 25);
    CVDocument& document = budget.document();
    RecordingSaver saver;
    document.setSaver(&saver);
    NotificationCounter counter(budget.notificationCenter());

    document.reset_to_default_info();

    const auto standard = static_cast<quint32>(CVCategory::standardCategoryNames().value().size());
    EXPECT_TRUE(document.transactions().empty());
    EXPECT_EQ(document.countOfCategories(), standard);
    EXPECT_EQ(document.doesCategoryNameExist("My own"), nullptr);
    EXPECT_EQ(document.uniqueID(), standard) << "IDs are issued from 1 on again";
    EXPECT_EQ(budget.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems), 10);
    EXPECT_EQ(document.countOfTransactionSets(), 2U);
    EXPECT_EQ(document.currentTransactionSet(), 28U);
    EXPECT_EQ(counter.total(), 0);
    // The document is saved once, after the whole change.
    ASSERT_EQ(saver.saves().size(), 1U);
    EXPECT_EQ(saver.saves()[0].transactions, 0U);
    EXPECT_EQ(saver.saves()[0].categories, standard);
    EXPECT_EQ(saver.saves()[0].lastID, standard);
    EXPECT_EQ(saver.saves()[0].numberOfItems, 10);
}

TEST(CVDocumentFinishedParsing, KeepsTheFirstOfEachID) {
    BudgetBuilder budget;
    budget.set("a", 5).set("b", 0).set("c", 5).set("d", 6).set("e", 0).set("f", 5);
    budget.category("A", 5).category("B", 5).category("C", 6).category("D", 5).category("E", 7).category("F", 7);
    const CVTransactionSets sets = budget.document().transactionSets();
    const CVCategories categories = budget.document().categories();
    budget.transaction({.categoryID = 5}).transaction({.categoryID = 5});
    NotificationCounter counter(budget.notificationCenter());

    budget.document().finishedParsingData();

    EXPECT_THAT(budget.document().transactionSets(), ElementsAre(sets[0], sets[1], sets[3]));
    EXPECT_THAT(budget.document().categories(), ElementsAre(categories[0], categories[2], categories[4]));
    EXPECT_EQ(budget.document().transactions().size(), 2U);
    EXPECT_EQ(counter.total(), 0);
}

TEST(CVDocumentEnd, LeavesRecordsThatAreStillShownWithoutADocument) {
    auto budget = std::make_unique<BudgetBuilder>();
    budget->set("Checking", 27).category("Food", 12).transaction({.category = "Food"});
    const auto transaction = budget->transactionAt(0);
    const auto category = budget->categoryNamed("Food");
    const auto set = budget->setNamed("Checking");
    budget.reset();
    EXPECT_EQ(transaction->document(), nullptr);
    EXPECT_TRUE(transaction->categoryName().isNull());
    EXPECT_EQ(category->document(), nullptr);
    category->setCategoryName("Meals");
    EXPECT_EQ(set->document(), nullptr);
}

TEST(CVDocumentEnd, LeavesRecordsThatWereRemovedWithoutADocument) {
    auto budget = std::make_unique<BudgetBuilder>();
    budget->category("Food", 12)
        .category("Rent", 13)
        .transaction({.category = "Food"})
        .transaction({.category = "Rent"});
    const auto removed = budget->transactionAt(0);
    const auto reset = budget->transactionAt(1);
    const auto removedCategory = budget->categoryNamed("Food");
    const auto resetCategory = budget->categoryNamed("Rent");
    budget->document().removeTransaction(removed);
    budget->document().removeCategory(removedCategory);
    EXPECT_TRUE(removed->categoryName().isNull());
    budget->document().reset_to_default_info();
    budget.reset();
    EXPECT_EQ(removed->document(), nullptr);
    EXPECT_EQ(reset->document(), nullptr);
    EXPECT_EQ(removedCategory->document(), nullptr);
    EXPECT_EQ(resetCategory->document(), nullptr);
}

TEST(CVDocument, TakesTheRecordsOfAnotherDocumentWithoutAWord) {
    BudgetBuilder from;
    from.set("Checking", 1).currentSet(1).category("Food", 3).lastID(20);
    from.transaction({.date = day(2014, 3, 7), .amount = 30, .category = "Food", .set = "Checking"});
    BudgetBuilder to;
    RecordingSaver saver;
    to.document().setSaver(&saver);
    const NotificationCounter announced(to.notificationCenter());
    CVDocument& taker = to.document();
    taker.takeRecords(from.document());
    ASSERT_EQ(taker.transactions().size(), 1U);
    EXPECT_EQ(taker.transactions()[0]->categoryName(), "Food") << "it looks for its category in its new document";
    EXPECT_EQ(taker.categories()[0]->document(), &taker);
    EXPECT_EQ(taker.transactionSets()[0]->transactionSetName(), "Checking");
    EXPECT_EQ(taker.currentTransactionSet(), 1U);
    EXPECT_EQ(taker.uniqueID(), 20U);
    EXPECT_EQ(announced.total(), 0);
    EXPECT_TRUE(saver.saves().empty());
    EXPECT_TRUE(from.document().transactions().empty());
    EXPECT_TRUE(from.document().categories().empty());
    EXPECT_TRUE(from.document().transactionSets().empty());
}

} // namespace
