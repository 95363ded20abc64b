#include "format/QBCalculateMoneyFormatter.h"

#include "kit/CommaLocale.h"
#include "kit/DefaultLocale.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <bit>
#include <vector>

namespace {

struct Row {
    const char* text;
    double amount;
};

void expectReadings(const QLocale& locale, const std::vector<Row>& rows) {
    const QBCalculateMoneyFormatter formatter(locale);
    for (const Row& row : rows)
        EXPECT_EQ(formatter.parse(QString::fromUtf8(row.text)), row.amount) << locale.name().toStdString() << row.text;
}

TEST(QBCalculateMoneyFormatter, Calculates) {
    expectReadings(QLocale("en_US"), {{"1+2", 3},
                                      {"12.50 + 3", 15.5},
                                      {"10-4-3", 3},
                                      {"2+3*4", 14},
                                      {"(2+3)*4", 20},
                                      {"100/8/5", 2.5},
                                      {"-(2+3)", -5},
                                      {"-2+5", 3},
                                      {"+5", 5},
                                      {"5--3", 8},
                                      {"5+-3", 2},
                                      {"2*-3", -6},
                                      {"-2*-3", 6},
                                      {"((7))", 7},
                                      {"$1,234.50 + $0.50", 1235},
                                      {"-$10 + 7 $", -3},
                                      {" ( 1 + 2 ) * 3 ", 9},
                                      {"1,000/3", 1000.0 / 3},
                                      {"0.1+0.2", 0.1 + 0.2},
                                      {"٧+١", 8}});
}

TEST(QBCalculateMoneyFormatter, TakesPercentAsAPocketCalculatorDoes) {
    expectReadings(QLocale("en_US"),
                   {{"200+10%", 220},     {"200-10%", 180},      {"50%", 0.5},        {"-50%", -0.5},
                    {"200*10%", 20},      {"200*7%", 14},        {"200*7%*1", 14},    {"200/10%", 2000},
                    {"100+100+10%", 220}, {"100+10%+10%", 121},  {"100*2+10%", 220},  {"50+200*10%", 70},
                    {"200+10%*3", 200.3}, {"200+10%/2", 200.05}, {"200+(5+5)%", 220}, {"(100+100)+10%", 220},
                    {"1+(200+10%)", 221}, {"200+-10%", 180},     {"200--10%", 220},   {"200*-10%", -20},
                    {"2*10%*30", 6},      {"$200 + 10 %", 220},  {"10%+5", 5.1},      {"(10%)+5", 5.1},
                    {"5+(10%)", 5.1}});
}

TEST(QBCalculateMoneyFormatter, ReadsAmountsAsTheLocaleWritesThem) {
    expectReadings(QLocale("de_DE"), {{"1.234,50 + 0,5", 1235},
                                      {"1.234,50 € * 2", 2469},
                                      {"1.000+1.000", 2000},
                                      {"200 + 10 %", 220},
                                      {"-€5,25-1", -6.25}});
    expectReadings(QLocale("de_CH"), {{"1’234.50 + 0.5", 1235}, {"1'000*2", 2000}, {"CHF 12.50+CHF 1", 13.5}});
    expectReadings(QLocale("fr_FR"), {{"1\u202f234,50 + 1\u202f000", 2234.5},
                                      {"1 234,50 €+0,5", 1235},
                                      {"1\u00a0000*2", 2000},
                                      {"(1 000 - 1)/3", 333}});
    expectReadings(
        QLocale("sv_SE"),
        {{"10\u22124", 6}, {"\u22122 + 5", 3}, {"1\u00a0234,5 kr \u2212 0,5", 1234}, {"200\u221210 %", 180}});
    expectReadings(QLocale("es_PE"), {{"S/12.50 + S/ 2.50", 15}, {"S/30/3", 10}});
    expectReadings(QLocale("ar_EG"), {{"٢٠٠+١٠٪", 220}});
}

TEST(QBCalculateMoneyFormatter, TakesTheLocaleCForUSEnglish) {
    const DefaultLocale c(QLocale::c());
    const QBCalculateMoneyFormatter formatter;
    EXPECT_EQ(formatter.parse(u"$1,234.50 + 1"), 1235.5);
    EXPECT_EQ(formatter.string(-1234.5), "-$1,234.50");
}

TEST(QBCalculateMoneyFormatter, CalculatesWithAmountsAsItWritesThemInEveryLocale) {
    const auto locales = QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    ASSERT_GT(locales.size(), 400);
    for (const QLocale& locale : locales) {
        const QBCalculateMoneyFormatter formatter(locale);
        const QString text = formatter.string(-1234567.25) + '*' + formatter.string(2) + " + " + formatter.string(0.5);
        EXPECT_EQ(formatter.parse(text), -2469134.0) << locale.name().toStdString() << ' ' << text.toStdString();
    }
}

TEST(QBCalculateMoneyFormatter, IsNotMisledByADecimalCommaOfTheProcess) {
    const CommaLocale comma;
    if (!comma.isInForce())
        GTEST_SKIP() << "no locale with a decimal comma";
    expectReadings(QLocale("en_US"), {{"1.5+0.25", 1.75}, {"1,000.5*2", 2001}});
}

TEST(QBCalculateMoneyFormatter, ReadsPlainAmountsBitForBitAsThePlainFormatter) {
    const QBMoneyFormatter plain(QLocale("en_US"));
    const QBCalculateMoneyFormatter formatter(QLocale("en_US"));
    const QString longest(300, '9');
    for (const QString& text : {QStringLiteral("0.1"), QStringLiteral("-0"), QStringLiteral("-$1,234.565"),
                                QStringLiteral("123456789012345678"), QStringLiteral("$-5"), longest}) {
        const auto expected = plain.parse(text);
        const auto read = formatter.parse(text);
        ASSERT_TRUE(expected && read) << text.toStdString();
        EXPECT_EQ(std::bit_cast<quint64>(*read), std::bit_cast<quint64>(*expected)) << text.toStdString();
        EXPECT_EQ(formatter.result(text), std::nullopt) << text.toStdString() << " is no arithmetic";
    }
    EXPECT_EQ(formatter.result(u"1+1"), 2.0);
}

TEST(QBCalculateMoneyFormatter, NeverGuessesAtATextThatIsNoArithmetic) {
    const std::vector<const char*> texts{
        "",        " ",       "+",        "-",      "%",       "()",       "(",         ")",        "(1",   "1)",
        "1+",      "*2",      "1**2",     "2^3",    "1//2",    "1 2+3",    "2(3)",      "(2)(3)",   "(2)3", "1,23+1",
        "1+2=3",   "a=5",     "x+1",      "sin(1)", "pi*2",    "_pi+1",    "_e",        "1<2",      "1==1", "1?2:3",
        "1&&1",    "\"a\"+1", "1e3+1",    "0x10+1", "1,2",     "max(1,2)", "10%%",      "200+10%%", "%5",   "5+%",
        "5%5",     "5%(2)",   "nan+1",    "inf+1",  "1.2.3+1", "12x+1",    "1;2",       "1+2\n+x",  "#1+2", "--5",
        "12.50+€", "$+1",     "1'000+1.", "1 +% 2", "(1+2",    "1+2)",     "\u0000 1+x"};
    const QBCalculateMoneyFormatter formatter(QLocale("en_US"));
    for (const char* const text : texts)
        EXPECT_EQ(formatter.parse(QString::fromUtf8(text)), std::nullopt) << text;
}

TEST(QBCalculateMoneyFormatter, HasNoResultWhereAStepHasNone) {
    const QString huge = '1' + QString(120, '0');
    const QBCalculateMoneyFormatter formatter(QLocale("en_US"));
    for (const QString& text :
         {QStringLiteral("1/0"), QStringLiteral("0/0"), QStringLiteral("-1/0"), QStringLiteral("1/(1/0)"),
          QStringLiteral("5/(2-2)"), QStringLiteral("0*(1/0)"), QStringLiteral("5/0%"), QStringLiteral("1/0+10%"),
          huge + '*' + huge + "*1" + QString(100, '0'), "1/(" + huge + '*' + huge + "*1" + QString(70, '0') + ')'})
        EXPECT_EQ(formatter.parse(text), std::nullopt) << text.toStdString();
}

TEST(QBCalculateMoneyFormatter, RefusesWhatIsTooLongOrTooDeep) {
    const QBCalculateMoneyFormatter formatter(QLocale("en_US"));
    const auto nested = [](int depth) { return QString(depth, '(') + '1' + QString(depth, ')'); };
    EXPECT_EQ(formatter.parse(nested(32)), 1.0);
    EXPECT_EQ(formatter.parse(nested(33)), std::nullopt);
    const auto sum = [](int terms) { return QStringLiteral("1+").repeated(terms - 1) + '1'; };
    EXPECT_EQ(formatter.parse(sum(128)), 128.0);
    EXPECT_EQ(formatter.parse(sum(129)), std::nullopt);
    EXPECT_EQ(formatter.parse(QString(1'000'000, '(')), std::nullopt);
}

TEST(QBCalculateMoneyFormatter, WritesMoneyAsThePlainFormatter) {
    EXPECT_EQ(QBCalculateMoneyFormatter(QLocale("de_DE")).string(-1234.5), "-€1.234,50");
}

} // namespace
