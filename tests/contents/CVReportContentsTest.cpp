#include "contents/CVReportContents.h"

#include "budget/RangePrinter.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"

#include <gtest/gtest.h>

namespace {

/// Today is 10 June 2014; the transactions begin on 1 February.
struct ReportContents : testing::Test {
    ReportContents() {
        budget.category(QStringLiteral("Food"), 1).category(QStringLiteral("Car"), 2);
        budget.transaction({.date = day(2014, 2, 1), .amount = 10, .categoryID = 1})
            .transaction({.date = day(2014, 5, 1), .amount = 20, .categoryID = 1})
            .transaction({.date = day(2014, 5, 2), .amount = 30, .categoryID = 2})
            .transaction({.date = day(2014, 5, 3), .amount = 40, .categoryID = 77})
            .inOrder();
    }

    void reload() { contents.reload(budget.document().transactions(), budget.document().categories()); }

    FixedToday today{day(2014, 6, 10)};
    BudgetBuilder budget;
    CVReportContents contents{day(2014, 6, 10)};
};

TEST_F(ReportContents, BeginWithNothing) {
    EXPECT_EQ(contents.range(), (CVDayRange{day(2014, 6, 10), day(2014, 6, 10)}));
    EXPECT_EQ(contents.reportPeriod(), 0);
    EXPECT_TRUE(contents.rows().empty());
    EXPECT_EQ(contents.numberOfTransactions(), 0U);
    EXPECT_EQ(contents.totalNumberOfTransactions(), 0U);
}

TEST_F(ReportContents, TakeTheRangeOfThePreset) {
    contents.setReportPeriod(3);
    contents.setRangeFromPreset(day(2014, 6, 10), budget.document());
    EXPECT_EQ(contents.range(), (CVDayRange{day(2014, 2, 1), day(2014, 6, 10)}));
    contents.setReportPeriod(4);
    contents.setRangeFromPreset(day(2014, 6, 10), budget.document());
    EXPECT_EQ(contents.range(), (CVDayRange{day(2014, 5, 1), day(2014, 5, 31)}));
}

TEST_F(ReportContents, KeepTheRangeForANumberThatIsNoPreset) {
    const CVDayRange range{day(2014, 5, 1), day(2014, 5, 2)};
    contents.setRange(range);
    for (const int preset : {-1, 8, 99}) {
        contents.setReportPeriod(preset);
        contents.setRangeFromPreset(day(2014, 6, 10), budget.document());
        EXPECT_EQ(contents.range(), range);
        EXPECT_EQ(contents.reportPeriod(), preset);
    }
}

TEST_F(ReportContents, CountTheRowsTransactionsInTheRangeAndAllOfThem) {
    contents.setRange({day(2014, 5, 1), day(2014, 5, 31)});
    reload();
    EXPECT_EQ(contents.numberOfTransactions(), 2U);
    EXPECT_EQ(contents.totalNumberOfTransactions(), 4U);
}

TEST_F(ReportContents, ShowAnotherRangeAfterTheNextReload) {
    contents.setRange({day(2014, 5, 1), day(2014, 5, 31)});
    reload();
    const CVCategory& food = *budget.categoryNamed(QStringLiteral("Food"));
    EXPECT_EQ(food.total(), 20);
    contents.setRange({day(2014, 2, 1), day(2014, 5, 31)});
    EXPECT_EQ(contents.numberOfTransactions(), 2U);
    EXPECT_EQ(food.total(), 20);
    reload();
    EXPECT_EQ(contents.numberOfTransactions(), 3U);
    EXPECT_EQ(food.total(), 30);
}

TEST_F(ReportContents, OfARangeWithoutSpendingAreMonthlyZeros) {
    contents.setRange({day(2013, 1, 1), day(2013, 12, 31)});
    reload();
    for (const auto& category : contents.rows()) {
        EXPECT_EQ(category->billFrequency(), QStringLiteral("Monthly"));
        for (const double figure : {category->total(), category->weekly(), category->biWeekly(), category->monthly(),
                                    contents.figures().percent(*category)})
            EXPECT_EQ(figure, 0);
    }
}

} // namespace
