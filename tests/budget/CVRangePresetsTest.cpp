#include "budget/CVRangePresets.h"

#include "budget/RangePrinter.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>

namespace {

using testing::Optional;

/// Presets on a document whose first and last transactions have given days.
struct PresetsOfABudget : testing::Test {
    void transactions(const std::optional<QBDate>& earliest, const std::optional<QBDate>& latest) {
        budget.document().setEarliestTransactionDate(earliest);
        budget.document().setLatestTransactionDate(latest);
    }

    [[nodiscard]] std::optional<CVDayRange> preset(int index, const QBDate& today) {
        clock.set(today);
        return rangeOfPreset(index, today, budget.document());
    }

    FixedToday clock{day(2014, 6, 10)};
    BudgetBuilder budget;
};

/// The range of each of the eight presets in plain code, for a budget with transactions.
CVDayRange oneByOne(int index, const QBDate& today, const CVDocument& document) {
    const QBDate earliest = *document.earliestTransactionDate();
    const QBDate latest = *document.latestTransactionDate();
    const qint64 y = today.yearOfCommonEra();
    const int m = today.monthOfYear();
    const int w = today.dayOfWeek();
    const auto clamped = [&earliest](const QBDate& start) { return start.comesBefore(earliest) ? earliest : start; };
    const auto verified = [&](const QBDate& end) {
        const QBDate limit = latest.comesAfter(today) ? latest : today;
        return end.comesAfter(limit) ? limit : end;
    };
    switch (index) {
    case 0:
        return {earliest, latest};
    case 1: {
        const QBDate start = clamped(day(y - 1, 1, 1));
        return {start, verified(start.dateByAddingYears(2, 0, -1))};
    }
    case 2: {
        const QBDate start = clamped(day(y - 1, 1, 1));
        return {start, start.dateByAddingYears(1, 0, -1)};
    }
    case 3: {
        const QBDate start = clamped(day(y, 1, 1));
        return {start, verified(start.dateByAddingYears(1, 0, -1))};
    }
    case 4: {
        const QBDate start = clamped(m == 1 ? day(y - 1, 12, 1) : day(y, m - 1, 1));
        return {start, start.dateByAddingYears(0, 1, -1)};
    }
    case 5: {
        const QBDate start = clamped(day(y, m, 1));
        return {start, verified(start.dateByAddingYears(0, 1, -1))};
    }
    case 6: {
        const QBDate start = clamped(daysLater(today, -(7 + w)));
        return {start, daysLater(start, 6)};
    }
    default: {
        const QBDate start = daysLater(today, -w);
        return {start, daysLater(start, 6)};
    }
    }
}

TEST_F(PresetsOfABudget, AreAsTabledOnEveryDayOfALeapYearAndACommonYear) {
    // Days near today, long ago and far ahead, so that each start and each end is clamped in one case and not in
    // another.
    constexpr std::array kDaysFromToday{-4000, -800, -420, -380, -200, -40, -20, -9, -4, -1, 0, 1, 3, 15, 40, 400, 900};
    for (QBDate today = day(2023, 1, 1); today.comesBefore(day(2025, 1, 1)); today = daysLater(today, 1)) {
        for (const int first : kDaysFromToday) {
            for (const int last : kDaysFromToday) {
                if (last < first)
                    continue;
                transactions(daysLater(today, first), daysLater(today, last));
                for (int index = 0; index < 8; ++index)
                    ASSERT_EQ(preset(index, today), oneByOne(index, today, budget.document()))
                        << "item " << index << " on " << testing::PrintToString(today) << ", transactions from "
                        << first << " to " << last << " days from then";
            }
        }
    }
}

TEST_F(PresetsOfABudget, OfThisYearEndTodayOrWithTheLastTransactionOrWithTheYear) {
    const QBDate tenthOfJune = day(2014, 6, 10);
    transactions(day(2010, 1, 1), day(2014, 5, 1));
    EXPECT_THAT(preset(3, tenthOfJune), Optional(CVDayRange{day(2014, 1, 1), tenthOfJune}));
    transactions(day(2010, 1, 1), day(2014, 8, 20));
    EXPECT_THAT(preset(3, tenthOfJune), Optional(CVDayRange{day(2014, 1, 1), day(2014, 8, 20)}));
    transactions(day(2010, 1, 1), day(2015, 2, 3));
    EXPECT_THAT(preset(3, tenthOfJune), Optional(CVDayRange{day(2014, 1, 1), day(2014, 12, 31)}));
}

TEST_F(PresetsOfABudget, OfBothYearsRunTwoYearsFromALaterFirstTransactionAndEndTodayOrWithTheLast) {
    transactions(day(2013, 3, 1), day(2014, 5, 1));
    EXPECT_THAT(preset(1, day(2014, 6, 10)), Optional(CVDayRange{day(2013, 3, 1), day(2014, 6, 10)}));
    transactions(day(2013, 3, 1), day(2014, 9, 9));
    EXPECT_THAT(preset(1, day(2014, 6, 10)), Optional(CVDayRange{day(2013, 3, 1), day(2014, 9, 9)}));
    transactions(day(2013, 3, 1), day(2016, 1, 1));
    EXPECT_THAT(preset(1, day(2014, 6, 10)), Optional(CVDayRange{day(2013, 3, 1), day(2015, 2, 28)}));
}

TEST_F(PresetsOfABudget, OfLastMonthAreDecemberInJanuary) {
    transactions(day(2010, 1, 1), day(2014, 5, 1));
    EXPECT_THAT(preset(4, day(2014, 1, 31)), Optional(CVDayRange{day(2013, 12, 1), day(2013, 12, 31)}));
    EXPECT_THAT(preset(4, day(2014, 3, 31)), Optional(CVDayRange{day(2014, 2, 1), day(2014, 2, 28)}));
}

TEST_F(PresetsOfABudget, AreMovedAndNotShortenedByALaterFirstTransaction) {
    transactions(day(2014, 5, 20), day(2014, 5, 25));
    EXPECT_THAT(preset(2, day(2014, 6, 10)), Optional(CVDayRange{day(2014, 5, 20), day(2015, 5, 19)}));
    EXPECT_THAT(preset(4, day(2014, 6, 10)), Optional(CVDayRange{day(2014, 5, 20), day(2014, 6, 19)}));
    // A whole range can lie after today.
    transactions(day(2014, 7, 1), day(2014, 7, 1));
    EXPECT_THAT(preset(6, day(2014, 6, 10)), Optional(CVDayRange{day(2014, 7, 1), day(2014, 7, 7)}));
    EXPECT_THAT(preset(7, day(2014, 6, 10)), Optional(CVDayRange{day(2014, 6, 8), day(2014, 6, 14)}));
}

TEST_F(PresetsOfABudget, OutsideTheEightItemsAreNone) {
    transactions(day(2010, 1, 1), day(2014, 5, 1));
    for (const int index : {-1, 8, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(preset(index, day(2014, 6, 10)), std::nullopt) << index;
}

TEST_F(PresetsOfABudget, WithoutTransactionsAreNotHeldBackAtTheStart) {
    const QBDate today = day(2014, 6, 10);
    EXPECT_THAT(preset(0, today), Optional(CVDayRange{today, today}));
    EXPECT_THAT(preset(1, today), Optional(CVDayRange{day(2013, 1, 1), today}));
    EXPECT_THAT(preset(2, today), Optional(CVDayRange{day(2013, 1, 1), day(2013, 12, 31)}));
    EXPECT_THAT(preset(3, today), Optional(CVDayRange{day(2014, 1, 1), today}));
    EXPECT_THAT(preset(4, today), Optional(CVDayRange{day(2014, 5, 1), day(2014, 5, 31)}));
    EXPECT_THAT(preset(5, today), Optional(CVDayRange{day(2014, 6, 1), today}));
    EXPECT_THAT(preset(6, today), Optional(CVDayRange{day(2014, 6, 1), day(2014, 6, 7)}));
    EXPECT_THAT(preset(7, today), Optional(CVDayRange{day(2014, 6, 8), day(2014, 6, 14)}));
}

TEST_F(PresetsOfABudget, StartByTheDayOfTheWindowButEndByTheDayOfTheClock) {
    transactions(day(2010, 1, 1), day(2014, 5, 1));
    const QBDate opened = day(2014, 6, 10);
    clock.set(day(2014, 7, 4));
    EXPECT_THAT(rangeOfPreset(3, opened, budget.document()), Optional(CVDayRange{day(2014, 1, 1), day(2014, 7, 4)}));
    EXPECT_THAT(rangeOfPreset(5, opened, budget.document()), Optional(CVDayRange{day(2014, 6, 1), day(2014, 6, 30)}));
    EXPECT_THAT(rangeOfPreset(7, opened, budget.document()), Optional(CVDayRange{day(2014, 6, 8), day(2014, 6, 14)}));
}

TEST_F(PresetsOfABudget, AreWhatTheTransactionsOfTheDocumentMakeThem) {
    budget.transaction({.date = day(2014, 2, 3)}).transaction({.date = day(2014, 8, 20)}).inOrder();
    EXPECT_THAT(preset(0, day(2014, 6, 10)), Optional(CVDayRange{day(2014, 2, 3), day(2014, 8, 20)}));
    EXPECT_THAT(preset(3, day(2014, 6, 10)), Optional(CVDayRange{day(2014, 2, 3), day(2014, 8, 20)}));
}

TEST_F(PresetsOfABudget, HoldBackEnteredEndsAfterTodayAndTheLastTransaction) {
    clock.set(day(2014, 6, 10));
    EXPECT_EQ(latestSelectableDate(budget.document()), day(2014, 6, 10));
    transactions(day(2010, 1, 1), day(2014, 6, 9));
    EXPECT_EQ(verifyEndDate(day(2014, 6, 10), budget.document()), day(2014, 6, 10));
    EXPECT_EQ(verifyEndDate(day(2014, 6, 11), budget.document()), day(2014, 6, 10));
    transactions(day(2010, 1, 1), day(2014, 6, 12));
    EXPECT_EQ(verifyEndDate(day(2014, 6, 11), budget.document()), day(2014, 6, 11));
    EXPECT_EQ(verifyEndDate(day(2014, 6, 13), budget.document()), day(2014, 6, 12));
    EXPECT_EQ(latestSelectableDate(budget.document()), day(2014, 6, 12));
    clock.set(day(2014, 6, 14));
    EXPECT_EQ(verifyEndDate(day(2014, 6, 13), budget.document()), day(2014, 6, 13));
}

TEST_F(PresetsOfABudget, HoldBackEnteredStartsBeforeTheFirstTransaction) {
    EXPECT_EQ(verifyStartDate(day(1900, 1, 1), budget.document()), day(1900, 1, 1));
    transactions(day(2010, 1, 2), day(2014, 6, 12));
    EXPECT_EQ(verifyStartDate(day(2010, 1, 1), budget.document()), day(2010, 1, 2));
    EXPECT_EQ(verifyStartDate(day(2010, 1, 3), budget.document()), day(2010, 1, 3));
}

} // namespace
