#include "versions/CVSuperfluousVersions.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 kNoLimit = std::numeric_limits<qint64>::max();
const QDateTime kToday(QDate(2026, 11, 22), QTime(14, 0));

CVVersion version(const QDateTime& kept, qint64 size = 1) {
    return {kept.toString(Qt::ISODate), {kept, 1, CVVersionReason::Hourly}, size};
}

/// The times that stay, as text, newest first. `times` are in that order too.
QStringList staying(const QList<CVVersion>& versions, qint64 limit = kNoLimit) {
    QStringList stay;
    const QList<CVVersion> superfluous = CVSuperfluousVersions(versions, kToday, limit);
    for (const CVVersion& each : versions) {
        const bool goes = std::any_of(superfluous.begin(), superfluous.end(),
                                      [&each](const CVVersion& other) { return other.path == each.path; });
        if (!goes)
            stay.append(each.name.kept.toString(QStringLiteral("yy-MM-dd HH:mm")));
    }
    EXPECT_EQ(stay.size() + superfluous.size(), versions.size());
    return stay;
}

QList<CVVersion> at(std::initializer_list<const char*> times) {
    QList<CVVersion> versions;
    for (const char* time : times)
        versions.append(version(QDateTime::fromString(QString::fromLatin1(time), QStringLiteral("yyyy-MM-dd HH:mm"))));
    return versions;
}

TEST(CVSuperfluousVersions, spareAllOfTheLastDay) {
    EXPECT_EQ(staying(at({"2026-11-22 13:59", "2026-11-22 13:58", "2026-11-22 00:00", "2026-11-21 23:00",
                          "2026-11-21 14:01"}))
                  .size(),
              5);
}

TEST(CVSuperfluousVersions, spareTheFirstOfADayForAMonth) {
    EXPECT_EQ(staying(at({"2026-11-22 13:00", "2026-11-21 13:00", "2026-11-21 09:00", "2026-11-20 18:00",
                          "2026-11-20 12:00", "2026-11-20 00:00", "2026-10-23 10:00", "2026-10-23 09:00"})),
              QStringList({"26-11-22 13:00", "26-11-21 09:00", "26-11-20 00:00", "26-10-23 09:00"}));
}

TEST(CVSuperfluousVersions, spareTheFirstOfAMonthForTwoYears) {
    EXPECT_EQ(staying(at({"2026-11-22 13:00", "2026-10-23 09:00", "2026-10-21 09:00", "2026-10-02 09:00",
                          "2026-09-30 09:00", "2025-09-30 09:00", "2025-09-29 09:00", "2024-11-23 09:00"})),
              QStringList({"26-11-22 13:00", "26-10-23 09:00", "26-10-02 09:00", "26-09-30 09:00", "25-09-29 09:00",
                           "24-11-23 09:00"}));
}

TEST(CVSuperfluousVersions, spareTheFirstOfAYearFromThenOn) {
    EXPECT_EQ(staying(at({"2026-11-22 13:00", "2024-11-21 09:00", "2024-10-01 09:00", "2024-01-01 09:00",
                          "2023-12-31 09:00", "2010-05-05 09:00"})),
              QStringList({"26-11-22 13:00", "24-01-01 09:00", "23-12-31 09:00", "10-05-05 09:00"}));
}

TEST(CVSuperfluousVersions, neverAreTheNewestNorTheOnlyOne) {
    EXPECT_EQ(staying(at({"2020-05-05 13:00", "2020-05-05 09:00", "2020-05-05 08:00"})),
              QStringList({"20-05-05 13:00", "20-05-05 08:00"}));
    EXPECT_EQ(staying({version(kToday.addYears(-9), 1000)}, 10).size(), 1);
    EXPECT_EQ(staying({version(kToday, 1000), version(kToday.addSecs(-1), 1)}, 10), QStringList({"26-11-22 14:00"}));
    EXPECT_EQ(staying({}).size(), 0);
}

TEST(CVSuperfluousVersions, areTheOldestAboveTheLimit) {
    const QList<CVVersion> versions{version(kToday, 40), version(kToday.addSecs(-60), 30),
                                    version(kToday.addSecs(-120), 20), version(kToday.addSecs(-180), 10)};
    EXPECT_EQ(staying(versions, 100).size(), 4);
    EXPECT_EQ(staying(versions, 99).size(), 3);
    EXPECT_EQ(staying(versions, 90).size(), 3);
    EXPECT_EQ(staying(versions, 89).size(), 2);
    EXPECT_EQ(staying(versions, 69).size(), 1);
    EXPECT_EQ(staying(versions, 0).size(), 1);
}

TEST(CVSuperfluousVersions, spareTheNewestBehindThoseOfTheFuture) {
    const QList<CVVersion> versions{version(kToday.addYears(1), 40), version(kToday.addYears(1).addSecs(-1), 40),
                                    version(kToday.addSecs(-60), 30), version(kToday.addSecs(-120), 20)};
    EXPECT_EQ(staying(versions, 30), QStringList({"26-11-22 13:59"}));
}

TEST(CVSuperfluousVersions, ofTheFutureStay) {
    EXPECT_EQ(staying(at({"2031-01-01 10:00", "2031-01-01 09:00", "2026-11-22 13:00"})).size(), 3);
}

/// What stood at the end of a day of use is kept by the first version of the next one, so for a month no day's end is
/// lost, however often versions are thinned meanwhile.
RC_GTEST_PROP(CVSuperfluousVersionsProperty, leaveTheFirstOfEachDayHoweverOftenTheyAreThinned, ()) {
    QDateTime now = kToday;
    QList<CVVersion> versions;
    QMap<QDate, QDateTime> firsts;
    const auto steps = *rc::gen::inRange(1, 80);
    for (int i = 0; i < steps; ++i) {
        now = now.addSecs(*rc::gen::inRange(1, 90'000));
        versions.prepend(version(now));
        if (!firsts.contains(now.date()))
            firsts[now.date()] = now;
        const QList<CVVersion> superfluous = CVSuperfluousVersions(versions, now, kNoLimit);
        versions.removeIf([&](const CVVersion& each) {
            return std::any_of(superfluous.begin(), superfluous.end(),
                               [&each](const CVVersion& other) { return other.path == each.path; });
        });
        for (const QDateTime& first : firsts) {
            const bool isThere = std::any_of(versions.begin(), versions.end(),
                                             [&first](const CVVersion& each) { return each.name.kept == first; });
            RC_ASSERT(isThere || first <= now.addDays(-31));
        }
    }
}

} // namespace
