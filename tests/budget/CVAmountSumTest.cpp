#include "budget/CVAmountSum.h"

#include "budget/BitsOf.h"
#include "shared/base/QBMoney.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

namespace {

using Amounts = std::vector<double>;
using Limits = std::numeric_limits<double>;

constexpr double kLargestAmount = 0x1p30;

std::optional<double> roundedOnceOf(const Amounts& amounts) {
    CVAmountSum sum;
    for (const double amount : amounts)
        sum.add(amount);
    return sum.roundedOnce();
}

/// What the sum stands for.
double plainlySummed(const Amounts& amounts) {
    double sum = 0;
    for (const double amount : amounts)
        sum += amount;
    return RoundDoubleToTwoPlaces(sum);
}

/// Where there is a sum it is the plain one in the given order, in those by size, and in shuffled ones. Returns whether
/// there is one.
bool isPlainSumInAnyOrder(Amounts amounts, std::mt19937_64& random) {
    const auto rounded = roundedOnceOf(amounts);
    if (!rounded)
        return false;
    EXPECT_THAT(*rounded, BitsOf(plainlySummed(amounts))) << "in the given order";
    std::sort(amounts.begin(), amounts.end());
    EXPECT_THAT(*rounded, BitsOf(plainlySummed(amounts))) << "in ascending order";
    std::reverse(amounts.begin(), amounts.end());
    EXPECT_THAT(*rounded, BitsOf(plainlySummed(amounts))) << "in descending order";
    for (int i = 0; i < 2; ++i) {
        std::shuffle(amounts.begin(), amounts.end(), random);
        EXPECT_THAT(*rounded, BitsOf(plainlySummed(amounts))) << "shuffled";
        EXPECT_EQ(roundedOnceOf(amounts), rounded) << "shuffled";
    }
    return true;
}

/// Whole cents of at most so many bits, of either sign.
double drawnCents(std::mt19937_64& random, int bits) {
    const auto cents = static_cast<qint64>(random() >> (64 - bits));
    return static_cast<double>(random() % 3 == 0 ? -cents : cents) / 100.0;
}

/// An amount that is no whole cent, lies beyond those that are added up, or is no number.
double drawnOddity(std::mt19937_64& random) {
    const double cents = drawnCents(random, 1 + static_cast<int>(random() % 30));
    switch (random() % 8) {
    case 0:
        return std::nextafter(cents, Limits::infinity());
    case 1:
        return cents + 0.005;
    case 2:
        return 0.1 + 0.2;
    case 3:
        return std::ldexp(cents, 40);
    case 4:
        return std::ldexp(cents, -4);
    case 5:
        return random() % 2 == 0 ? Limits::infinity() : -Limits::infinity();
    case 6:
        return Limits::quiet_NaN();
    default:
        return -0.0;
    }
}

Amounts drawnAmounts(std::mt19937_64& random) {
    Amounts amounts(random() % 80);
    const int bits = 1 + static_cast<int>(random() % 36);
    const bool hasOddities = random() % 8 == 0;
    for (double& amount : amounts)
        amount = hasOddities && random() % 20 == 0 ? drawnOddity(random) : drawnCents(random, bits);
    return amounts;
}

TEST(CVAmountSum, OfRandomAmountsIsThatOfTheDoublesInAnyOrder) {
    std::mt19937_64 random(11);
    int sums = 0;
    constexpr int kLists = 20'000;
    for (int i = 0; i < kLists; ++i) {
        sums += isPlainSumInAnyOrder(drawnAmounts(random), random) ? 1 : 0;
        ASSERT_FALSE(HasFailure()) << "list " << i;
    }
    EXPECT_GT(sums, kLists / 2);
    EXPECT_LT(sums, kLists - kLists / 50) << "oddities were drawn";
}

/// One amount again and again errs in one direction; where errors grow too large there is no sum.
TEST(CVAmountSum, OfOneAmountAgainAndAgainIsThatOfTheDoubles) {
    std::mt19937_64 random(12);
    int sums = 0;
    constexpr int kLists = 1'500;
    for (int i = 0; i < kLists; ++i) {
        const int bits = 1 + static_cast<int>(random() % 36);
        Amounts amounts(random() % 3'000, drawnCents(random, bits));
        amounts.resize(amounts.size() + random() % 400, drawnCents(random, 36));
        sums += isPlainSumInAnyOrder(amounts, random) ? 1 : 0;
        ASSERT_FALSE(HasFailure()) << "list " << i;
    }
    EXPECT_GT(sums, kLists / 10);
    EXPECT_LT(sums, kLists - kLists / 10);
}

/// So many whole cents below the limit, of either sign.
Amounts ordinaryAmounts(std::mt19937_64& random, std::size_t count, quint64 limitInCents) {
    Amounts amounts(count);
    for (double& amount : amounts)
        amount = (random() % 4 == 0 ? 1 : -1) * (static_cast<double>(random() % limitInCents) / 100.0);
    return amounts;
}

TEST(CVAmountSum, OfOrdinaryBudgetsIsThere) {
    std::mt19937_64 random(13);
    Amounts amounts = ordinaryAmounts(random, 90'000, 20'000);
    const Amounts larger = ordinaryAmounts(random, 10'000, 1'000'000);
    amounts.insert(amounts.end(), larger.begin(), larger.end());
    EXPECT_TRUE(isPlainSumInAnyOrder(amounts, random));
}

TEST(CVAmountSum, OfAHundredThousandAmountsBelowFiveThousandIsThere) {
    std::mt19937_64 random(14);
    EXPECT_TRUE(isPlainSumInAnyOrder(ordinaryAmounts(random, 100'000, 500'000), random));
}

struct AmountSumRow {
    const char* behaviour;
    Amounts amounts;
    std::optional<double> sum;
};

TEST(CVAmountSum, AddsUpWholeCents) {
    const AmountSumRow rows[] = {{"of nothing", {}, 0.0},
                                 {"of a negative zero", {-0.0}, 0.0},
                                 {"whose doubles miss the cent", {0.1, 0.2}, 0.3},
                                 {"that comes to nothing", {0.1, 0.2, -0.3}, 0.0},
                                 {"below zero", {-1.15, 0.1, -0.05}, -1.1},
                                 {"of the largest amount", {kLargestAmount, 0.01}, 1073741824.01},
                                 {"of the largest amount below zero", {-kLargestAmount, -0.01}, -1073741824.01}};
    for (const auto& row : rows) {
        const auto rounded = roundedOnceOf(row.amounts);
        ASSERT_TRUE(rounded) << row.behaviour;
        EXPECT_THAT(*rounded, BitsOf(*row.sum)) << row.behaviour;
        EXPECT_THAT(*rounded, BitsOf(plainlySummed(row.amounts))) << row.behaviour;
    }
}

TEST(CVAmountSum, IsAbsentWithAnAmountThatIsNoWholeCentOrBeyondTheLargest) {
    for (const double amount :
         {0.005, 0.125, 0.1 + 0.2, 1.0 / 3, std::nextafter(0.01, 1.0), std::nextafter(12.34, 0.0), Limits::denorm_min(),
          kLargestAmount + 0.01, 0x1p31, 1e15, 1e300, Limits::max(), Limits::infinity(), Limits::quiet_NaN()}) {
        for (const double signedAmount : {amount, -amount}) {
            EXPECT_EQ(roundedOnceOf({signedAmount}), std::nullopt) << signedAmount;
            EXPECT_EQ(roundedOnceOf({1.25, signedAmount, 3.5}), std::nullopt) << signedAmount << " amid others";
            EXPECT_EQ(roundedOnceOf({signedAmount, -signedAmount}), std::nullopt) << signedAmount << " taken back";
        }
    }
}

Amounts joined(std::initializer_list<std::pair<std::size_t, double>> parts) {
    Amounts amounts;
    for (const auto& [count, amount] : parts)
        amounts.insert(amounts.end(), count, amount);
    return amounts;
}

/// Whole cents, none too large, but so many beside such large ones that their doubles come to another cent.
TEST(CVAmountSum, IsAbsentWhereTheErrorsOfTheDoublesLeadToAnotherCent) {
    const AmountSumRow rows[] = {
        {"many small ones behind a large one", joined({{1, kLargestAmount}, {50'000, 0.12}}), 0x1p30 + 6'000},
        {"below zero", joined({{1, -kLargestAmount}, {50'000, -0.12}}), -0x1p30 - 6'000},
        {"few small ones behind many large ones", joined({{500, kLargestAmount}, {300, 0.03}}), 500 * 0x1p30 + 9},
        {"large ones that cancel out", joined({{450, kLargestAmount}, {300, 0.03}, {450, -kLargestAmount}}), 9.0}};
    for (const auto& row : rows) {
        EXPECT_NE(plainlySummed(row.amounts), *row.sum) << row.behaviour << ": the doubles do not err";
        EXPECT_EQ(roundedOnceOf(row.amounts), std::nullopt) << row.behaviour;
    }
}

TEST(CVAmountSum, CanBeAskedAndAddedTo) {
    CVAmountSum sum;
    sum.add(0.1);
    EXPECT_EQ(sum.roundedOnce(), 0.1);
    sum.add(0.2);
    EXPECT_EQ(sum.roundedOnce(), 0.3);
    const CVAmountSum before = sum;
    sum.add(0.125);
    EXPECT_EQ(sum.roundedOnce(), std::nullopt);
    sum.add(1);
    EXPECT_EQ(sum.roundedOnce(), std::nullopt) << "it stays absent";
    EXPECT_EQ(before.roundedOnce(), 0.3);
}

} // namespace
