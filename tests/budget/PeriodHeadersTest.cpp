#include "budget/CVDisplayPeriods.h"
#include "kit/Day.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <gmock/gmock.h>

#include <array>

namespace {

using testing::ElementsAre;

std::vector<QString> texts(const CVDisplayPeriods& periods) {
    std::vector<QString> texts;
    for (int n = 1; n <= periods.numberOfColumnsForDisplayPeriod(); ++n)
        texts.push_back(periods.header(n).text);
    return texts;
}

/// The columns that are highlighted as today's.
std::vector<int> today(const CVDisplayPeriods& periods) {
    std::vector<int> columns;
    for (int n = 1; n <= periods.numberOfColumnsForDisplayPeriod(); ++n) {
        if (periods.header(n).holdsToday)
            columns.push_back(n);
    }
    return columns;
}

struct HeadersInEnglish : testing::Test {
    DefaultLocale locale{QLocale(QLocale::English, QLocale::UnitedStates)};
    /// Today decides which years are written with two digits.
    FixedToday clock{day(2014, 3, 5)};
    QBDate wednesday = day(2014, 3, 5);
};

TEST_F(HeadersInEnglish, NameTheWeekdaysFromTheStartDayOn) {
    EXPECT_THAT(texts({CVDisplayPeriods::Day, wednesday, {0, 0}}),
                ElementsAre("Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"));
    EXPECT_THAT(texts({CVDisplayPeriods::Day, wednesday, {1, 0}}),
                ElementsAre("Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"));
    EXPECT_THAT(texts({CVDisplayPeriods::Day, wednesday, {6, 0}}),
                ElementsAre("Saturday", "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday"));
}

TEST_F(HeadersInEnglish, NameTheWeekdaysOfTheirColumns) {
    for (int startDay = -1; startDay <= 8; ++startDay) {
        const CVDisplayPeriods periods(CVDisplayPeriods::Day, wednesday, {startDay, 0});
        for (int n = 1; n <= 7; ++n) {
            const int weekday = periods.computeColumnStartDateForColumn(n).dayOfWeek();
            EXPECT_EQ(periods.header(n).text, QLocale(QLocale::English).dayName(weekday == 0 ? 7 : weekday));
        }
    }
}

TEST_F(HeadersInEnglish, MarkTheDayOfTodayWhileItIsShown) {
    for (int startDay = 0; startDay < 7; ++startDay) {
        CVDisplayPeriods periods(CVDisplayPeriods::Day, wednesday, {startDay, 0});
        EXPECT_THAT(today(periods), ElementsAre((3 - startDay + 7) % 7 + 1)) << startDay;
        periods.next();
        EXPECT_THAT(today(periods), ElementsAre()) << startDay;
        periods.previous();
        periods.previous();
        EXPECT_THAT(today(periods), ElementsAre()) << startDay;
    }
}

TEST_F(HeadersInEnglish, NameTheWeeksByTheirFirstAndLastDayWithoutAYear) {
    EXPECT_THAT(texts({CVDisplayPeriods::Week, wednesday, {0, 1}}),
                ElementsAre("2/23 - 3/1", "3/2 - 3/8", "3/9 - 3/15", "3/16 - 3/22"));
    EXPECT_THAT(texts({CVDisplayPeriods::TwoWeeks, wednesday, {}}),
                ElementsAre("2/23 - 3/8", "3/9 - 3/22", "3/23 - 4/5", "4/6 - 4/19"));
}

TEST_F(HeadersInEnglish, MarkTheWeekThatHoldsToday) {
    struct Row {
        QBDate today;
        int firstColumnIsBefore;
        std::vector<int> marked;
    };
    const std::array rows{
        Row{day(2014, 3, 2), 0, {1}}, Row{day(2014, 3, 5), 0, {1}}, Row{day(2014, 3, 8), 0, {1}},
        Row{day(2014, 3, 8), 3, {4}}, Row{day(2014, 3, 5), 4, {}},  Row{day(2014, 3, 5), -1, {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(today({CVDisplayPeriods::Week, row.today, {0, row.firstColumnIsBefore}}), row.marked);
        EXPECT_EQ(today({CVDisplayPeriods::TwoWeeks, row.today, {0, row.firstColumnIsBefore}}), row.marked);
    }
}

TEST_F(HeadersInEnglish, NameTheMonthsWithTheirYear) {
    EXPECT_THAT(texts({CVDisplayPeriods::Month, wednesday, {0, 4}}),
                ElementsAre("November 2013", "December 2013", "January 2014", "February 2014"));
    EXPECT_THAT(texts({CVDisplayPeriods::Month, day(2026, 3, 31), {}}),
                ElementsAre("March 2026", "April 2026", "May 2026", "June 2026"));
    EXPECT_THAT(texts({CVDisplayPeriods::Month, day(9999, 12, 31), {}}),
                ElementsAre("December 9999", "January 10000", "February 10000", "March 10000"));
    EXPECT_THAT(texts({CVDisplayPeriods::Month, day(0, 1, 1), {0, 1}}),
                ElementsAre("December -1", "January 0", "February 0", "March 0"));
}

TEST_F(HeadersInEnglish, MarkTheMonthOfToday) {
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 3, 15), {0, 1}}), ElementsAre(2));
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 3, 15), {0, 3}}), ElementsAre(4));
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 3, 15), {0, 4}}), ElementsAre());
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 3, 15), {0, -1}}), ElementsAre());
    // One year earlier, and one year later.
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 3, 15), {0, 12}}), ElementsAre());
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 3, 15), {0, -12}}), ElementsAre());
}

