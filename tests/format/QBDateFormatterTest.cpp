#include "format/QBDateFormatter.h"

#include "kit/Day.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

const QLocale kAmerican(QLocale::English, QLocale::UnitedStates);
const QLocale kBritish(QLocale::English, QLocale::UnitedKingdom);
const QLocale kGerman(QLocale::German, QLocale::Germany);
const QLocale kHungarian(QLocale::Hungarian, QLocale::Hungary);

class QBDateFormatterTest : public testing::Test {
protected:
    FixedToday mToday{day(2014, 3, 12)};
};

TEST_F(QBDateFormatterTest, WritesTheShortFormOfItsLocale) {
    EXPECT_EQ(QBDateFormatter(kAmerican).string(day(2014, 3, 7)), "3/7/14");
    EXPECT_EQ(QBDateFormatter(kBritish).string(day(2014, 3, 7)), "07/03/2014");
    EXPECT_EQ(QBDateFormatter(kGerman).string(day(2014, 3, 7)), "07.03.14");
    EXPECT_EQ(QBDateFormatter(kHungarian).string(day(2014, 3, 7)), "2014. 03. 07.");
    EXPECT_EQ(QBDateFormatter(QLocale(QLocale::Bulgarian, QLocale::Bulgaria)).string(day(2014, 3, 7)), "7.03.14 г.");
    EXPECT_EQ(QBDateFormatter().string(day(2014, 3, 7)), "3/7/14") << "the C locale reads as US English";
}

TEST_F(QBDateFormatterTest, WritesOutAYearThatTwoDigitsWouldNotBringBack) {
    const QBDateFormatter formatter(kAmerican);
    EXPECT_EQ(formatter.string(day(2034, 1, 1)), "1/1/34");
    EXPECT_EQ(formatter.string(day(2035, 1, 1)), "1/1/2035");
    EXPECT_EQ(formatter.string(day(1935, 1, 1)), "1/1/35");
    EXPECT_EQ(formatter.string(day(1934, 1, 1)), "1/1/1934");
    EXPECT_EQ(formatter.string(day(812, 5, 5)), "5/5/0812");
    EXPECT_EQ(formatter.string(day(0, 5, 5)), "5/5/0000");
    EXPECT_EQ(formatter.string(day(10000, 5, 5)), "5/5/10000");
    EXPECT_EQ(formatter.string(day(999999999, 5, 5)), "5/5/999999999");
    EXPECT_EQ(formatter.string(day(-44, 3, 15)), "3/15/-0044");
}

TEST_F(QBDateFormatterTest, FillsInTheMonthAndTheYearThatAreNotTyped) {
    const QBDateFormatter formatter(kAmerican);
    EXPECT_EQ(formatter.parse(u"7"), day(2014, 3, 7));
    EXPECT_EQ(formatter.parse(u"4/7"), day(2014, 4, 7));
    EXPECT_EQ(formatter.parse(u"3/7/14"), day(2014, 3, 7));
    EXPECT_EQ(formatter.parse(u"3/7/2014"), day(2014, 3, 7));
    EXPECT_EQ(formatter.parse(u"3/7/0812"), day(812, 3, 7));
}

TEST_F(QBDateFormatterTest, TakesTwoDigitsOfAYearFromEightyBackToTwentyAhead) {
    const QBDateFormatter formatter(kAmerican);
    EXPECT_EQ(formatter.parse(u"1/1/34"), day(2034, 1, 1));
    EXPECT_EQ(formatter.parse(u"1/1/35"), day(1935, 1, 1));
    EXPECT_EQ(formatter.parse(u"1/1/99"), day(1999, 1, 1));
    EXPECT_EQ(formatter.parse(u"1/1/00"), day(2000, 1, 1));
    EXPECT_EQ(formatter.parse(u"1/1/5"), day(2005, 1, 1));
}

TEST_F(QBDateFormatterTest, TakesTheFieldsInTheOrderOfItsLocale) {
    EXPECT_EQ(QBDateFormatter(kBritish).parse(u"7/4"), day(2014, 4, 7));
    EXPECT_EQ(QBDateFormatter(kGerman).parse(u"7.4."), day(2014, 4, 7));
    EXPECT_EQ(QBDateFormatter(kGerman).parse(u"7.4.15"), day(2015, 4, 7));
    EXPECT_EQ(QBDateFormatter(kHungarian).parse(u"15-4-7"), day(2015, 4, 7));
    EXPECT_EQ(QBDateFormatter(kHungarian).parse(u"4-7"), day(2014, 4, 7));
    EXPECT_EQ(QBDateFormatter(kBritish).parse(u"2015-04-07"), day(2015, 4, 7)) << "the year first, in any locale";
}

