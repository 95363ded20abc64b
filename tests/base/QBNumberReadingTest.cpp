#include "base/QBNumberText.h"
#include "kit/CommaLocale.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace {

constexpr double kMax = std::numeric_limits<double>::max();

struct DoubleRow {
    const char* text;
    double value;
};

constexpr std::array kDoubles{
    DoubleRow{"", 0}, DoubleRow{"0", 0}, DoubleRow{"12", 12}, DoubleRow{"45.10", 45.1}, DoubleRow{"-0.00", -0.0},
    DoubleRow{"-12.5", -12.5}, DoubleRow{"+5", 5}, DoubleRow{" 12abc", 12}, DoubleRow{"\t\n\v\f\r 12", 12},
    DoubleRow{"5.", 5}, DoubleRow{".5", 0.5}, DoubleRow{"-.5", -0.5}, DoubleRow{"1.2.3", 1.2}, DoubleRow{"1,5", 1},
    DoubleRow{"1 234.50", 1}, DoubleRow{"1e3", 1000}, DoubleRow{"1E+3", 1000}, DoubleRow{"25e-1", 2.5},
    DoubleRow{"1e", 1}, DoubleRow{"1e+", 1}, DoubleRow{"1ex", 1}, DoubleRow{"0x10", 0},
    DoubleRow{"1000000000000000000000000000000", 1e30},
    // no number
    DoubleRow{".", 0}, DoubleRow{"-", 0}, DoubleRow{"+", 0}, DoubleRow{"--5", 0}, DoubleRow{"+-5", 0},
    DoubleRow{"- 5", 0}, DoubleRow{"-.", 0}, DoubleRow{".e5", 0}, DoubleRow{"e5", 0}, DoubleRow{"abc", 0},
    DoubleRow{"nan", 0}, DoubleRow{"NAN(1)", 0}, DoubleRow{"inf", 0}, DoubleRow{"-inf", 0}, DoubleRow{"infinity", 0},
    DoubleRow{"$5", 0}, DoubleRow{"(null)", 0},
    // out of range
    DoubleRow{"1e999", kMax}, DoubleRow{"-1e999", -kMax}, DoubleRow{"+1e999 and more", kMax},
    DoubleRow{"0.0001e999", kMax}, DoubleRow{"1e99999999999999999999999999", kMax},
    DoubleRow{"1.7976931348623157e308", kMax}, DoubleRow{"1.8e308", kMax}, DoubleRow{"1e-999", 0},
    DoubleRow{"-1e-999", -0.0}, DoubleRow{"12345e-999", 0}, DoubleRow{"1e-99999999999999999999999999", 0},
    DoubleRow{"0e999", 0}, DoubleRow{"0.00e99999999999999999999999999", 0}, DoubleRow{"5e-324", 5e-324}};

TEST(LeadingDouble, ReadsTheNumberWithWhichTheTextBegins) {
    for (const DoubleRow& row : kDoubles) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(QBNumberText::leadingDouble(row.text), row.value);
    }
}

TEST(LeadingDouble, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(QBNumberText::leadingDouble("-0.00")));
    EXPECT_TRUE(std::signbit(QBNumberText::leadingDouble("-1e-999")));
    EXPECT_FALSE(std::signbit(QBNumberText::leadingDouble("0.00")));
}

TEST(LeadingDouble, TellsHugeFromTinyWhateverTheLengthOfTheDigits) {
    const std::string zeros(400, '0');
    EXPECT_EQ(QBNumberText::leadingDouble("1" + zeros), kMax);
    EXPECT_EQ(QBNumberText::leadingDouble("-1" + zeros + ".5"), -kMax);
    EXPECT_EQ(QBNumberText::leadingDouble("0." + zeros + "1"), 0.0);
    EXPECT_EQ(QBNumberText::leadingDouble("0." + zeros + "1e401"), 1.0);
    EXPECT_EQ(QBNumberText::leadingDouble("1" + zeros + "e-400"), 1.0);
    EXPECT_EQ(QBNumberText::leadingDouble(zeros + zeros + "7"), 7.0);
}

TEST(LeadingDouble, ReadsExponentsAsLongAsACounterAllows) {
    EXPECT_EQ(QBNumberText::leadingDouble("1e9223372036854775807"), kMax);
    EXPECT_EQ(QBNumberText::leadingDouble("123e9223372036854775806"), kMax);
    EXPECT_EQ(QBNumberText::leadingDouble("0.0001e-9223372036854775807"), 0.0);
    EXPECT_EQ(QBNumberText::leadingDouble("0.0001e-9223372036854775808"), 0.0);
}

TEST(LeadingDouble, StopsAtTheEndOfAViewIntoALongerText) {
    const std::string text = "12.345";
    EXPECT_EQ(QBNumberText::leadingDouble(std::string_view(text).substr(0, 4)), 12.3);
    EXPECT_EQ(QBNumberText::leadingDouble(std::string_view(text).substr(0, 0)), 0.0);
}

TEST(LeadingDouble, AgreesWithTheLibraryForPlainNumbers) {
    std::mt19937_64 engine(4);
    std::uniform_real_distribution<double> magnitude(-10, 20);
    for (int i = 0; i < 100'000; ++i) {
        const double value = std::pow(10.0, magnitude(engine)) * (i % 2 ? -1 : 1);
        for (const char* const format : {"%.2f", "%.17g", "%e", " %+.9f;"}) {
            std::array<char, 100> text{};
            std::snprintf(text.data(), text.size(), format, value);
            ASSERT_EQ(QBNumberText::leadingDouble(text.data()), std::strtod(text.data(), nullptr)) << text.data();
        }
    }
}

TEST(LeadingDouble, ReadsAFullStopInALocaleWithADecimalComma) {
    const CommaLocale locale;
    if (!locale.isInForce())
        GTEST_SKIP() << "no locale with a decimal comma";
    ASSERT_EQ(std::strtod("12,5", nullptr), 12.5);
    EXPECT_EQ(QBNumberText::leadingDouble("12.5"), 12.5);
    EXPECT_EQ(QBNumberText::leadingDouble("12,5"), 12.0);
}

struct UnsignedRow {
    const char* text;
    quint32 value;
};

constexpr std::array kUnsigned{UnsignedRow{"", 0},
                               UnsignedRow{"0", 0},
                               UnsignedRow{"27", 27},
                               UnsignedRow{"007", 7},
                               UnsignedRow{"+5", 5},
                               UnsignedRow{" \t\n12abc", 12},
                               UnsignedRow{"12.9", 12},
                               UnsignedRow{"1e3", 1},
                               UnsignedRow{"0x10", 0},
                               UnsignedRow{"2147483648", 2147483648U},
                               UnsignedRow{"4294967295", 4294967295U},
                               UnsignedRow{"4294967296", 0},
                               UnsignedRow{"4294967301", 5},
                               UnsignedRow{"99999999999999999999", 1661992959U},
                               UnsignedRow{"-1", 4294967295U},
                               UnsignedRow{"-0", 0},
                               UnsignedRow{"-4294967295", 1},
                               UnsignedRow{"--1", 0},
                               UnsignedRow{"- 1", 0},
                               UnsignedRow{"-", 0},
                               UnsignedRow{"+", 0},
                               UnsignedRow{"x1", 0},
                               UnsignedRow{"nan", 0},
                               UnsignedRow{"\xD9\xA3", 0}};

TEST(LeadingUnsigned, ReadsTheIntegerWithWhichTheTextBeginsModulo32Bits) {
    for (const UnsignedRow& row : kUnsigned) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(QBNumberText::leadingUnsigned(row.text), row.value);
    }
}

} // namespace
