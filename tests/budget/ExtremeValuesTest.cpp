#include "budget/BudgetEquality.h"
#include "budget/CVBudgetGrid.h"
#include "budget/CVCategorySlots.h"
#include "budget/CVDisplayPeriods.h"
#include "budget/CVRangePresets.h"
#include "budget/CVReportFigures.h"
#include "budget/CategoryIds.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargestAmount = std::numeric_limits<double>::max();

CVBudgetGrid gridOf(BudgetBuilder& budget, const CVDayRange& range) {
    const auto ids = CVIDsOfCategories(budget.document().categories());
    return {budget.document().transactions(), ids, std::array{range}, range};
}

TEST(ExtremeValues, OfAmountsGiveInfiniteSumsOrNoNumberAndCountAllTheSame) {
    BudgetBuilder budget;
    const CVDayRange range{day(2014, 1, 1), day(2014, 12, 31)};
    budget.category(QStringLiteral("Food"), kFood, CVExpenseFrequency::kMonthly, 1)
        .category(QStringLiteral("Car"), kCar, CVExpenseFrequency::kMonthly, 1)
        .category(QStringLiteral("Home"), 3, CVExpenseFrequency::kMonthly, 1)
        .transaction({.date = day(2014, 1, 1), .amount = kLargestAmount, .categoryID = kFood, .taxFlag = true})
        .transaction({.date = day(2014, 6, 1), .amount = kLargestAmount, .categoryID = kFood, .taxFlag = true})
        .transaction({.date = day(2014, 1, 1), .amount = kInfinity, .categoryID = kCar})
        .transaction({.date = day(2014, 6, 1), .amount = -kInfinity, .categoryID = kCar})
        .transaction({.date = day(2014, 6, 1), .amount = 1, .categoryID = 3});
    const CVBudgetGrid grid = gridOf(budget, range);
    EXPECT_EQ(grid.cell(0, 0), kInfinity);
    // NaN is not above zero.
    EXPECT_EQ(grid.cell(1, 0), std::nullopt);
    EXPECT_EQ(grid.columnTotal(0), std::nullopt);
    EXPECT_EQ(grid.cell(2, 0), 1);

    const CVReportFigures figures(budget.document().transactions(), budget.document().categories(), range);
    const CVCategory& food = *budget.categoryNamed(QStringLiteral("Food"));
    const CVCategory& car = *budget.categoryNamed(QStringLiteral("Car"));
    EXPECT_EQ(figures.numberOfTransactions(), 5U);
    EXPECT_EQ(food.total(), kInfinity);
    EXPECT_EQ(food.monthly(), kInfinity);
    EXPECT_EQ(figures.average(food), kInfinity);
    EXPECT_EQ(figures.difference(food), -kInfinity);
    EXPECT_EQ(figures.taxAmount(food), kInfinity);
    EXPECT_TRUE(targetIsBelowMonthlyAverage(food));
    EXPECT_TRUE(std::isnan(car.total()));
    EXPECT_TRUE(std::isnan(car.monthly()));
    EXPECT_TRUE(std::isnan(figures.percent(car)));
    EXPECT_EQ(car.numberOfTransactions(), 2U);
    EXPECT_EQ(car.billFrequency(), QStringLiteral("Semi-Annually"));
    EXPECT_FALSE(targetIsBelowMonthlyAverage(car));
    expectFiguresAsPlain(budget.document(), range);
}

