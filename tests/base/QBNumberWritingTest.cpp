#include "base/QBNumberText.h"
#include "kit/CommaLocale.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace {

std::string money(double value) {
    std::array<char, QBNumberText::kMoneyBound> text{};
    return {text.data(), QBNumberText::writeMoney(text.data(), value)};
}

/// The C library's output. The tests run in a locale with a decimal point.
std::string printed(double value) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.2f", value);
    return text.data();
}

struct WrittenRow {
    double value;
    const char* text;
};

constexpr std::array kWritten{
    WrittenRow{0.0, "0.00"}, WrittenRow{-0.0, "-0.00"}, WrittenRow{-0.004, "-0.00"}, WrittenRow{0.004, "0.00"},
    WrittenRow{45.1, "45.10"}, WrittenRow{50, "50.00"}, WrittenRow{1234567.5, "1234567.50"},
    WrittenRow{-1234567.5, "-1234567.50"}, WrittenRow{0.999, "1.00"}, WrittenRow{0.994, "0.99"},
    // Halves that a double holds exactly are rounded to the even neighbour; all other numbers
    // are not halfway.
    WrittenRow{0.125, "0.12"}, WrittenRow{0.375, "0.38"}, WrittenRow{-0.625, "-0.62"}, WrittenRow{0.005, "0.01"},
    WrittenRow{0.015, "0.01"}, WrittenRow{1.005, "1.00"}, WrittenRow{2.675, "2.67"},
    WrittenRow{99999999999.99, "99999999999.99"}, WrittenRow{100000000000.01, "100000000000.01"},
    WrittenRow{1e15, "1000000000000000.00"}, WrittenRow{1e22, "10000000000000000000000.00"}};

TEST(WriteMoney, WritesTwoPlacesWithoutGroups) {
    for (const WrittenRow& row : kWritten)
        EXPECT_EQ(money(row.value), row.text);
}

TEST(WriteMoney, StaysWithinItsBound) {
    EXPECT_EQ(money(-std::numeric_limits<double>::max()).size(), 313U);
    EXPECT_LE(money(-std::numeric_limits<double>::max()).size(), QBNumberText::kMoneyBound);
}

TEST(WriteMoney, WritesWhatIsNoNumberAsTheLibraryDoes) {
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), -Limits::quiet_NaN()})
        EXPECT_EQ(money(value), printed(value));
}

TEST(WriteMoney, AgreesWithTheLibraryForDoublesOfAnyBits) {
    std::mt19937_64 engine(1);
    for (int i = 0; i < 100'000; ++i) {
        const auto value = std::bit_cast<double>(static_cast<std::uint64_t>(engine()));
        ASSERT_EQ(money(value), printed(value));
    }
}

TEST(WriteMoney, AgreesWithTheLibraryForAmountsOfAllMagnitudes) {
    std::mt19937_64 engine(2);
    std::uniform_real_distribution<double> magnitude(-4, 18);
    for (int i = 0; i < 300'000; ++i) {
        const double value = std::pow(10.0, magnitude(engine)) * (i % 2 ? -1 : 1);
        ASSERT_EQ(money(value), printed(value));
    }
}

TEST(WriteMoney, AgreesWithTheLibraryAroundHalvesOfACent) {
    std::mt19937_64 engine(3);
    std::uniform_real_distribution<double> magnitude(0, 15);
    for (int i = 0; i < 200'000; ++i) {
        const double half = (std::floor(std::pow(10.0, magnitude(engine))) + 0.5) / 100.0;
        for (const double value : {half, std::nextafter(half, 0.0), std::nextafter(half, 1e300), -half})
            ASSERT_EQ(money(value), printed(value));
    }
}

TEST(WriteMoney, AgreesWithTheLibraryAroundThatWhereItChangesItsWay) {
    for (int exponent = 9; exponent <= 13; ++exponent) {
        double value = std::pow(10.0, exponent) - 0.05;
        for (int i = 0; i < 20'000; ++i, value += 0.005) {
            ASSERT_EQ(money(value), printed(value));
            ASSERT_EQ(money(-value), printed(-value));
        }
    }
}

TEST(WriteMoney, WritesAFullStopInALocaleWithADecimalComma) {
    const CommaLocale locale;
    if (!locale.isInForce())
        GTEST_SKIP() << "no locale with a decimal comma";
    ASSERT_EQ(printed(1234.5), "1234,50");
    EXPECT_EQ(money(1234.5), "1234.50");
    EXPECT_EQ(money(1e15), "1000000000000000.00");
    EXPECT_EQ(money(0.125), "0.12");
}

TEST(WriteUnsigned, WritesAllOfThirtyTwoBits) {
    struct {
        quint32 value;
        const char* text;
    } const rows[] = {{0, "0"},
                      {7, "7"},
                      {10, "10"},
                      {2147483647, "2147483647"},
                      {2147483648, "2147483648"},
                      {4294967295, "4294967295"}};
    for (const auto& row : rows) {
        std::array<char, QBNumberText::kIntegerBound> text{};
        char* const end = QBNumberText::writeUnsigned(text.data(), row.value);
        EXPECT_EQ(std::string(text.data(), end), row.text);
    }
}

} // namespace
