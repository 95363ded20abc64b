#include "budget/CVRoundedSum.h"

#include "budget/BitsOf.h"
#include "shared/base/QBMoney.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

void expectEqualToRoundingEach(const std::vector<double>& amounts) {
    CVRoundedSum sum;
    double expected = 0;
    for (const double amount : amounts) {
        sum.add(amount);
        expected = RoundDoubleToTwoPlaces(expected + amount);
        ASSERT_THAT(sum.value(), BitsOf(expected)) << "after " << std::hexfloat << amount;
    }
}

TEST(CVRoundedSum, BeginsWithZero) {
    EXPECT_THAT(CVRoundedSum().value(), BitsOf(0.0));
}

TEST(CVRoundedSum, OfSimpleAmountsIsExact) {
    CVRoundedSum sum;
    for (const double amount : {0.1, 0.2, -0.05, 12.34})
        sum.add(amount);
    EXPECT_THAT(sum.value(), BitsOf(12.59));
}

TEST(CVRoundedSum, RoundsHalvesAwayFromZeroAfterEachAddition) {
    CVRoundedSum sum;
    sum.add(0.125);
    EXPECT_THAT(sum.value(), BitsOf(0.13));
    sum.add(0.004);
    EXPECT_THAT(sum.value(), BitsOf(0.13));
    sum.add(-0.13);
    EXPECT_THAT(sum.value(), BitsOf(0.0));
}

TEST(CVRoundedSum, OfExtremeAmountsIsThatOfRoundingEach) {
    expectEqualToRoundingEach({-0.0, 0x1p38, 0x1p38, 0.01, -0x1p39, 0.01, -0.02});
    expectEqualToRoundingEach({0x1p44, 0.01, 0x1p44, 0.03, 0x1p45, 1.25, -0x1p46, 0.07});
    expectEqualToRoundingEach({1e300, -1e300, 0.01, 0.005, kInfinity, 1.0, -kInfinity, 2.0});
    expectEqualToRoundingEach({1.01, kNaN, 1.0});
    expectEqualToRoundingEach({-std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::max()});
}

/// Whole cents, arbitrary doubles and neighbours of both, of every magnitude.
double randomAmount(std::mt19937_64& random) {
    const int magnitude = static_cast<int>(random() % 56);
    const auto bits = static_cast<qint64>(random() >> (63 - magnitude));
    const double cents = static_cast<double>(random() % 2 == 0 ? bits : -bits) / 100.0;
    switch (random() % 6) {
    case 0:
        return std::nextafter(cents, kInfinity);
    case 1:
        return cents + 0.005;
    case 2:
        return std::ldexp(cents, -static_cast<int>(random() % 12));
    default:
        return cents;
    }
}

TEST(CVRoundedSum, OfRandomAmountsIsThatOfRoundingEach) {
    std::mt19937_64 random(5);
    for (int i = 0; i < 20'000; ++i) {
        std::vector<double> amounts(1 + random() % 30);
        for (double& amount : amounts)
            amount = randomAmount(random);
        ASSERT_NO_FATAL_FAILURE(expectEqualToRoundingEach(amounts));
    }
}

} // namespace