TEST(ExtremeValues, OfATargetAreNoObstacle) {
    BudgetBuilder budget;
    const CVDayRange range{day(2014, 1, 1), day(2014, 1, 31)};
    budget.category(QStringLiteral("Food"), kFood, CVExpenseFrequency::kMonthly)
        .transaction({.date = day(2014, 1, 1), .amount = 1, .categoryID = kFood});
    CVCategory& food = *budget.categoryNamed(QStringLiteral("Food"));
    const CVReportFigures figures(budget.document().transactions(), budget.document().categories(), range);
    food.setExpenseTarget(kInfinity);
    EXPECT_EQ(figures.difference(food), kInfinity);
    EXPECT_FALSE(targetIsBelowMonthlyAverage(food));
    food.setExpenseTarget(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(std::isnan(figures.difference(food)));
    EXPECT_FALSE(targetIsBelowMonthlyAverage(food));
}

TEST(ExtremeValues, OfYearsAreDaysLikeAllOthers) {
    for (const QBDate& today : {day(0, 1, 1), day(0, 2, 29), day(-1, 12, 31), day(10000, 1, 1), day(9999, 12, 31)}) {
        SCOPED_TRACE(testing::PrintToString(today));
        const FixedToday clock(today);
        BudgetBuilder budget;
        budget.category(QStringLiteral("Food"), kFood)
            .transaction({.date = today, .amount = 1, .categoryID = kFood})
            .transaction({.date = today.dateByAddingYears(0, 0, -1), .amount = 10, .categoryID = kFood})
            .inOrder();
        for (int type = 0; type < CVDisplayPeriods::kTypes; ++type) {
            const CVDisplayPeriods periods(type, today, {today.dayOfWeek(), 0});
            ASSERT_TRUE(periods.displayRange().contains(today)) << type;
            EXPECT_GE(gridOf(budget, periods.displayRange()).rowTotal(0).value_or(0), 1) << type;
        }
        for (int index = 0; index < 8; ++index) {
            const auto range = rangeOfPreset(index, today, budget.document());
            ASSERT_TRUE(range);
            EXPECT_LE(range->start, range->end) << index;
            expectFiguresAsPlain(budget.document(), *range);
        }
    }
}

TEST(ExtremeValues, OfRangesSpanMillionsOfYears) {
    BudgetBuilder budget;
    const CVDayRange range{day(-100'000'000, 1, 1), day(100'000'000, 12, 31)};
    budget.category(QStringLiteral("Food"), kFood, CVExpenseFrequency::kAnnually)
        .transaction({.date = range.start, .amount = 1e9, .categoryID = kFood})
        .transaction({.date = range.end, .amount = 1e9, .categoryID = kFood});
    expectFiguresAsPlain(budget.document(), range);
    const CVCategory& food = *budget.categoryNamed(QStringLiteral("Food"));
    EXPECT_EQ(food.billFrequency(), QStringLiteral("Yearly"));
    const CVReportFigures figures(budget.document().transactions(), budget.document().categories(), range);
    EXPECT_EQ(figures.average(food), 10);
}

TEST(ExtremeValues, OfEmptyBudgetsAreNoNumbers) {
    BudgetBuilder budget;
    const CVDayRange range{day(2014, 1, 1), day(2014, 1, 31)};
    const CVBudgetGrid grid = gridOf(budget, range);
    EXPECT_EQ(grid.rows(), 0U);
    EXPECT_EQ(grid.columnTotal(0), std::nullopt);
    const CVReportFigures figures(budget.document().transactions(), budget.document().categories(), range);
    EXPECT_EQ(figures.numberOfTransactions(), 0U);
    budget.category(QStringLiteral("Food"), kFood);
    const CVCategory& food = *budget.categoryNamed(QStringLiteral("Food"));
    EXPECT_EQ(gridOf(budget, range).cell(0, 0), std::nullopt);
    // The category was added after the figures were computed.
    EXPECT_EQ(figures.average(food), 0);
    EXPECT_EQ(figures.taxItems(food), 0U);
    EXPECT_EQ(figures.percent(food), 0);
}

TEST(ExtremeValues, OfAFrequencyLeaveTheOtherFiguresAlone) {
    BudgetBuilder budget;
    const CVDayRange range{day(2014, 1, 1), day(2014, 1, 31)};
    budget.category(QStringLiteral("Food"), kFood, CVExpenseFrequency::kUnknown, 40)
        .transaction({.date = day(2014, 1, 1), .amount = 50, .categoryID = kFood});
    const CVReportFigures figures(budget.document().transactions(), budget.document().categories(), range);
    const CVCategory& food = *budget.categoryNamed(QStringLiteral("Food"));
    EXPECT_EQ(food.total(), 50);
    EXPECT_EQ(food.monthly(), 50);
    EXPECT_EQ(figures.average(food), 0);
    EXPECT_EQ(figures.difference(food), 40);
    EXPECT_EQ(figures.percent(food), 100);
    EXPECT_FALSE(targetIsBelowMonthlyAverage(food));
}

} // namespace
