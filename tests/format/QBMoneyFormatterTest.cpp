#include "format/QBMoneyFormatter.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

const QLocale kGermany(QLocale::German, QLocale::Germany);

TEST(QBMoneyFormatter, WritesSignSymbolGroupsAndTwoDecimals) {
    struct {
        double amount;
        const char* text;
    } const rows[] = {{0, "$0.00"},           {0.009, "$0.01"},          {0.004, "$0.00"},        {-0.004, "$0.00"},
                      {-0.0, "$0.00"},        {1234.5, "$1,234.50"},     {-1234.5, "-$1,234.50"}, {-0.01, "-$0.01"},
                      {999.999, "$1,000.00"}, {1e9, "$1,000,000,000.00"}};
    const QBMoneyFormatter formatter;
    for (const auto& row : rows)
        EXPECT_EQ(formatter.string(row.amount), row.text);
}

TEST(QBMoneyFormatter, UsesTheSignsOfItsLocaleAtTheSamePlaces) {
    EXPECT_EQ(QBMoneyFormatter(kGermany).string(-1234.5), "-€1.234,50");
    EXPECT_EQ(QBMoneyFormatter(QLocale(QLocale::Swedish, QLocale::Sweden)).string(-1234.5), "−kr1\u00a0234,50");
    EXPECT_EQ(QBMoneyFormatter(QLocale(QLocale::English, QLocale::UnitedKingdom)).string(2), "£2.00");
}

TEST(QBMoneyFormatter, ReadsTheLocalesCAndPosixAsUSEnglish) {
    const QLocale before;
    for (const char* const name : {"C", "POSIX"}) {
        QLocale::setDefault(QLocale(name));
        EXPECT_EQ(QBMoneyFormatter().string(-1234.5), "-$1,234.50") << name;
    }
    QLocale::setDefault(before);
}

TEST(QBMoneyFormatter, ReadsAmountsAsPeopleTypeThem) {
    struct {
        const char* text;
        double amount;
    } const rows[] = {{"0", 0},
                      {"12", 12},
                      {"12.5", 12.5},
                      {".5", 0.5},
                      {"5.", 5},
                      {"0.009", 0.009},
                      {"1234.50", 1234.5},
                      {"1,234.50", 1234.5},
                      {"12,345,678", 12345678},
                      {"$1,234.50", 1234.5},
                      {"-$1,234.50", -1234.5},
                      {"$-5", -5},
                      {"-5", -5},
                      {"− 5", -5},
                      {"  7 ", 7},
                      {"7 $", 7},
                      {"٧", 7}};
    const QBMoneyFormatter formatter;
    for (const auto& row : rows)
        EXPECT_EQ(formatter.parse(QString::fromUtf8(row.text)), row.amount) << row.text;
}

TEST(QBMoneyFormatter, NeverGuessesAtATextThatIsNoAmount) {
    const std::vector<const char*> texts{
        "",       " ",     "$",        "-",   ".",   "x",   "12x", "x12",  "1 2", "1,23", "12,34", ",123",   "1,,234",
        "1,2345", "1.2.3", "1.234,50", "--5", "1e5", "nan", "inf", "0x10", "5-",  "+5",   "5,",    "1,234,", "1.5,000"};
    const QBMoneyFormatter formatter;
    for (const char* const text : texts)
        EXPECT_EQ(formatter.parse(QString::fromUtf8(text)), std::nullopt) << text;
    EXPECT_EQ(formatter.parse(QString(400, '9')), std::nullopt) << "beyond the range of numbers";
}

TEST(QBMoneyFormatter, ReadsTheMarksOfItsLocale) {
    const QBMoneyFormatter formatter(kGermany);
    EXPECT_EQ(formatter.parse(u"1.234,50"), 1234.5);
    EXPECT_EQ(formatter.parse(u"1.234,50 €"), 1234.5);
    EXPECT_EQ(formatter.parse(u"1.234"), 1234.0);
    EXPECT_EQ(formatter.parse(u"12.50"), std::nullopt) << "a group of two digits";
    EXPECT_EQ(QBMoneyFormatter(QLocale(QLocale::French, QLocale::France)).parse(u"1 234,5"), 1234.5);
    EXPECT_EQ(QBMoneyFormatter(QLocale(QLocale::German, QLocale::Switzerland)).parse(u"1'234.5"), 1234.5);
}

TEST(QBMoneyFormatter, ReadsWhatItWritesInEveryLocale) {
    const auto locales = QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    ASSERT_GT(locales.size(), 400);
    for (const QLocale& locale : locales) {
        const QBMoneyFormatter formatter(locale);
        for (const double amount : {0.0, 0.07, 1234567.89, -45.5}) {
            const QString text = formatter.string(amount);
            EXPECT_EQ(formatter.parse(text), amount) << locale.name().toStdString() << ' ' << text.toStdString();
        }
    }
}

TEST(QBMoneyFormatter, WritesAmountsBeyondAllMeasure) {
    const QBMoneyFormatter formatter;
    EXPECT_TRUE(formatter.string(1e308).startsWith("$"));
    EXPECT_EQ(formatter.string(-std::numeric_limits<double>::infinity()), "-$inf");
    EXPECT_EQ(formatter.string(std::numeric_limits<double>::quiet_NaN()), "$nan");
}

} // namespace
