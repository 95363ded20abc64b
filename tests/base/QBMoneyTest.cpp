#include "base/QBMoney.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct RoundedRow {
    double value;
    double rounded;
};

// Odd eighths are halves of a cent that a double holds exactly.
constexpr std::array kRounded{RoundedRow{0.0, 0.0},
                              RoundedRow{-0.0, 0.0},
                              RoundedRow{0.125, 0.13},
                              RoundedRow{-0.125, -0.13},
                              RoundedRow{0.375, 0.38},
                              RoundedRow{0.625, 0.63},
                              RoundedRow{0.875, 0.88},
                              RoundedRow{-2.375, -2.38},
                              RoundedRow{0.004, 0.0},
                              RoundedRow{-0.004, 0.0},
                              RoundedRow{-1e-320, 0.0},
                              RoundedRow{0.1 + 0.2, 0.3},
                              RoundedRow{1234567.5, 1234567.5},
                              RoundedRow{99.994999, 99.99},
                              RoundedRow{99.995001, 100.0},
                              RoundedRow{1e-320, 0.0},
                              RoundedRow{2e13 + 0.12, 2e13 + 0.12},
                              RoundedRow{4.6e13, 4.6e13},
                              RoundedRow{1e300, 1e300},
                              RoundedRow{-1e300, -1e300},
                              RoundedRow{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()},
                              RoundedRow{kInfinity, kInfinity},
                              RoundedRow{-kInfinity, -kInfinity}};

TEST(RoundDoubleToTwoPlaces, RoundsHalvesAwayFromZeroAndNeverToANegativeZero) {
    for (const RoundedRow& row : kRounded) {
        SCOPED_TRACE(testing::Message() << row.value);
        EXPECT_EQ(RoundDoubleToTwoPlaces(row.value), row.rounded);
        EXPECT_EQ(std::signbit(RoundDoubleToTwoPlaces(row.value)), std::signbit(row.rounded));
    }
}

TEST(RoundDoubleToTwoPlaces, KeepsNaN) {
    EXPECT_TRUE(std::isnan(RoundDoubleToTwoPlaces(std::numeric_limits<double>::quiet_NaN())));
}

TEST(RoundDoubleToTwoPlaces, GivesTheDoubleOfAnAmountInCents) {
    std::mt19937 engine(7);
    for (int i = 0; i < 200'000; ++i) {
        const auto cents = static_cast<long long>(engine()) - (1LL << 31);
        const std::string text =
            std::to_string(cents / 100) + '.' + std::to_string(100 + std::abs(cents % 100)).substr(1);
        const double amount = std::strtod(((cents < 0 && cents > -100 ? "-" : "") + text).c_str(), nullptr);
        // The rounding error of a sum of many amounts.
        const double noise = amount * 1e-12;
        ASSERT_EQ(RoundDoubleToTwoPlaces(amount + noise), amount) << text;
        ASSERT_EQ(RoundDoubleToTwoPlaces(amount - noise), amount) << text;
    }
}

TEST(RoundDoubleToTwoPlaces, RoundsTheProductByAHundredAndTheRoundedNoFurther) {
    std::mt19937_64 engine(8);
    std::uniform_real_distribution<double> magnitude(-3, 13.5);
    for (int i = 0; i < 200'000; ++i) {
        const double value = std::pow(10.0, magnitude(engine));
        const double rounded = RoundDoubleToTwoPlaces(value);
        ASSERT_EQ(RoundDoubleToTwoPlaces(rounded), rounded) << value;
        ASSERT_EQ(rounded, std::round(value * 100.0) / 100.0) << value;
        ASSERT_EQ(RoundDoubleToTwoPlaces(-value), -rounded) << value;
    }
}

} // namespace
