#include "budget/CVFrequencyConversion.h"

#include "budget/ArithmeticText.h"
#include "budget/BitsOf.h"
#include "model/CVCategory.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>

namespace {

constexpr qint64 kFrequencies = 8;

/// The row is the frequency to convert from, the column the one to convert to, both from weekly to annually.
constexpr std::array<std::array<const char*, kFrequencies>, kFrequencies> kSteps{{
    {"-", "x2", "x52 /24", "x52 /12", "x52 /6", "x52 x0.25", "x52 x0.5", "x52"},
    {"x0.5", "-", "x26 /24", "x26 /12", "x26 /6", "x26 x0.25", "x26 x0.5", "x26"},
    {"x24 /52", "x24 /26", "-", "x2", "x4", "x6", "x12", "x24"},
    {"x12 /52", "x12 /26", "x0.5", "-", "x2", "x3", "x6", "x12"},
    {"x6 /52", "x6 /26", "x0.25", "x0.5", "-", "x0.5 x3", "x3", "x6"},
    {"x4 /52", "x4 /26", "/6", "x4 /12", "x4 /6", "-", "x2", "x4"},
    {"x2 /52", "x2 /26", "/12", "/6", "x2 /12", "x0.5", "-", "x2"},
    {"/52", "/26", "/24", "/12", "/6", "x0.25", "x0.5", "-"},
}};

constexpr std::array<double, kFrequencies> kPeriodsPerYear{52, 26, 24, 12, 6, 4, 2, 1};

constexpr std::array kAmounts{0.0,
                              -0.0,
                              10.0,
                              60.0,
                              0.01,
                              -0.07,
                              1234.56,
                              99999999.99,
                              -1e-300,
                              4.9e-324,
                              std::numeric_limits<double>::max(),
                              std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()};

double converted(double target, qint64 from, qint64 to) {
    CVCategory category;
    category.setExpenseTarget(target);
    mapExpenseFrequencyFrom(category, from, to);
    return category.expenseTarget();
}

TEST(CVFrequencyConversion, CarriesOutExactlyTheTabledStepsForEachPairOfFrequencies) {
    for (qint64 from = 0; from < kFrequencies; ++from) {
        for (qint64 to = 0; to < kFrequencies; ++to) {
            const char* const steps = kSteps[static_cast<std::size_t>(from)][static_cast<std::size_t>(to)];
            for (const double amount : kAmounts) {
                SCOPED_TRACE(testing::Message() << amount << " from " << from << " to " << to << ": " << steps);
                EXPECT_THAT(converted(amount, from, to), BitsOf(carriedOut(steps, amount)));
            }
        }
    }
}

TEST(CVFrequencyConversion, FollowsThePeriodsOfAYearExceptFromSemiAnnuallyToBiMonthly) {
    for (qint64 from = 0; from < kFrequencies; ++from) {
        for (qint64 to = 0; to < kFrequencies; ++to) {
            SCOPED_TRACE(testing::Message() << "from " << from << " to " << to);
            double factor =
                kPeriodsPerYear[static_cast<std::size_t>(from)] / kPeriodsPerYear[static_cast<std::size_t>(to)];
            if (from == CVExpenseFrequency::kSemiAnnually && to == CVExpenseFrequency::kBiMonthly)
                factor = 1.0 / 6;
            EXPECT_NEAR(converted(1000, from, to), 1000 * factor, 1e-9);
        }
    }
}

TEST(CVFrequencyConversion, OfAWeeklyTargetOfTenToMonthlyIsTenTimes52By12) {
    EXPECT_EQ(converted(10, CVExpenseFrequency::kWeekly, CVExpenseFrequency::kMonthly), 10.0 * 52 / 12);
}

TEST(CVFrequencyConversion, OfASemiAnnualTargetOfSixtyToBiMonthlyIsTen) {
    EXPECT_EQ(converted(60, CVExpenseFrequency::kSemiAnnually, CVExpenseFrequency::kBiMonthly), 10.0);
}

TEST(CVFrequencyConversion, ToTheSameFrequencyLeavesTheTargetUnchanged) {
    for (qint64 code = -2; code < 10; ++code)
        EXPECT_THAT(converted(0.1, code, code), BitsOf(0.1)) << code;
}

TEST(CVFrequencyConversion, WithACodeOutsideZeroToSevenLeavesTheTargetUnchanged) {
    constexpr std::array kOutside{qint64(-1), qint64(8), std::numeric_limits<qint64>::min(),
                                  std::numeric_limits<qint64>::max(), qint64(1) << 32};
    for (const qint64 outside : kOutside) {
        for (qint64 code = 0; code < kFrequencies; ++code) {
            EXPECT_THAT(converted(0.1, outside, code), BitsOf(0.1)) << outside << " to " << code;
            EXPECT_THAT(converted(0.1, code, outside), BitsOf(0.1)) << code << " to " << outside;
        }
    }
}

TEST(CVFrequencyConversion, DoesNotChangeTheFrequency) {
    CVCategory category;
    category.setExpenseFrequency(CVExpenseFrequency::kMonthly);
    category.setExpenseTarget(12);
    mapExpenseFrequencyFrom(category, CVExpenseFrequency::kMonthly, CVExpenseFrequency::kAnnually);
    EXPECT_EQ(category.expenseFrequency(), CVExpenseFrequency::kMonthly);
    EXPECT_EQ(category.expenseTarget(), 144);
}

} // namespace
