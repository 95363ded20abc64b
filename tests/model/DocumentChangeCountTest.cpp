#include "kit/BudgetBuilder.h"
#include "shared/base/CVNotifications.h"
#include "shared/base/QBNotificationCenter.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Change = void (*)(BudgetBuilder& budget);

/// Two sets, two categories and four transactions, newest first: of the 9th, the 7th, the 1st and of no day.
void fillForChanges(BudgetBuilder& budget) {
    budget.set("Checking", 27).set("Savings", 28).currentSet(27).category("Food", 12).category("Fuel", 13);
    budget
        .transaction({.date = day(2014, 3, 9), .amount = 1, .payTo = "a", .xfor = "x", .category = "Food", .setID = 27})
        .transaction({.date = day(2014, 3, 7), .amount = 2, .payTo = "b", .category = "Fuel", .setID = 28})
        .transaction({.date = day(2014, 3, 1), .amount = 3, .payTo = "c", .category = "Food", .setID = 27})
        .transaction({.amount = 4, .payTo = "d", .setID = 27});
}

CVTransaction& firstOf(BudgetBuilder& budget) {
    return *budget.transactionAt(0);
}

struct ChangeRow {
    const char* name;
    Change apply;
};

/// So that a failed row is shown by its name.
void PrintTo(const ChangeRow& row, std::ostream* out) {
    *out << row.name;
}

constexpr std::array kSettersOfAnother{
    ChangeRow{"another date", [](BudgetBuilder& budget) { firstOf(budget).setEffectiveDate(day(2014, 3, 8)); }},
    ChangeRow{"no date any more", [](BudgetBuilder& budget) { firstOf(budget).setEffectiveDate(std::nullopt); }},
    ChangeRow{"another payee", [](BudgetBuilder& budget) { firstOf(budget).setPayTo("A"); }},
    ChangeRow{"no payee any more", [](BudgetBuilder& budget) { firstOf(budget).setPayTo(QString()); }},
    ChangeRow{"another purpose", [](BudgetBuilder& budget) { firstOf(budget).setFor("X"); }},
    ChangeRow{"another amount", [](BudgetBuilder& budget) { firstOf(budget).setAmount(1.01); }},
    ChangeRow{"another category", [](BudgetBuilder& budget) { firstOf(budget).setCategoryID(13); }},
    ChangeRow{"another set", [](BudgetBuilder& budget) { firstOf(budget).setTransactionSetID(28); }},
    ChangeRow{"another tax flag", [](BudgetBuilder& budget) { firstOf(budget).setTaxFlag(true); }},
    ChangeRow{"another flag of the user", [](BudgetBuilder& budget) { firstOf(budget).setUserFlag(true); }}};

constexpr std::array kInsertion{ChangeRow{
    "insertTransaction", [](BudgetBuilder& budget) { budget.document().insertTransaction(makeTransaction({})); }}};

constexpr std::array kChangesOfTransactions{
    ChangeRow{"addTransaction", [](BudgetBuilder& budget) { budget.document().addTransaction(makeTransaction({})); }},
    ChangeRow{
        "removeTransaction",
        [](BudgetBuilder& budget) { budget.document().removeTransaction(std::shared_ptr(budget.transactionAt(1))); }},
    ChangeRow{"removeTransactions",
              [](BudgetBuilder& budget) {
                  budget.document().removeTransactions(std::array{budget.transactionAt(0), budget.transactionAt(2)});
              }},
    ChangeRow{"removeTransactionsForSet",
              [](BudgetBuilder& budget) { budget.document().removeTransactionsForSet(28); }},
    ChangeRow{"sortTransactionsByDate", [](BudgetBuilder& budget) { budget.document().sortTransactionsByDate(); }},
    ChangeRow{"updateDates", [](BudgetBuilder& budget) { budget.document().updateDates(); }},
    ChangeRow{"reset_to_default_info", [](BudgetBuilder& budget) { budget.document().reset_to_default_info(); }},
    ChangeRow{"finishedParsingData", [](BudgetBuilder& budget) { budget.document().finishedParsingData(); }}};

