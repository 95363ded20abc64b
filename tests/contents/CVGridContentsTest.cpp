#include "contents/CVGridContents.h"

#include "budget/CategoryIds.h"
#include "budget/RangePrinter.h"
#include "kit/BudgetBuilder.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Today is Wednesday 5 March 2014.
struct GridContents : testing::Test {
    GridContents() { budget.category(QStringLiteral("Food"), kFood).category(QStringLiteral("Car"), kCar); }

    GridContents& spend(std::optional<QBDate> date, double amount, quint32 categoryID = kFood) {
        budget.transaction({.date = date, .amount = amount, .categoryID = categoryID});
        return *this;
    }

    void show(int periodType) {
        contents.periods().setTimePeriod(periodType, {});
        contents.reload(budget.document().transactions(), budget.document().categories());
    }

    BudgetBuilder budget;
    CVGridContents contents{day(2014, 3, 5), CVDisplayPeriods::Week, {}};
};

TEST_F(GridContents, AreEmptyBeforeTheFirstReload) {
    EXPECT_TRUE(contents.isEmpty());
    EXPECT_THAT(contents.rows(), IsEmpty());
    EXPECT_THAT(contents.transactionsOfCell(0, 0), IsEmpty());
    EXPECT_EQ(contents.numberOfTransactions(nullptr, {day(2014, 1, 1), day(2014, 12, 31)}), 0U);
}

TEST_F(GridContents, TakeThreeColumnsOutForWeeksAndPutThemBackForDays) {
    show(CVDisplayPeriods::Day);
    EXPECT_THAT(contents.columns(), ElementsAre(1, 2, 3, 4, 5, 6, 7));
    for (const int type : {CVDisplayPeriods::Week, CVDisplayPeriods::TwoWeeks, CVDisplayPeriods::Month}) {
        show(type);
        EXPECT_THAT(contents.columns(), ElementsAre(1, 2, 3, 4)) << type;
        EXPECT_EQ(contents.grid().columns(), 4U);
    }
    show(CVDisplayPeriods::Day);
    EXPECT_THAT(contents.columns(), ElementsAre(1, 2, 3, 4, 5, 6, 7));
}

TEST_F(GridContents, ShowAChangeOfPeriodsAfterTheNextReload) {
    spend(day(2014, 3, 3), 1).spend(day(2014, 3, 10), 20).show(CVDisplayPeriods::Week);
    EXPECT_EQ(contents.grid().cell(0, 0), 1);
    contents.periods().next();
    EXPECT_EQ(contents.grid().cell(0, 0), 1);
    contents.reload(budget.document().transactions(), budget.document().categories());
    EXPECT_EQ(contents.grid().cell(0, 0), 20);
}

TEST_F(GridContents, CountTheLastDayOfAWeekInThatWeekAlone) {
    spend(day(2014, 3, 8), 1).show(CVDisplayPeriods::Week);
    EXPECT_EQ(contents.grid().cell(0, 0), 1);
    EXPECT_EQ(contents.grid().cell(0, 1), std::nullopt);
    EXPECT_EQ(contents.transactionsOfCell(0, 0).size(), 1U);
    EXPECT_THAT(contents.transactionsOfCell(0, 1), IsEmpty());
}

