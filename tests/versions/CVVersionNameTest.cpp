#include "versions/CVVersionName.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

const QString kDataFile = QStringLiteral("Corvella Data.corvella");

QDateTime at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return {QDate(year, month, day), QTime(hour, minute, second)};
}

struct NameRow {
    const char* fileName;
    QDateTime kept;
    int number;
    CVVersionReason reason;
};

TEST(CVVersionName, isReadAsItIsWritten) {
    const NameRow rows[]{
        {"Corvella Data 2026-11-22 140207 (first change of the day).corvella", at(2026, 11, 22, 14, 2, 7), 1,
         CVVersionReason::FirstOfDay},
        {"Corvella Data 2026-01-02 000000 (hourly).corvella", at(2026, 1, 2), 1, CVVersionReason::Hourly},
        {"Corvella Data 2026-01-02 235959 2 (before removing).corvella", at(2026, 1, 2, 23, 59, 59), 2,
         CVVersionReason::Removal},
        {"Corvella Data 2026-01-02 010203 100 (before deleting).corvella", at(2026, 1, 2, 1, 2, 3), 100,
         CVVersionReason::Deletion},
        {"Corvella Data 2026-01-02 010203 (before clearing).corvella", at(2026, 1, 2, 1, 2, 3), 1,
         CVVersionReason::Clearing},
        {"Corvella Data 2026-01-02 010203 (before importing).corvella", at(2026, 1, 2, 1, 2, 3), 1,
         CVVersionReason::Import},
        {"Corvella Data 2026-01-02 010203 (before moving).corvella", at(2026, 1, 2, 1, 2, 3), 1, CVVersionReason::Move},
        {"Corvella Data 2026-01-02 010203 (before returning).corvella", at(2026, 1, 2, 1, 2, 3), 1,
         CVVersionReason::Return},
        {"Corvella Data 2026-01-02 010203 (before taking over).corvella", at(2026, 1, 2, 1, 2, 3), 1,
         CVVersionReason::TakingOver},
        {"Corvella Data 2026-01-02 010203 (interrupted save).corvella", at(2026, 1, 2, 1, 2, 3), 1,
         CVVersionReason::Interruption},
    };
    for (const NameRow& row : rows) {
        const CVVersionName name{row.kept, row.number, row.reason};
        EXPECT_EQ(name.fileName(kDataFile), QString::fromLatin1(row.fileName));
        const auto read = CVVersionName::parse(QString::fromLatin1(row.fileName), kDataFile);
        ASSERT_TRUE(read) << row.fileName;
        EXPECT_EQ(read->kept, row.kept) << row.fileName;
        EXPECT_EQ(read->number, row.number) << row.fileName;
        EXPECT_EQ(read->reason, row.reason) << row.fileName;
    }
}

TEST(CVVersionName, isNoneOfAnotherKind) {
    for (const char* name :
         {"", "Corvella Data.corvella", "Corvella Data 2026-01-02 010203.corvella",
          "Corvella Data 2026-01-02 010203 (hourly)", "Corvella Data 2026-01-02 010203 (hourly).xml",
          "Corvella Data 2026-13-02 010203 (hourly).corvella", "Corvella Data 2026-01-02 010203 (weekly).corvella",
          "Corvella Data 2026-01-02 010203 x (hourly).corvella", "Corvella Data 2026-01-02 010203 1 (hourly).corvella",
          "Corvella Data 2026-01-02 010203 02 (hourly).corvella",
          "Corvella Data 2026-01-02 010203 -2 (hourly).corvella",
          "Copy of Corvella Data 2026-01-02 010203 (hourly).corvella", "Other 2026-01-02 010203 (hourly).corvella",
          ".Corvella Data 2026-01-02 010203 (hourly).corvella.saving-host-1-abcdef"})
        EXPECT_FALSE(CVVersionName::parse(QString::fromLatin1(name), kDataFile)) << name;
}

TEST(CVVersionName, isReadWhereItsTimeWasSkipped) {
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "Europe/Berlin");
    ::tzset();
    const auto read =
        CVVersionName::parse(QStringLiteral("Corvella Data 2026-03-29 023000 (hourly).corvella"), kDataFile);
    qputenv("TZ", zone);
    ::tzset();
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->kept.isValid());
    EXPECT_EQ(read->kept.date(), QDate(2026, 3, 29));
}

TEST(CVVersionName, keepsAnOddNameOfTheDataFile) {
    for (const QString& dataFile : {QStringLiteral("budget"), QStringLiteral("a (b).c.d"), QStringLiteral("%1 %2.x"),
                                    QStringLiteral("Größe 2026-01-02 010203 (hourly).corvella")}) {
        const CVVersionName name{at(2026, 1, 2, 3, 4, 5), 3, CVVersionReason::Return};
        const auto read = CVVersionName::parse(name.fileName(dataFile), dataFile);
        ASSERT_TRUE(read) << dataFile.toStdString();
        EXPECT_EQ(read->kept, name.kept);
    }
}

} // namespace
