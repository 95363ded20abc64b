#include "format/QBLocaleDigits.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr qint64 kLeastNumber = std::numeric_limits<qint64>::min();
constexpr qint64 kGreatestNumber = std::numeric_limits<qint64>::max();

QString written(const QLocale& locale, qint64 number, int width) {
    QString text;
    QBLocaleDigits(locale).append(text, number, width);
    return text;
}

TEST(QBLocaleDigits, FillsANumberUpToItsWidthWithZerosBehindTheSign) {
    struct {
        qint64 number;
        int width;
        const char* text;
    } const rows[] = {{7, 1, "7"},
                      {7, 2, "07"},
                      {7, 4, "0007"},
                      {0, 0, "0"},
                      {0, 1, "0"},
                      {0, 3, "000"},
                      {123, 2, "123"},
                      {123, 3, "123"},
                      {123, 0, "123"},
                      {123, -5, "123"},
                      {1'234'567, 0, "1234567"},
                      {-5, 1, "-5"},
                      {-5, 2, "-05"},
                      {-44, 4, "-0044"},
                      {-12345, 4, "-12345"},
                      {5, 30, "000000000000000000000000000005"},
                      {kGreatestNumber, 4, "9223372036854775807"},
                      {kGreatestNumber, 20, "09223372036854775807"},
                      {kLeastNumber, 0, "-9223372036854775808"},
                      {kLeastNumber + 1, 19, "-9223372036854775807"},
                      {kLeastNumber, 21, "-009223372036854775808"}};
    for (const auto& row : rows)
        EXPECT_EQ(written(QLocale("en_US"), row.number, row.width), row.text) << row.number << " in " << row.width;
}

TEST(QBLocaleDigits, WritesTheDigitsAndTheSignOfItsLocale) {
    EXPECT_EQ(written(QLocale("ar_EG"), 907, 4), u"٠٩٠٧");
    EXPECT_EQ(written(QLocale("fa_IR"), 1'234'567'890, 0), u"۱۲۳۴۵۶۷۸۹۰");
    EXPECT_EQ(written(QLocale("sv_SE"), -5, 2), u"−05");
    for (const char* const name : {"ar_EG", "fa_IR", "he_IL"}) {
        const QLocale locale(name);
        const QString sign = locale.negativeSign();
        ASSERT_GT(sign.size(), 1) << name << " has a sign with a mark of direction";
        EXPECT_EQ(written(locale, -5, 2), sign + written(locale, 5, 2)) << name;
    }
}

TEST(QBLocaleDigits, WritesDigitsBeyondTheFirstPlane) {
    const QLocale chakma("ccp_BD");
    if (chakma.zeroDigit().size() != 2)
        GTEST_SKIP() << "no locale with such digits";
    EXPECT_EQ(written(chakma, 1'234'567'890, 0),
              QString::fromUcs4(U"\U00011137\U00011138\U00011139\U0001113A\U0001113B"
                                U"\U0001113C\U0001113D\U0001113E\U0001113F\U00011136"));
    EXPECT_EQ(written(chakma, 7, 2), QString::fromUcs4(U"\U00011136\U0001113D"));
    EXPECT_EQ(written(chakma, -7, 2), chakma.negativeSign() + QString::fromUcs4(U"\U00011136\U0001113D"));
}

TEST(QBLocaleDigits, AgreesWithTheNumbersOfEveryLocale) {
    const auto locales = QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    ASSERT_GT(locales.size(), 400);
    for (QLocale locale : locales) {
        locale.setNumberOptions(QLocale::OmitGroupSeparator);
        for (const qint64 number : {qint64(0), qint64(1'234'567'890), qint64(-98'765), kLeastNumber, kGreatestNumber})
            EXPECT_EQ(written(locale, number, 0), locale.toString(number)) << locale.name().toStdString();
    }
}

TEST(QBLocaleDigits, WritesBehindWhatIsThere) {
    const QBLocaleDigits digits(QLocale("en_US"));
    QString text = "a";
    digits.append(text, std::string_view("0042"));
    EXPECT_EQ(text, "a0042");
    digits.append(text, std::string_view());
    EXPECT_EQ(text, "a0042");
    digits.append(text, -7, 3);
    EXPECT_EQ(text, "a0042-007");
    QBLocaleDigits::appendCharacter(text, U'é');
    QBLocaleDigits::appendCharacter(text, U'\U0001F355');
    EXPECT_EQ(text, QString::fromUtf8("a0042-007é\U0001F355"));
}

TEST(QBLocaleDigits, KeepsTheRoomOfAText) {
    for (const char* const name : {"en_US", "ar_EG", "sv_SE", "ccp_BD"}) {
        const QBLocaleDigits digits((QLocale(name)));
        QString text;
        text.reserve(60);
        const QChar* const room = text.constData();
        digits.append(text, kLeastNumber, 22);
        EXPECT_EQ(text.constData(), room) << name;
        EXPECT_EQ(text, written(QLocale(name), kLeastNumber, 22)) << name;
    }
}

} // namespace