constexpr std::array kChangesOfCategories{
    ChangeRow{"another name of a category",
              [](BudgetBuilder& budget) { budget.categoryNamed("Food")->setCategoryName("Meals"); }},
    ChangeRow{"no name of a category any more",
              [](BudgetBuilder& budget) { budget.categoryNamed("Food")->setCategoryName(QString()); }},
    ChangeRow{"addCategory",
              [](BudgetBuilder& budget) { budget.document().addCategory(std::make_shared<CVCategory>()); }},
    ChangeRow{"insertCategoryName with a new name",
              [](BudgetBuilder& budget) { (void)budget.document().insertCategoryName("Auto"); }},
    ChangeRow{"insertCategoryName with a name in another case",
              [](BudgetBuilder& budget) { (void)budget.document().insertCategoryName("FOOD"); }},
    ChangeRow{
        "removeCategory",
        [](BudgetBuilder& budget) { budget.document().removeCategory(std::shared_ptr(budget.categoryNamed("Fuel"))); }},
    ChangeRow{"sortCategories", [](BudgetBuilder& budget) { budget.document().sortCategories(); }},
    ChangeRow{"setInitialCategories", [](BudgetBuilder& budget) { budget.document().setInitialCategories(); }},
    ChangeRow{"removeAllCategories", [](BudgetBuilder& budget) { budget.document().removeAllCategories(); }}};

constexpr std::array kNoChanges{
    ChangeRow{"the same date", [](BudgetBuilder& budget) { firstOf(budget).setEffectiveDate(day(2014, 3, 9)); }},
    ChangeRow{"the same payee", [](BudgetBuilder& budget) { firstOf(budget).setPayTo("a"); }},
    ChangeRow{"the same purpose", [](BudgetBuilder& budget) { firstOf(budget).setFor("x"); }},
    ChangeRow{"the same amount", [](BudgetBuilder& budget) { firstOf(budget).setAmount(1); }},
    ChangeRow{"an amount too close to it", [](BudgetBuilder& budget) { firstOf(budget).setAmount(1.0000001); }},
    ChangeRow{"the same category", [](BudgetBuilder& budget) { firstOf(budget).setCategoryID(12); }},
    ChangeRow{"the same set", [](BudgetBuilder& budget) { firstOf(budget).setTransactionSetID(27); }},
    ChangeRow{"the same tax flag", [](BudgetBuilder& budget) { firstOf(budget).setTaxFlag(false); }},
    ChangeRow{"the same flag of the user", [](BudgetBuilder& budget) { firstOf(budget).setUserFlag(false); }},
    ChangeRow{"the same name of a category",
              [](BudgetBuilder& budget) { budget.categoryNamed("Food")->setCategoryName("Food"); }},
    ChangeRow{"insertCategoryName with a known name",
              [](BudgetBuilder& budget) { (void)budget.document().insertCategoryName("Food"); }},
    ChangeRow{"no transaction inserted", [](BudgetBuilder& budget) { budget.document().insertTransaction(nullptr); }},
    ChangeRow{"no transactions removed", [](BudgetBuilder& budget) { budget.document().removeTransactions({}); }},
    ChangeRow{"no category added", [](BudgetBuilder& budget) { budget.document().addCategory(nullptr); }},
    ChangeRow{"a strange category removed",
              [](BudgetBuilder& budget) { budget.document().removeCategory(std::make_shared<CVCategory>()); }},
    ChangeRow{"a transaction that is not the document's changed",
              [](BudgetBuilder&) { makeTransaction({})->setAmount(5); }},
    ChangeRow{"a category that is not the document's named",
              [](BudgetBuilder&) { std::make_shared<CVCategory>()->setCategoryName("Auto"); }},
    ChangeRow{"an ID issued", [](BudgetBuilder& budget) { (void)budget.document().getUniqueID(); }},
    ChangeRow{"another set shown", [](BudgetBuilder& budget) { budget.document().setCurrentTransactionSet(28); }},
    ChangeRow{"saving", [](BudgetBuilder& budget) { budget.document().workbookSave(); }},
    ChangeRow{"reading", [](BudgetBuilder& budget) {
                  const CVDocument& document = budget.document();
                  (void)document.transactions().front()->categoryName();
                  (void)document.transactions().front()->xmlRepresentation();
                  (void)document.indexInTransactionArrayOfDate(day(2014, 3, 8));
                  (void)document.categoryInUse(*document.getCategoryByUniqueID(12));
                  (void)document.doesCategoryNameExist("Food");
                  (void)document.findTransactionSetFromID(27);
                  (void)document.earliestTransactionDate();
                  (void)document.lastInsertion();
              }}};