TEST_F(QBDateFormatterTest, TakesAnyUsualSeparator) {
    const QBDateFormatter formatter(kAmerican);
    for (const char* const text : {"4-7-15", "4.7.15", "4 7 15", " 4 / 7 / 15 ", "4, 7, 15"})
        EXPECT_EQ(formatter.parse(QString::fromLatin1(text)), day(2015, 4, 7)) << text;
}

TEST_F(QBDateFormatterTest, RefusesWhatIsNoDayOfTheCalendar) {
    const QBDateFormatter formatter(kAmerican);
    for (const char* const text : {"",          " ",
                                   "x",         "7x",
                                   "x7",        "-7",
                                   "/",         "0",
                                   "32",        "13/1",
                                   "0/1",       "2/30",
                                   "2/29/2015", "1/1/20144",
                                   "1/1/201",   "201/1/1",
                                   "1/001",     "1/2/3/4",
                                   "777",       "20150407",
                                   "1:2:15",    "99999999999999999999"})
        EXPECT_EQ(formatter.parse(QString::fromLatin1(text)), std::nullopt) << text;
    EXPECT_EQ(formatter.parse(u"2/29/16"), day(2016, 2, 29));
}

TEST_F(QBDateFormatterTest, NamesTheSeparatorOfItsLocale) {
    EXPECT_EQ(QBDateFormatter(kAmerican).dateSeparator(), "/");
    EXPECT_EQ(QBDateFormatter(kGerman).dateSeparator(), ".");
    EXPECT_EQ(QBDateFormatter(kHungarian).dateSeparator(), ".");
}

TEST_F(QBDateFormatterTest, WritesAndReadsAMonthInLettersAsItsNumber) {
    EXPECT_EQ(QBDateFormatter(QStringLiteral("d MMM yyyy"), kAmerican).string(day(2026, 11, 21)), "21 11 2026");
    EXPECT_EQ(QBDateFormatter(QStringLiteral("dd MMMM yy"), kAmerican).string(day(2026, 3, 7)), "07 03 26");
    EXPECT_EQ(QBDateFormatter(QStringLiteral("d MMM yyyy"), kAmerican).parse(u"21 11 2026"), day(2026, 11, 21));
}

/// One locale for each date format.
QList<QLocale> localesOfDifferentDates() {
    QList<QLocale> locales;
    QSet<QString> forms;
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        const QString form = QBDateFormatter::shortDateFormat(locale) + locale.zeroDigit() + locale.negativeSign();
        if (!forms.contains(form))
            locales.append(locale);
        forms.insert(form);
    }
    return locales;
}

TEST_F(QBDateFormatterTest, ReadsWhatItWritesInEveryLocale) {
    const QList<QLocale> locales = localesOfDifferentDates();
    ASSERT_GT(locales.size(), 40);
    for (const QLocale& locale : locales) {
        const DefaultLocale inForce(locale);
        const QBDateFormatter formatter;
        QList<QBDate> dates{day(812, 5, 5),   day(1899, 12, 31), day(1934, 2, 3), day(1935, 2, 3),
                            day(2034, 11, 2), day(2035, 11, 2),  day(9999, 9, 9)};
        for (QBDate date = day(2024, 1, 1); date.comesBefore(day(2025, 1, 1)); date = date.dateByAddingYears(0, 0, 1))
            dates.append(date);
        for (const QBDate& date : dates) {
            const QString text = formatter.string(date);
            ASSERT_EQ(formatter.parse(text), date) << locale.name().toStdString() << ' ' << text.toStdString();
            ASSERT_EQ(formatter.countForeignCharacters(text), 0) << text.toStdString();
        }
    }
}

/// The C locale's format is replaced by another locale's, so no other locale may have the C locale's format.
TEST_F(QBDateFormatterTest, TheFormOfTheCLocaleIsThatOfNoOther) {
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        EXPECT_EQ(QBDateFormatter::shortDateFormat(locale) == QBDateFormatter::shortDateFormat(QLocale::c()),
                  locale.language() == QLocale::C)
            << locale.name().toStdString();
    }
}

} // namespace
