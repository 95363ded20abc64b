#include "kit/BudgetBuilder.h"
#include "kit/NotificationCounter.h"
#include "model/CVTransaction.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Entry = BudgetBuilder::Entry;

void expectFieldsOf(const CVTransaction& transaction, const Entry& expected) {
    EXPECT_EQ(transaction.effectiveDate(), expected.date);
    EXPECT_EQ(transaction.payTo(), expected.payTo);
    EXPECT_EQ(transaction.payTo().isNull(), expected.payTo.isNull());
    EXPECT_EQ(transaction.xfor(), expected.xfor);
    EXPECT_EQ(transaction.xfor().isNull(), expected.xfor.isNull());
    EXPECT_EQ(transaction.amount(), expected.amount);
    EXPECT_EQ(transaction.categoryID(), expected.categoryID);
    EXPECT_EQ(transaction.transactionSetID(), expected.setID);
    EXPECT_EQ(transaction.taxFlag(), expected.taxFlag);
    EXPECT_EQ(transaction.userFlag(), expected.userFlag);
}

const QBDate kDay = day(2014, 3, 7);
const QString kNoText;
const QString kEmptyText = QLatin1String("");
constexpr double kInfinity = std::numeric_limits<double>::infinity();

enum class Cache { Kept, Dropped };

/// One change by a setter, and whether the cached text is kept or dropped.
struct SetterRow {
    const char* what = nullptr;
    Entry before;
    void (*set)(CVTransaction&) = nullptr;
    Entry after;
    Cache cache = Cache::Kept;
};

