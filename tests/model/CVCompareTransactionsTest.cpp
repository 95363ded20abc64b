#include "model/CVCompareTransactions.h"

#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Entry = BudgetBuilder::Entry;

enum Category : quint32 { kAuto = 1, kFood, kFoodInCapitals, kZoo, kUnnamed, kMissing };

struct ComparedRow {
    const char* key = nullptr;
    Entry a;
    Entry b;
    int ascending = 0;
};

const QString kNoName;

const ComparedRow kCompared[]{
    {"date", {.date = day(2014, 3, 8)}, {.date = day(2014, 3, 7)}, 1},
    {"date", {.date = day(2014, 3, 7), .categoryID = kZoo}, {.date = day(2014, 3, 8), .categoryID = kAuto}, -1},
    {"date", {.date = day(2014, 3, 7), .categoryID = kFood}, {.date = day(2014, 3, 7), .categoryID = kAuto}, 1},
    {"date", {.date = day(2014, 3, 7), .categoryID = kFood}, {.date = day(2014, 3, 7), .categoryID = kFood}, 0},
    {"date",
     {.date = day(2014, 3, 7), .categoryID = kFood},
     {.date = day(2014, 3, 7), .categoryID = kFoodInCapitals},
     0},
    {"date", {.date = day(2014, 3, 7), .categoryID = kFood}, {.date = day(2014, 3, 7), .categoryID = kMissing}, 0},
    {"date", {.date = day(2014, 3, 7), .categoryID = kUnnamed}, {.date = day(2014, 3, 7), .categoryID = kZoo}, 0},
    {"date",
     {.date = day(2014, 3, 7), .amount = 1, .payTo = "z"},
     {.date = day(2014, 3, 7), .amount = 2, .payTo = "a"},
     0},
    // A missing date is older than all others.
    {"date", {}, {.date = day(-5000, 1, 1)}, -1},
    {"date", {.categoryID = kAuto}, {.categoryID = kFood}, -1},

    {"amount", {.amount = 1}, {.amount = -2}, 1},
    {"amount", {.amount = -1}, {.amount = 0}, -1},
    {"amount", {.amount = 5, .categoryID = kAuto}, {.amount = 5, .categoryID = kFood}, 0},
    {"amount", {.amount = 5.0000001}, {.amount = 5}, 1},

    {"tofrom", {.payTo = "b"}, {.payTo = "A"}, 1},
    {"tofrom", {.payTo = "a"}, {.payTo = "B"}, -1},
    {"tofrom", {.payTo = "MÜLLER"}, {.payTo = "Müller"}, 0},
    {"tofrom", {.payTo = "a", .xfor = "z"}, {.payTo = "a", .xfor = "b"}, 0},
    {"tofrom", {.payTo = ""}, {.payTo = "a"}, -1},
    {"tofrom", {.payTo = kNoName}, {.payTo = "a"}, 0},
    {"tofrom", {.payTo = "a"}, {.payTo = kNoName}, 0},

    {"for", {.xfor = "b"}, {.xfor = "A"}, 1},
    {"for", {.xfor = "a"}, {.xfor = "B"}, -1},
    {"for", {.payTo = "z", .xfor = "x"}, {.payTo = "a", .xfor = "X"}, 0},
    {"for", {.xfor = kNoName}, {.xfor = "a"}, 0},
    {"for", {.xfor = "a"}, {.xfor = kNoName}, 0},

    {"category", {.categoryID = kZoo}, {.categoryID = kFood}, 1},
    {"category", {.categoryID = kAuto}, {.categoryID = kFood}, -1},
    {"category", {.date = day(2014, 3, 8), .categoryID = kFood}, {.date = day(2014, 3, 7), .categoryID = kFood}, 0},
    {"category", {.categoryID = kFood}, {.categoryID = kFoodInCapitals}, 0},
    {"category", {.categoryID = kMissing}, {.categoryID = kFood}, 0},
    {"category", {.categoryID = kFood}, {.categoryID = kUnnamed}, 0},
    {"category", {.categoryID = kMissing}, {.categoryID = kMissing}, 0},

    {"Date", {.date = day(2014, 3, 8)}, {.date = day(2014, 3, 7)}, 0},
    {"dates", {.date = day(2014, 3, 8)}, {.date = day(2014, 3, 7)}, 0},
    {"payto", {.payTo = "a"}, {.payTo = "b"}, 0},
    {"", {.date = day(2014, 3, 8), .amount = 1}, {.date = day(2014, 3, 7), .amount = 2}, 0},
};

BudgetBuilder& withCategories(BudgetBuilder& budget) {
    return budget.category("Auto", kAuto)
        .category("food", kFood)
        .category("FOOD", kFoodInCapitals)
        .category("Zoo", kZoo)
        .category(kNoName, kUnnamed);
}

TEST(CVCompareTransactions, OrdersByTheKeyAndTheOtherWayRoundWhenDescending) {
    for (const ComparedRow& row : kCompared) {
        BudgetBuilder budget;
        withCategories(budget).transaction(row.a).transaction(row.b);
        const CVTransaction& a = *budget.transactionAt(0);
        const CVTransaction& b = *budget.transactionAt(1);
        const QString key = QString::fromLatin1(row.key);
        SCOPED_TRACE(testing::Message() << "row " << &row - kCompared << ", key " << row.key);
        EXPECT_EQ(CVCompareTransactions(a, b, {key, false}), row.ascending);
        EXPECT_EQ(CVCompareTransactions(a, b, {key, true}), -row.ascending);
        EXPECT_EQ(CVCompareTransactions(b, a, {key, false}), -row.ascending);
        EXPECT_EQ(CVCompareTransactions(b, a, {key, true}), row.ascending);
        EXPECT_EQ(CVCompareTransactions(a, a, {key, false}), 0);
    }
}

TEST(CVCompareTransactions, OrdersNothingWithoutAKey) {
    EXPECT_EQ(CVCompareTransactions(*makeTransaction({.amount = 1}), *makeTransaction({.amount = 2}), {}), 0);
}

TEST(CVCompareTransactions, PutsAutoBeforeFoodWithinADayAndAfterItWhenDescending) {
    BudgetBuilder budget;
    withCategories(budget)
        .transaction({.date = day(2014, 3, 7), .categoryID = kFood})
        .transaction({.date = day(2014, 3, 7), .categoryID = kAuto});
    auto transactions = budget.document().transactions();
    for (const bool descending : {false, true}) {
        std::stable_sort(transactions.begin(), transactions.end(), [descending](const auto& a, const auto& b) {
            return CVCompareTransactions(*a, *b, {"date", descending}) < 0;
        });
        EXPECT_EQ(transactions.front()->categoryName(), descending ? "food" : "Auto");
    }
}

TEST(CVCompareTexts, IgnoresCaseAndTakesANullTextForEqual) {
    EXPECT_EQ(CVCompareTexts("a", "B"), -1);
    EXPECT_EQ(CVCompareTexts("B", "a"), 1);
    EXPECT_EQ(CVCompareTexts("abc", "ABC"), 0);
    EXPECT_EQ(CVCompareTexts("ab", "abc"), -1);
    EXPECT_EQ(CVCompareTexts("ÄRGER", "ärger"), 0);
    EXPECT_EQ(CVCompareTexts(kNoName, "a"), 0);
    EXPECT_EQ(CVCompareTexts("a", kNoName), 0);
    EXPECT_EQ(CVCompareTexts(kNoName, kNoName), 0);
    EXPECT_EQ(CVCompareTexts(QLatin1String(""), "a"), -1);
}

} // namespace