/// Rows: the days of a cell for each period type.
TEST_F(GridContents, FindTheTransactionsOfACellByItsPlaceInTheTable) {
    struct Row {
        int periodType;
        int column;
        CVDayRange range;
    };
    const std::array rows{Row{CVDisplayPeriods::Day, 0, {day(2014, 3, 2), day(2014, 3, 2)}},
                          Row{CVDisplayPeriods::Day, 6, {day(2014, 3, 8), day(2014, 3, 8)}},
                          Row{CVDisplayPeriods::Week, 0, {day(2014, 3, 2), day(2014, 3, 8)}},
                          Row{CVDisplayPeriods::Week, 3, {day(2014, 3, 23), day(2014, 3, 29)}},
                          Row{CVDisplayPeriods::TwoWeeks, 0, {day(2014, 2, 23), day(2014, 3, 8)}},
                          Row{CVDisplayPeriods::TwoWeeks, 3, {day(2014, 4, 6), day(2014, 4, 19)}},
                          Row{CVDisplayPeriods::Month, 0, {day(2014, 3, 1), day(2014, 3, 31)}},
                          Row{CVDisplayPeriods::Month, 3, {day(2014, 6, 1), day(2014, 6, 30)}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << "period type " << row.periodType << ", column " << row.column);
        budget.document().removeTransactions(CVTransactions(budget.document().transactions()));
        const auto& [start, end] = row.range;
        spend(start.dateByAddingYears(0, 0, -1), 1).spend(start, 2).spend(end, 3).spend(start, 4, kCar);
        spend(end.dateByAddingYears(0, 0, 1), 5).spend(std::nullopt, 6);
        show(row.periodType);
        EXPECT_EQ(contents.rangeOfColumn(row.column), row.range);
        std::vector<double> amounts;
        for (const auto& transaction : contents.transactionsOfCell(0, row.column))
            amounts.push_back(transaction->amount());
        EXPECT_THAT(amounts, ElementsAre(2, 3));
    }
}

TEST_F(GridContents, HaveNoTransactionsOutsideTheGrid) {
    spend(day(2014, 3, 3), 1).show(CVDisplayPeriods::Week);
    for (const auto& [row, column] : {std::pair{-1, 0}, {0, -1}, {2, 0}, {0, 4}})
        EXPECT_THAT(contents.transactionsOfCell(row, column), IsEmpty()) << row << ", " << column;
}

TEST_F(GridContents, FindTheTransactionsThatNetToAnEmptyCell) {
    spend(day(2014, 3, 3), 10).spend(day(2014, 3, 4), -10).show(CVDisplayPeriods::Week);
    EXPECT_EQ(contents.grid().cell(0, 0), std::nullopt);
    EXPECT_EQ(contents.transactionsOfCell(0, 0).size(), 2U);
}

TEST_F(GridContents, CountTheTransactionsBehindASum) {
    spend(day(2014, 3, 3), 1)
        .spend(day(2014, 3, 4), 2, kCar)
        .spend(day(2014, 3, 5), 3, 77)
        .show(CVDisplayPeriods::Week);
    const CVDayRange week = contents.rangeOfColumn(0);
    EXPECT_EQ(contents.numberOfTransactions(contents.rows()[0].get(), week), 1U);
    EXPECT_EQ(contents.numberOfTransactions(nullptr, week), 3U);
    EXPECT_EQ(contents.numberOfTransactions(nullptr, contents.rangeOfColumn(1)), 0U);
}

TEST_F(GridContents, AreEmptyOnlyWhenNoNumberShowsAnywhere) {
    show(CVDisplayPeriods::Week);
    EXPECT_TRUE(contents.isEmpty());
    spend(day(2014, 3, 3), 10).spend(day(2014, 3, 10), -10).spend(day(2014, 3, 3), -10, kCar);
    spend(day(2014, 3, 10), 10, kCar).show(CVDisplayPeriods::Week);
    EXPECT_EQ(contents.grid().columnTotal(0), std::nullopt);
    EXPECT_EQ(contents.grid().rowTotal(0), std::nullopt);
    EXPECT_FALSE(contents.isEmpty()) << "cells show, though all totals cancel out";
}

TEST_F(GridContents, AreNotEmptyWhenSmallAmountsShowInATotalAlone) {
    spend(day(2014, 3, 3), 0.004).spend(day(2014, 3, 10), 0.004).show(CVDisplayPeriods::Week);
    EXPECT_EQ(contents.grid().columnTotal(0), std::nullopt);
    EXPECT_EQ(contents.grid().rowTotal(0), 0.01);
    EXPECT_FALSE(contents.isEmpty());
}

TEST_F(GridContents, AreNotEmptyWhenOnlyUnknownCategoriesWereSpentOn) {
    spend(day(2014, 3, 3), 5, 77).show(CVDisplayPeriods::Week);
    EXPECT_FALSE(contents.isEmpty());
    contents.reload(budget.document().transactions(), {});
    EXPECT_TRUE(contents.isEmpty()) << "without rows there is no row of totals";
}

} // namespace