TEST_F(HeadersInEnglish, MarkTheMonthOfTodayInAnotherYearWhenTodaysYearIsShownToo) {
    // November 2014 to February 2015.
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 1, 10), {0, -10}}), ElementsAre(3));
    // November 2013 to February 2014.
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 11, 10), {0, 12}}), ElementsAre(1));
    // January to April 2015.
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 1, 10), {0, -12}}), ElementsAre());
    // September to December 2013.
    EXPECT_THAT(today({CVDisplayPeriods::Month, day(2014, 11, 10), {0, 14}}), ElementsAre());
}

TEST_F(HeadersInEnglish, KeepTheDayOnWhichThePeriodsWereMade) {
    const CVDisplayPeriods periods(CVDisplayPeriods::Week, wednesday, {});
    clock.set(day(2014, 3, 12));
    EXPECT_THAT(today(periods), ElementsAre(1));
}

TEST_F(HeadersInEnglish, StandAboveARangeLineWithTheFirstAndTheLastDayInFull) {
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Day, wednesday, {1, 0}).displayRangeText(),
              QStringLiteral("3/3/14 thru 3/9/14"));
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Week, wednesday, {}).displayRangeText(),
              QStringLiteral("3/2/14 thru 3/29/14"));
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::TwoWeeks, wednesday, {}).displayRangeText(),
              QStringLiteral("2/23/14 thru 4/19/14"));
    EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Month, wednesday, {0, 4}).displayRangeText(),
              QStringLiteral("11/1/13 thru 2/28/14"));
}

struct LocaleRow {
    QLocale locale;
    const char16_t* firstDay;
    const char16_t* firstWeek;
    const char16_t* firstMonth;
    const char16_t* range;
};

TEST(PeriodHeaders, AreWrittenAsTheLocaleWritesDaysAndMonths) {
    const FixedToday clock(day(2014, 3, 5));
    const std::array rows{
        LocaleRow{QLocale(QLocale::English, QLocale::UnitedStates), u"Sunday", u"3/2 - 3/8", u"March 2014",
                  u"3/2/14 thru 3/29/14"},
        LocaleRow{QLocale::c(), u"Sunday", u"3/2 - 3/8", u"March 2014", u"3/2/14 thru 3/29/14"},
        LocaleRow{QLocale(QLocale::German, QLocale::Germany), u"Sonntag", u"02.03 - 08.03", u"März 2014",
                  u"02.03.14 thru 29.03.14"},
        LocaleRow{QLocale(QLocale::Japanese, QLocale::Japan), u"日曜日", u"03/02 - 03/08", u"3月 2014",
                  u"2014/03/02 thru 2014/03/29"},
        LocaleRow{QLocale(QLocale::Arabic, QLocale::Egypt), u"الأحد", u"٢\u200f/٣ - ٨\u200f/٣", u"مارس 2014",
                  u"٢\u200f/٣\u200f/٢٠١٤ thru ٢٩\u200f/٣\u200f/٢٠١٤"},
    };
    for (const LocaleRow& row : rows) {
        SCOPED_TRACE(row.locale.name().toStdString());
        const DefaultLocale locale(row.locale);
        const QBDate wednesday = day(2014, 3, 5);
        const CVDisplayPeriods weeks(CVDisplayPeriods::Week, wednesday, {});
        EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Day, wednesday, {}).header(1).text,
                  QString::fromUtf16(row.firstDay));
        EXPECT_EQ(weeks.header(1).text, QString::fromUtf16(row.firstWeek));
        EXPECT_EQ(CVDisplayPeriods(CVDisplayPeriods::Month, wednesday, {}).header(1).text,
                  QString::fromUtf16(row.firstMonth));
        EXPECT_EQ(weeks.displayRangeText(), QString::fromUtf16(row.range));
    }
}

} // namespace
