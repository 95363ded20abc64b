#include "base/QBDate.h"
#include "kit/Day.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <ctime>

namespace {

/// Sets the local time zone as long as this object lives. The rule has the POSIX form, which needs no time zone files.
class LocalTime {
public:
    explicit LocalTime(const char* rule) : mPrevious(qgetenv("TZ")) {
        qputenv("TZ", rule);
        tzset();
    }
    ~LocalTime() {
        if (mPrevious.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", mPrevious);
        tzset();
    }
    LocalTime(const LocalTime&) = delete;
    LocalTime& operator=(const LocalTime&) = delete;

private:
    QByteArray mPrevious;
};

/// A zone whose clocks go forward at midnight, so that one day begins at 1:00.
constexpr const char* kNoMidnightInMarch = "AAA3BBB,M3.2.5/0,M10.1.0/0";

QDateTime utc(int year, int month, int dayOfMonth, int hour, int minute = 0) {
    return {QDate(year, month, dayOfMonth), QTime(hour, minute), Qt::UTC};
}

TEST(QBDateClock, ShowsTodayOfTheLocalCalendar) {
    const QDate before = QDate::currentDate();
    const QBDate today = QBDate::date();
    const QDate after = QDate::currentDate();
    const QDate shown(static_cast<int>(today.yearOfCommonEra()), today.monthOfYear(), today.dayOfMonth());
    EXPECT_TRUE(shown == before || shown == after);
}

TEST(QBDateClock, ShowsTodayOfTheTimeZoneInForce) {
    const QDateTime now = QDateTime::currentDateTimeUtc();
    {
        const LocalTime ahead("AAA-14");
        EXPECT_FALSE(QBDate::date().comesBefore(day(now.date().year(), now.date().month(), now.date().day())));
        EXPECT_EQ(QBDate::date(), QBDate::dateWithNSDate(QDateTime::currentDateTimeUtc()));
    }
    const LocalTime behind("AAA12");
    EXPECT_EQ(QBDate::date(), QBDate::dateWithNSDate(QDateTime::currentDateTimeUtc()));
}

TEST(QBDateClock, CanBeSetAndReleased) {
    const QBDate real = QBDate::date();
    {
        FixedToday today(day(2014, 3, 7));
        EXPECT_EQ(QBDate::date(), day(2014, 3, 7));
        today.set(day(1999, 12, 31));
        EXPECT_EQ(QBDate::date(), day(1999, 12, 31));
    }
    EXPECT_FALSE(QBDate::date().comesBefore(real));
}

struct InstantRow {
    const char* timeZone;
    QDateTime instant;
    QBDate date;
};

TEST(QBDateClock, NamesTheLocalDayOfAnInstant) {
    const InstantRow rows[]{
        {"UTC0", utc(2014, 3, 7, 0, 0), day(2014, 3, 7)},     {"UTC0", utc(2014, 3, 7, 23, 59), day(2014, 3, 7)},
        {"JST-9", utc(2014, 3, 7, 14, 59), day(2014, 3, 7)},  {"JST-9", utc(2014, 3, 7, 15, 0), day(2014, 3, 8)},
        {"JST-9", utc(2014, 12, 31, 20, 0), day(2015, 1, 1)}, {"EST5", utc(2014, 3, 7, 4, 59), day(2014, 3, 6)},
        {"EST5", utc(2014, 3, 7, 5, 0), day(2014, 3, 7)},     {"EST5", utc(2012, 3, 1, 0, 0), day(2012, 2, 29)},
        {"AAA-14", utc(2014, 2, 28, 10, 0), day(2014, 3, 1)},
    };
    for (const InstantRow& row : rows) {
        const LocalTime localTime(row.timeZone);
        EXPECT_EQ(QBDate::dateWithNSDate(row.instant), row.date) << row.timeZone;
    }
}

TEST(QBDateClock, NamesTodayForAnInvalidInstant) {
    const FixedToday today(day(2014, 3, 7));
    EXPECT_EQ(QBDate::dateWithNSDate(QDateTime()), day(2014, 3, 7));
}

TEST(QBDateClock, HandsOutTheStartOfTheDay) {
    const LocalTime localTime("JST-9");
    EXPECT_EQ(day(2014, 3, 7).nsCalendarDate().toUTC(), utc(2014, 3, 6, 15));
}

TEST(QBDateClock, HandsOutTheFirstHourOfADayWithoutMidnight) {
    const LocalTime localTime(kNoMidnightInMarch);
    const QDateTime start = day(2014, 3, 14).nsCalendarDate();
    EXPECT_EQ(start.time(), QTime(1, 0));
    EXPECT_EQ(start.toUTC(), utc(2014, 3, 14, 3));
}

TEST(QBDateClock, ReadsBackTheStartOfEveryDay) {
    for (const char* const rule : {"UTC0", "JST-9", "EST5EDT,M3.2.0,M11.1.0", kNoMidnightInMarch}) {
        const LocalTime localTime(rule);
        for (QBDate date = day(2012, 1, 1); date != day(2013, 1, 1); date = date.dateByAddingYears(0, 0, 1))
            ASSERT_EQ(QBDate::dateWithNSDate(date.nsCalendarDate()), date) << rule;
    }
}

} // namespace