const SetterRow kSetterRows[]{
    {"the same day",
     {.date = kDay},
     [](auto& t) { t.setEffectiveDate(day(2014, 2, 35)); },
     {.date = kDay},
     Cache::Kept},
    {"another day",
     {.date = kDay},
     [](auto& t) { t.setEffectiveDate(day(2014, 3, 8)); },
     {.date = day(2014, 3, 8)},
     Cache::Dropped},
    {"another month",
     {.date = kDay},
     [](auto& t) { t.setEffectiveDate(day(2014, 4, 7)); },
     {.date = day(2014, 4, 7)},
     Cache::Dropped},
    {"another year",
     {.date = kDay},
     [](auto& t) { t.setEffectiveDate(day(2015, 3, 7)); },
     {.date = day(2015, 3, 7)},
     Cache::Dropped},
    {"no day", {.date = kDay}, [](auto& t) { t.setEffectiveDate(std::nullopt); }, {}, Cache::Dropped},
    {"a first day", {}, [](auto& t) { t.setEffectiveDate(kDay); }, {.date = kDay}, Cache::Dropped},
    {"no day as before", {}, [](auto& t) { t.setEffectiveDate(std::nullopt); }, {}, Cache::Kept},

    {"the same paid-to", {.payTo = "a"}, [](auto& t) { t.setPayTo("a"); }, {.payTo = "a"}, Cache::Kept},
    {"another paid-to", {.payTo = "a"}, [](auto& t) { t.setPayTo("A"); }, {.payTo = "A"}, Cache::Dropped},
    {"empty paid-to again",
     {.payTo = kEmptyText},
     [](auto& t) { t.setPayTo(kEmptyText); },
     {.payTo = kEmptyText},
     Cache::Kept},
    {"paid-to from null", {.payTo = kNoText}, [](auto& t) { t.setPayTo("a"); }, {.payTo = "a"}, Cache::Dropped},
    {"paid-to from null to empty",
     {.payTo = kNoText},
     [](auto& t) { t.setPayTo(kEmptyText); },
     {.payTo = kEmptyText},
     Cache::Dropped},
    {"paid-to from empty to null",
     {.payTo = kEmptyText},
     [](auto& t) { t.setPayTo(kNoText); },
     {.payTo = kNoText},
     Cache::Dropped},
    {"paid-to null again", {.payTo = kNoText}, [](auto& t) { t.setPayTo(kNoText); }, {.payTo = kNoText}, Cache::Kept},
    {"paid-to that is the same when cleaned",
     {.payTo = "a\nb"},
     [](auto& t) { t.setPayTo("a\r\nb\a"); },
     {.payTo = "a\nb"},
     Cache::Kept},
    {"paid-to with what XML cannot carry",
     {},
     [](auto& t) { t.setPayTo(QStringLiteral("\u0001x\r\uFFFF")); },
     {.payTo = "x\n"},
     Cache::Dropped},

    // setFor() depends on the paid-to text: when that text is present, a null "for" stays null.
    {"the same for", {.xfor = "a"}, [](auto& t) { t.setFor("a"); }, {.xfor = "a"}, Cache::Kept},
    {"another for", {.xfor = "a"}, [](auto& t) { t.setFor("b"); }, {.xfor = "b"}, Cache::Dropped},
    {"for from empty", {.xfor = kEmptyText}, [](auto& t) { t.setFor("b"); }, {.xfor = "b"}, Cache::Dropped},
    {"for from null with a paid-to",
     {.payTo = "p", .xfor = kNoText},
     [](auto& t) { t.setFor("b"); },
     {.payTo = "p", .xfor = kNoText},
     Cache::Kept},
    {"for from null with an empty paid-to",
     {.payTo = kEmptyText, .xfor = kNoText},
     [](auto& t) { t.setFor("b"); },
     {.payTo = kEmptyText, .xfor = kNoText},
     Cache::Kept},
    {"for from null without a paid-to",
     {.payTo = kNoText, .xfor = kNoText},
     [](auto& t) { t.setFor("b"); },
     {.payTo = kNoText, .xfor = "b"},
     Cache::Dropped},
    {"another for without a paid-to",
     {.payTo = kNoText, .xfor = "a"},
     [](auto& t) { t.setFor("b"); },
     {.payTo = kNoText, .xfor = "b"},
     Cache::Dropped},
    {"for to null with a paid-to",
     {.payTo = "p", .xfor = "a"},
     [](auto& t) { t.setFor(kNoText); },
     {.payTo = "p", .xfor = kNoText},
     Cache::Dropped},
    {"for from empty to null with a paid-to",
     {.payTo = "p", .xfor = kEmptyText},
     [](auto& t) { t.setFor(kNoText); },
     {.payTo = "p", .xfor = kNoText},
     Cache::Dropped},
    {"for to null without a paid-to",
     {.payTo = kNoText, .xfor = "a"},
     [](auto& t) { t.setFor(kNoText); },
     {.payTo = kNoText, .xfor = kNoText},
     Cache::Dropped},
    {"for with what XML cannot carry",
     {},
     [](auto& t) { t.setFor(QStringLiteral("\u0001x\r\uFFFF")); },
     {.xfor = "x\n"},
     Cache::Dropped},

    {"the same amount", {.amount = 10}, [](auto& t) { t.setAmount(10); }, {.amount = 10}, Cache::Kept},
    {"half a millionth more", {.amount = 10}, [](auto& t) { t.setAmount(10.0000005); }, {.amount = 10}, Cache::Kept},
    {"half a millionth less", {.amount = 10}, [](auto& t) { t.setAmount(9.9999995); }, {.amount = 10}, Cache::Kept},
    {"exactly a millionth", {.amount = 0}, [](auto& t) { t.setAmount(0.000001); }, {.amount = 0}, Cache::Kept},
    {"two millionths", {.amount = 0}, [](auto& t) { t.setAmount(-0.000002); }, {.amount = -0.000002}, Cache::Dropped},
    {"a hundred-thousandth more",
     {.amount = 10},
     [](auto& t) { t.setAmount(10.00001); },
     {.amount = 10.00001},
     Cache::Dropped},
    {"the opposite amount", {.amount = 10}, [](auto& t) { t.setAmount(-10); }, {.amount = -10}, Cache::Dropped},
    {"an endless amount",
     {.amount = 10},
     [](auto& t) { t.setAmount(kInfinity); },
     {.amount = kInfinity},
     Cache::Dropped},
    {"an amount that is no number",
     {.amount = 10},
     [](auto& t) { t.setAmount(std::numeric_limits<double>::quiet_NaN()); },
     {.amount = 10},
     Cache::Kept},

    {"the same category", {.categoryID = 5}, [](auto& t) { t.setCategoryID(5); }, {.categoryID = 5}, Cache::Kept},
    {"another category",
     {.categoryID = 5},
     [](auto& t) { t.setCategoryID(4294967295U); },
     {.categoryID = 4294967295U},
     Cache::Dropped},
    {"the same set", {.setID = 5}, [](auto& t) { t.setTransactionSetID(5); }, {.setID = 5}, Cache::Kept},
    {"another set", {.setID = 5}, [](auto& t) { t.setTransactionSetID(6); }, {.setID = 6}, Cache::Dropped},
    {"the same tax flag", {.taxFlag = true}, [](auto& t) { t.setTaxFlag(true); }, {.taxFlag = true}, Cache::Kept},
    {"the tax flag off", {.taxFlag = true}, [](auto& t) { t.setTaxFlag(false); }, {}, Cache::Dropped},
    {"the tax flag on", {}, [](auto& t) { t.setTaxFlag(true); }, {.taxFlag = true}, Cache::Dropped},
    {"the same user flag", {}, [](auto& t) { t.setUserFlag(false); }, {}, Cache::Kept},
    {"the user flag on", {}, [](auto& t) { t.setUserFlag(true); }, {.userFlag = true}, Cache::Dropped},
    {"the user flag off", {.userFlag = true}, [](auto& t) { t.setUserFlag(false); }, {}, Cache::Dropped},
};

