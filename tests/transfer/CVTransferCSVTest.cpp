#include "transfer/CVTransferCSV.h"

#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* kRowOfHeader = "Date,Amount,Category,Paid To,For,Tax,Flagged,Set\r\n";

QByteArray csvOf(BudgetBuilder& budget) {
    return CVTransferCSV(budget.document(), budget.document().transactions()).value();
}

TEST(CVTransferCSV, WritesAHeaderAndARowForEachTransactionInTheirOrder) {
    BudgetBuilder budget;
    EXPECT_EQ(csvOf(budget), kRowOfHeader);
    budget.set("Checking", 5).set("Savings", 6).category("Food", 1).category("Zoë", 2);
    budget
        .transaction({.date = day(2014, 3, 7),
                      .amount = 12.5,
                      .payTo = "Market",
                      .category = "Food",
                      .set = "Savings",
                      .taxFlag = true})
        .transaction({.date = day(2014, 3, 9),
                      .amount = -1234.5,
                      .payTo = "Bäcker",
                      .xfor = "Brot",
                      .category = "Zoë",
                      .set = "Checking",
                      .userFlag = true});
    EXPECT_EQ(csvOf(budget), QByteArray(kRowOfHeader) + "2014-03-07,12.5,Food,Market,,yes,,Savings\r\n"
                                                        "2014-03-09,-1234.5,Zoë,Bäcker,Brot,,yes,Checking\r\n");
}

TEST(CVTransferCSV, LeavesEmptyWhatIsMissing) {
    BudgetBuilder budget;
    budget.set("Checking", 5).category("Food", 1);
    budget.transaction({.payTo = {}, .xfor = {}, .categoryID = 9, .setID = 9});
    EXPECT_EQ(csvOf(budget), QByteArray(kRowOfHeader) + ",0,,,,,,\r\n");
}

TEST(CVTransferCSV, QuotesTheTextsThatNeedIt) {
    struct Row {
        const char* text;
        const char* cell;
    };
    for (const Row& row : {Row{"a,b", "\"a,b\""},
                           {"say \"x\"", "\"say \"\"x\"\"\""},
                           {"two\nlines", "\"two\nlines\""},
                           {"\"", "\"\"\"\""},
                           {" blanks ", " blanks "},
                           {"a\tb;c|d", "a\tb;c|d"},
                           {"=1+1", "=1+1"}}) {
        BudgetBuilder budget;
        budget.transaction({.payTo = row.text});
        EXPECT_EQ(csvOf(budget), QByteArray(kRowOfHeader) + ",0,," + row.cell + ",,,,\r\n");
    }
    BudgetBuilder budget;
    budget.category("a,b", 1).set("c\"d", 2).transaction({.xfor = "e\nf", .categoryID = 1, .setID = 2});
    EXPECT_EQ(csvOf(budget), QByteArray(kRowOfHeader) + ",0,\"a,b\",,\"e\nf\",,,\"c\"\"d\"\r\n");
}

TEST(CVTransferCSV, CanBeGivenUpHalfway) {
    BudgetBuilder budget;
    for (int i = 0; i < 10'000; ++i)
        budget.transaction({.amount = 1});
    const CVTransactions& rows = budget.document().transactions();
    std::size_t reports = 0;
    EXPECT_FALSE(CVTransferCSV(budget.document(), rows, [&reports](std::size_t) { return ++reports < 2; }));
    EXPECT_EQ(reports, 2U);
    EXPECT_TRUE(CVTransferCSV(budget.document(), rows, [](std::size_t) { return true; }));
}

} // namespace
