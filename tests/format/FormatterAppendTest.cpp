#include "format/QBDateFormatter.h"
#include "format/QBMoneyFormatter.h"
#include "kit/Day.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr std::array kLocaleNames{"en_US", "de_DE", "de_CH", "hi_IN", "ar_EG", "fa_IR"};
/// Room for the largest amount with its group separators.
constexpr qsizetype kRoom = 600;

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

/// Appends to `text`, which has room, and expects `expected` after the old content.
template <typename Append>
void expectAppendedInPlace(QString& text, const QString& expected, Append append) {
    const QChar* const room = text.constData();
    // A deep copy, because appending to a shared text would move it.
    const QString whole = QString(text.constData(), text.size()) + expected;
    append(text);
    EXPECT_EQ(text, whole);
    EXPECT_EQ(text.constData(), room) << "the text lies elsewhere";
}

/// Appends a value to an empty text, to itself, and to the emptied text, as a table does for each cell.
template <typename Formatter, typename Value>
void expectAppendedInPlace(const Formatter& formatter, const Value& value, qsizetype room) {
    QString text;
    text.reserve(room);
    const auto append = [&](QString& out) { formatter.append(out, value); };
    expectAppendedInPlace(text, formatter.string(value), append);
    expectAppendedInPlace(text, formatter.string(value), append);
    text.resize(0);
    expectAppendedInPlace(text, formatter.string(value), append);
}

TEST(QBMoneyFormatterAppend, WritesTheSameBehindATextAndKeepsItsRoom) {
    for (const char* const name : kLocaleNames) {
        const QBMoneyFormatter formatter((QLocale(name)));
        for (const double amount :
             {0.0, 12.5, -1234.5, 0.125, -0.001, 1e15, -1e300, std::numeric_limits<double>::max()}) {
            SCOPED_TRACE(testing::Message() << name << ' ' << amount);
            expectAppendedInPlace(formatter, amount, 2 * kRoom);
        }
    }
}

TEST(QBMoneyFormatterAppend, WritesBehindATextThatIsShared) {
    const QBMoneyFormatter formatter(QLocale("en_US"));
    QString text = "Sum ";
    const QString shared = text;
    formatter.append(text, -1234.5);
    EXPECT_EQ(text, "Sum -$1,234.50");
    EXPECT_EQ(shared, "Sum ");
    formatter.append(text, -std::numeric_limits<double>::infinity());
    EXPECT_EQ(text, "Sum -$1,234.50-$inf");
}

TEST(QBDateFormatterAppend, WritesTheSameBehindATextAndKeepsItsRoom) {
    const FixedToday today(day(2014, 3, 12));
    const auto locales = QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    ASSERT_GT(locales.size(), 400);
    for (const QLocale& locale : locales) {
        const QBDateFormatter formatter(locale);
        for (const QBDate& date : {day(2014, 3, 7), day(2014, 12, 31), day(1899, 1, 1), day(812, 5, 5), day(-44, 3, 15),
                                   day(999'999'999, 5, 5)}) {
            SCOPED_TRACE(testing::Message() << locale.name().toStdString() << ' ' << testing::PrintToString(date));
            expectAppendedInPlace(formatter, date, kRoom);
        }
    }
}

TEST(QBDateFormatterAppend, WritesBehindATextThatIsShared) {
    const FixedToday today(day(2014, 3, 12));
    const QBDateFormatter formatter(QLocale("de_DE"));
    QString text = "am ";
    const QString shared = text;
    formatter.append(text, day(2014, 3, 7));
    formatter.append(text, day(-44, 3, 15));
    EXPECT_EQ(text, "am 07.03.1415.03.-0044");
    EXPECT_EQ(shared, "am ");
}

} // namespace
