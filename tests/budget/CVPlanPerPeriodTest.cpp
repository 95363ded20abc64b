#include "budget/CVPlanPerPeriod.h"

#include "budget/CVDisplayPeriods.h"
#include "budget/CVLabelOfFrequency.h"
#include "kit/Printers.h"
#include "model/CVCategory.h"

#include <gtest/gtest.h>

#include <array>

namespace {

std::optional<double> plan(qint64 frequency, double target, int periodType) {
    CVCategory category;
    category.setExpenseFrequency(frequency);
    category.setExpenseTarget(target);
    return planPerPeriod(category, periodType);
}

TEST(CVPlanPerPeriod, ConvertsTheEstimateToEveryTypeOfPeriod) {
    struct Row {
        qint64 frequency;
        double target;
        /// The plans per day, week, two weeks and month.
        std::array<double, CVDisplayPeriods::kTypes> plans;
    };
    constexpr std::array kRows{Row{CVExpenseFrequency::kWeekly, 70, {10, 70, 140, 303.33}},
                               Row{CVExpenseFrequency::kBiWeekly, 140, {10, 70, 140, 303.33}},
                               Row{CVExpenseFrequency::kSemiMonthly, 26, {1.71, 12, 24, 52}},
                               Row{CVExpenseFrequency::kMonthly, 52, {1.71, 12, 24, 52}},
                               Row{CVExpenseFrequency::kBiMonthly, 104, {1.71, 12, 24, 52}},
                               Row{CVExpenseFrequency::kQuarterly, 156, {1.71, 12, 24, 52}},
                               Row{CVExpenseFrequency::kSemiAnnually, 312, {1.71, 12, 24, 52}},
                               Row{CVExpenseFrequency::kAnnually, 624, {1.71, 12, 24, 52}}};
    for (const Row& row : kRows) {
        for (int type = 0; type < CVDisplayPeriods::kTypes; ++type)
            EXPECT_EQ(plan(row.frequency, row.target, type), row.plans[static_cast<std::size_t>(type)])
                << "frequency " << row.frequency << ", period type " << type;
    }
}

TEST(CVPlanPerPeriod, KeepsTheSignOfTheEstimate) {
    EXPECT_EQ(plan(CVExpenseFrequency::kWeekly, -70, CVDisplayPeriods::Day), -10);
}

TEST(CVPlanPerPeriod, IsAbsentWithoutAnEstimateOrWithAnUnknownFrequencyOrType) {
    EXPECT_EQ(plan(CVExpenseFrequency::kWeekly, 0, CVDisplayPeriods::Week), std::nullopt);
    for (const qint64 frequency : {CVExpenseFrequency::kUnknown, qint64(8)})
        EXPECT_EQ(plan(frequency, 70, CVDisplayPeriods::Week), std::nullopt) << frequency;
    for (const int type : {-1, CVDisplayPeriods::kTypes})
        EXPECT_EQ(plan(CVExpenseFrequency::kWeekly, 70, type), std::nullopt) << type;
}

TEST(CVPlanPerPeriod, LeavesTheCategoryAsItIs) {
    CVCategory category;
    category.setExpenseFrequency(CVExpenseFrequency::kAnnually);
    category.setExpenseTarget(624);
    EXPECT_EQ(planPerPeriod(category, CVDisplayPeriods::Week), 12);
    EXPECT_EQ(category.expenseTarget(), 624);
    EXPECT_EQ(category.expenseFrequency(), CVExpenseFrequency::kAnnually);
}

TEST(CVLabelOfFrequency, NamesTheEightFrequenciesAndNoOther) {
    constexpr std::array kLabels{"Weekly",     "Bi-Weekly", "Semi-Monthly",  "Monthly",
                                 "Bi-Monthly", "Quarterly", "Semi-Annually", "Annually"};
    static_assert(kLabels.size() == kFrequencyLabels);
    for (int code = 0; code < kFrequencyLabels; ++code)
        EXPECT_EQ(CVLabelOfFrequency(code), QLatin1String(kLabels[static_cast<std::size_t>(code)]));
    EXPECT_TRUE(CVLabelOfFrequency(CVExpenseFrequency::kUnknown).isNull());
    EXPECT_TRUE(CVLabelOfFrequency(kFrequencyLabels).isNull());
}

} // namespace
