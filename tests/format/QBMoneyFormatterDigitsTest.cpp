#include "format/QBMoneyFormatter.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr std::array kLocaleNames{"en_US", "de_DE", "de_CH", "hi_IN", "ar_EG", "fa_IR"};

/// The amount with the digits as the toolkit writes them and a group separator before every three digits of the whole
/// part.
QString plainMoneyText(double amount, QLocale locale) {
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    QString digits = locale.toString(std::abs(amount), 'f', 2);
    for (auto place = digits.indexOf(locale.decimalPoint()) - 3; place > 0; place -= 3)
        digits.insert(place, locale.groupSeparator());
    const bool isZero = digits == locale.zeroDigit() + locale.decimalPoint() + locale.zeroDigit().repeated(2);
    return (amount < 0 && !isZero ? locale.negativeSign() : QString()) + locale.currencySymbol() + digits;
}

/// A random amount: whole cents, the middle between two cents, or of any size.
double drawnMoney(std::mt19937_64& random) {
    const auto whole = static_cast<double>(random() >> (24 + random() % 40));
    double amount = 0;
    switch (random() % 8) {
    case 0:
        // An odd number of eighths lies exactly between two cents.
        amount = (2 * whole + 1) / 8;
        break;
    case 1:
        amount = std::nextafter((2 * whole + 1) / 8, random() % 2 == 0 ? 0 : 1e300);
        break;
    case 2:
        amount = 1e15 + whole / 8;
        break;
    case 3:
        amount = std::ldexp(whole, static_cast<int>(random() % 980));
        break;
    case 4:
        amount = std::ldexp(whole, -static_cast<int>(random() % 1000));
        break;
    case 5:
        // Near the middle only: no double equals such a decimal.
        amount = (whole * 10 + 5) / 1000;
        break;
    default:
        amount = whole / 100;
    }
    return random() % 2 == 0 ? amount : -amount;
}

TEST(QBMoneyFormatterDigits, AreThoseOfTheLocaleInGroupsOfThree) {
    constexpr int kAmounts = 20'000;
    for (const char* const name : kLocaleNames) {
        const QLocale locale(name);
        const QBMoneyFormatter formatter(locale);
        std::mt19937_64 random(5);
        for (int i = 0; i < kAmounts; ++i) {
            const double amount = drawnMoney(random);
            ASSERT_EQ(formatter.string(amount), plainMoneyText(amount, locale))
                << name << std::hexfloat << ' ' << amount;
        }
    }
}

TEST(QBMoneyFormatterDigits, AreThoseOfTheLocaleForRemarkableAmounts) {
    using Limits = std::numeric_limits<double>;
    for (const char* const name : kLocaleNames) {
        const QLocale locale(name);
        const QBMoneyFormatter formatter(locale);
        for (const double amount : {0.0,
                                    0.125,
                                    0.375,
                                    0.625,
                                    0.875,
                                    0.115,
                                    1.005,
                                    999.995,
                                    0.005,
                                    std::nextafter(0.005, 0.0),
                                    0.0049,
                                    0.015,
                                    99.125,
                                    999.125,
                                    999'999.875,
                                    1e15,
                                    0x1p45 + 0.125,
                                    0x1p52 + 0.5,
                                    1e22,
                                    1e300,
                                    Limits::max(),
                                    Limits::min(),
                                    Limits::denorm_min()}) {
            EXPECT_EQ(formatter.string(amount), plainMoneyText(amount, locale)) << name << ' ' << amount;
            EXPECT_EQ(formatter.string(-amount), plainMoneyText(-amount, locale)) << name << " -" << amount;
        }
    }
}

TEST(QBMoneyFormatterDigits, RoundTheMiddleBetweenTwoCentsAwayFromZero) {
    const QBMoneyFormatter formatter(QLocale("en_US"));
    EXPECT_EQ(formatter.string(0.125), "$0.13");
    EXPECT_EQ(formatter.string(0.375), "$0.38");
    EXPECT_EQ(formatter.string(-0.625), "-$0.63");
    EXPECT_EQ(formatter.string(2.5), "$2.50");
    EXPECT_EQ(formatter.string(std::nextafter(0.125, 0.0)), "$0.12");
    EXPECT_EQ(formatter.string(999.875), "$999.88");
}

TEST(QBMoneyFormatterDigits, RoundTheMiddleAlsoWhereNeighbouringAmountsLieFurtherApartThanCents) {
    const QBMoneyFormatter formatter(QLocale("en_US"));
    struct {
        double amount;
        const char* text;
    } const rows[] = {{0x1p46 + 0.125, "$70,368,744,177,664.13"},
                      {0x1p46 - 0.125, "$70,368,744,177,663.88"},
                      {0x1p48 + 0.625, "$281,474,976,710,656.63"},
                      {-1e15 - 0.125, "-$1,000,000,000,000,000.13"},
                      {0x1p50 - 0.125, "$1,125,899,906,842,623.88"}};
    for (const auto& row : rows)
        EXPECT_EQ(formatter.string(row.amount), row.text) << std::hexfloat << row.amount;
}

} // namespace
