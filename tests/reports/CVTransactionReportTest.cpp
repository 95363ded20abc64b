#include "kit/BudgetBuilder.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "reports/CVReport.h"

#include <gtest/gtest.h>

namespace {

/// Today is 7 March 2014.
struct TransactionReport : testing::Test {
    [[nodiscard]] std::unique_ptr<const CVReport> report() {
        return CVReport::initWithTransactions(budget.document().transactions());
    }

    FixedToday today{day(2014, 3, 7)};
    BudgetBuilder budget;
};

TEST_F(TransactionReport, HasATitleWithTodayAndTheTotalBehindTwoBlanks) {
    budget.transaction({.amount = 1234}).transaction({.amount = 0.5});
    EXPECT_EQ(report()->title(), "Transaction Report for: 3/7/14  Total=$1,234.50");
}

TEST_F(TransactionReport, AddsTheTotalUpWithoutRoundingAndRoundsItOnce) {
    for (int i = 0; i < 3; ++i)
        budget.transaction({.amount = 0.005});
    EXPECT_EQ(report()->title(), "Transaction Report for: 3/7/14  Total=$0.02");
}

TEST_F(TransactionReport, HasALineForEachTransactionInTheirOrder) {
    budget.category("Food", 4)
        .transaction(
            {.date = day(2014, 3, 1), .amount = 1234.5, .payTo = "Market", .xfor = "bread", .category = "Food"})
        .transaction({.date = day(2014, 3, 2), .amount = -7, .payTo = "Baker", .categoryID = 99, .taxFlag = true});
    const auto made = report();
    ASSERT_EQ(made->lineCount(), 2U);
    EXPECT_EQ(made->arrayCount(), 2U);
    EXPECT_EQ(made->labels(), (QStringList{"#", "Date", "Amount", "Paid To", "For", "Category"}));
    EXPECT_EQ(made->line(0).texts, (QStringList{"1", "3/1/14", "$1,234.50", "Market", "bread", "Food"}));
    EXPECT_FALSE(made->line(0).isTaxed);
    EXPECT_EQ(made->line(1).texts, (QStringList{"2", "3/2/14", "-$7.00", "Baker", "", ""}));
    EXPECT_TRUE(made->line(1).isTaxed);
}

TEST_F(TransactionReport, LeavesOutADateThatIsMissing) {
    budget.transaction({.amount = 1, .payTo = QString(), .xfor = QString()});
    EXPECT_EQ(report()->line(0).texts, (QStringList{"1", "", "$1.00", "", "", ""}));
}

TEST_F(TransactionReport, PutsATextOnOneLine) {
    budget.transaction({.payTo = "two\nlines\tand\u2028more"});
    EXPECT_EQ(report()->line(0).texts[3], "two lines and more");
}

TEST_F(TransactionReport, NumbersLinesWithoutMarks) {
    const auto transaction = makeTransaction({.amount = 1});
    const auto made = CVReport::initWithTransactions(CVTransactions(1234, transaction));
    EXPECT_EQ(made->line(1233).texts[0], "1234");
}

TEST_F(TransactionReport, SpeaksTheFormatsOfTheLocale) {
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    budget.transaction({.date = day(2014, 3, 1), .amount = 1234.5});
    EXPECT_EQ(report()->title(), "Transaction Report for: 07.03.14  Total=€1.234,50");
    EXPECT_EQ(report()->line(0).texts.mid(1, 2), (QStringList{"01.03.14", "€1.234,50"}));
}

TEST_F(TransactionReport, KeepsItsTransactionsAlive) {
    budget.transaction({.amount = 3, .payTo = "Market"});
    const auto made = report();
    budget.document().removeTransaction(budget.transactionAt(0));
    EXPECT_EQ(made->line(0).texts[3], "Market");
}

TEST(CVReport, CountsPagesFromOne) {
    EXPECT_EQ(CVReport::pageText(1), "Page 1");
    EXPECT_EQ(CVReport::pageText(2041), "Page 2041");
}

} // namespace