TEST(CVTransactionSetters, StoreWhatDiffersAndDropTheCachedTextOnlyThen) {
    for (const SetterRow& row : kSetterRows) {
        SCOPED_TRACE(row.what);
        const auto transaction = makeTransaction(row.before);
        expectFieldsOf(*transaction, row.before);
        CVTextArena arena;
        const CVTextSlice before = transaction->xmlRepresentation(arena);

        row.set(*transaction);

        expectFieldsOf(*transaction, row.after);
        const CVTextSlice after = transaction->xmlRepresentation(arena);
        const bool kept = before.block == after.block && before.offset == after.offset;
        EXPECT_EQ(kept, row.cache == Cache::Kept);
        EXPECT_EQ(after.bytes(), makeTransaction(row.after)->xmlRepresentation());
    }
}

TEST(CVTransactionSetters, AnnounceNothingAndLeaveOrderAndBoundsAlone) {
    BudgetBuilder budget;
    budget.category("Food", 12)
        .transaction({.date = day(2014, 3, 8), .category = "Food"})
        .transaction({.date = kDay, .category = "Food"})
        .inOrder();
    const auto first = budget.transactionAt(0);
    NotificationCounter counter(budget.notificationCenter());

    first->setEffectiveDate(day(2001, 1, 1));
    first->setAmount(5);
    first->setPayTo("p");
    first->setFor("f");
    first->setCategoryID(13);
    first->setTransactionSetID(1);
    first->setTaxFlag(true);
    first->setUserFlag(true);

    EXPECT_EQ(counter.total(), 0);
    EXPECT_EQ(budget.transactionAt(0), first);
    EXPECT_EQ(budget.document().earliestTransactionDate(), kDay);
    EXPECT_EQ(budget.document().latestTransactionDate(), day(2014, 3, 8));
}

TEST(CVTransactionSetters, KeepTheTextWhenOnlyTheDocumentChanges) {
    BudgetBuilder budget;
    const auto transaction = makeTransaction({.date = kDay});
    CVTextArena arena;
    const CVTextSlice before = transaction->xmlRepresentation(arena);
    transaction->setDocument(&budget.document());
    EXPECT_EQ(transaction->document(), &budget.document());
    EXPECT_EQ(transaction->xmlRepresentation(arena).block, before.block);
    EXPECT_EQ(transaction->xmlRepresentation(arena).offset, before.offset);
}

} // namespace