class DocumentChangeCount : public testing::TestWithParam<ChangeRow> {
protected:
    DocumentChangeCount() { fillForChanges(mBudget); }

    BudgetBuilder mBudget;
};

class RisingChangeCount : public DocumentChangeCount {};
class SteadyChangeCount : public DocumentChangeCount {};
class ForgottenInsertion : public DocumentChangeCount {};

TEST_P(RisingChangeCount, RisesWith) {
    const quint64 before = mBudget.document().changeCount();
    GetParam().apply(mBudget);
    EXPECT_GT(mBudget.document().changeCount(), before);
}

TEST_P(SteadyChangeCount, StaysWith) {
    const quint64 before = mBudget.document().changeCount();
    GetParam().apply(mBudget);
    EXPECT_EQ(mBudget.document().changeCount(), before);
}

TEST_P(SteadyChangeCount, KeepsTheLastInsertionWith) {
    const auto inserted = makeTransaction({.date = day(2014, 3, 8)});
    mBudget.document().insertTransaction(inserted);
    GetParam().apply(mBudget);
    EXPECT_EQ(mBudget.document().lastInsertion(), 1U);
}

TEST_P(ForgottenInsertion, IsAbsentAfter) {
    // Behind all that have a date: the rows change those before it.
    mBudget.document().insertTransaction(makeTransaction({.date = day(2014, 2, 1)}));
    ASSERT_EQ(mBudget.document().lastInsertion(), 3U);
    GetParam().apply(mBudget);
    EXPECT_EQ(mBudget.document().lastInsertion(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Insertion, RisingChangeCount, testing::ValuesIn(kInsertion));
INSTANTIATE_TEST_SUITE_P(Setters, RisingChangeCount, testing::ValuesIn(kSettersOfAnother));
INSTANTIATE_TEST_SUITE_P(Transactions, RisingChangeCount, testing::ValuesIn(kChangesOfTransactions));
INSTANTIATE_TEST_SUITE_P(Categories, RisingChangeCount, testing::ValuesIn(kChangesOfCategories));
INSTANTIATE_TEST_SUITE_P(Setters, ForgottenInsertion, testing::ValuesIn(kSettersOfAnother));
INSTANTIATE_TEST_SUITE_P(Transactions, ForgottenInsertion, testing::ValuesIn(kChangesOfTransactions));
INSTANTIATE_TEST_SUITE_P(Categories, ForgottenInsertion, testing::ValuesIn(kChangesOfCategories));
INSTANTIATE_TEST_SUITE_P(NoChanges, SteadyChangeCount, testing::ValuesIn(kNoChanges));

TEST_F(DocumentChangeCount, LeavesOutATransactionAndACategoryThatWereRemoved) {
    CVDocument& document = mBudget.document();
    const auto transaction = mBudget.transactionAt(0);
    const auto category = mBudget.categoryNamed("Fuel");
    document.removeTransaction(transaction);
    document.removeCategory(category);
    const quint64 before = document.changeCount();
    transaction->setAmount(77);
    category->setCategoryName("Petrol");
    EXPECT_EQ(document.changeCount(), before);
}

TEST(ChangeCount, HasRisenWhenAChangeIsAnnounced) {
    const ChangeRow rows[] = {
        {"insertTransaction", [](BudgetBuilder& budget) { budget.document().insertTransaction(makeTransaction({})); }},
        {"removeTransaction",
         [](BudgetBuilder& budget) { budget.document().removeTransaction(std::shared_ptr(budget.transactionAt(1))); }},
        {"removeTransactions",
         [](BudgetBuilder& budget) { budget.document().removeTransactions(std::array{budget.transactionAt(0)}); }},
        {"removeTransactionsForSet", [](BudgetBuilder& budget) { budget.document().removeTransactionsForSet(28); }},
        {"another name", [](BudgetBuilder& budget) { budget.categoryNamed("Food")->setCategoryName("Meals"); }},
        {"addCategory", [](BudgetBuilder& budget) { budget.document().addCategory(std::make_shared<CVCategory>()); }},
        {"insertCategoryName", [](BudgetBuilder& budget) { (void)budget.document().insertCategoryName("Auto"); }},
        {"removeCategory", [](BudgetBuilder& budget) {
             budget.document().removeCategory(std::shared_ptr(budget.categoryNamed("Fuel")));
         }}};
    for (const auto& row : rows) {
        BudgetBuilder budget;
        fillForChanges(budget);
        const quint64 before = budget.document().changeCount();
        int announcements = 0;
        QObject observer;
        for (const char* const name :
             {CVNotifications::kTransactionAddedRemoved, CVNotifications::kCategoryAddedRemoved}) {
            budget.notificationCenter().addObserver(name, &observer, [&](const QBNotification&) {
                ++announcements;
                EXPECT_GT(budget.document().changeCount(), before) << row.name;
            });
        }
        row.apply(budget);
        EXPECT_GT(announcements, 0) << row.name;
    }
}

TEST(LastInsertion, IsAbsentOnAFreshDocument) {
    BudgetBuilder budget;
    EXPECT_EQ(budget.document().lastInsertion(), std::nullopt);
}

TEST_F(DocumentChangeCount, TellsWhereTheLastInsertionPutATransaction) {
    struct {
        const char* behaviour;
        std::optional<QBDate> date;
        std::size_t index;
    } const rows[] = {{"the newest", day(2014, 3, 10), 0},
                      {"between two days", day(2014, 3, 8), 2},
                      {"the oldest, before the undated one", day(2014, 2, 1), 5},
                      {"the newest once more", day(2014, 3, 11), 0}};
    CVDocument& document = mBudget.document();
    for (const auto& row : rows) {
        const auto inserted = makeTransaction({.date = row.date});
        document.insertTransaction(inserted);
        ASSERT_EQ(document.lastInsertion(), row.index) << row.behaviour;
        EXPECT_EQ(mBudget.transactionAt(row.index), inserted) << row.behaviour;
    }
    for (const auto& date : {std::optional(day(2014, 3, 7)), std::optional<QBDate>()}) {
        const auto inserted = makeTransaction({.date = date});
        document.insertTransaction(inserted);
        ASSERT_TRUE(document.lastInsertion()) << "beside one of the same day";
        EXPECT_EQ(mBudget.transactionAt(*document.lastInsertion()), inserted);
    }
}

TEST_F(DocumentChangeCount, TellsTheLastInsertionWhenItIsAnnounced) {
    std::optional<std::size_t> announced;
    QObject observer;
    mBudget.notificationCenter().addObserver(
        CVNotifications::kTransactionAddedRemoved, &observer,
        [&](const QBNotification&) { announced = mBudget.document().lastInsertion(); });
    mBudget.document().insertTransaction(makeTransaction({.date = day(2014, 3, 8)}));
    EXPECT_EQ(announced, 1U);
}

} // namespace
