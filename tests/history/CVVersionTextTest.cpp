#include "history/CVVersionText.h"

#include "kit/Day.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "model/CVVersionReason.h"

#include <QSet>

#include <gtest/gtest.h>

namespace {

QDateTime moment(int year, int month, int day, int hour, int minute) {
    return QDateTime(QDate(year, month, day), QTime(hour, minute));
}

TEST(CVVersionText, SaysTimesLikeAPerson) {
    const FixedToday today(day(2014, 3, 1));
    struct Row {
        QDateTime time;
        const char* english;
        const char* german;
    };
    for (const Row& row :
         {Row{moment(2014, 3, 1, 14, 2), "today 2:02 PM", "today 14:02"},
          Row{moment(2014, 2, 28, 9, 15), "yesterday 9:15 AM", "yesterday 09:15"},
          Row{moment(2014, 2, 27, 23, 59), "2/27/14 11:59 PM", "27.02.14 23:59"},
          Row{moment(2014, 3, 2, 0, 0), "3/2/14 12:00 AM", "02.03.14 00:00"}, Row{QDateTime(), "", ""}}) {
        EXPECT_EQ(CVVersionText::moment(row.time), row.english);
        const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
        EXPECT_EQ(CVVersionText::moment(row.time), row.german);
    }
}

TEST(CVVersionText, NamesEachReasonDifferently) {
    QSet<QString> texts;
    for (int reason = 0; reason <= static_cast<int>(CVVersionReason::Interruption); ++reason)
        texts.insert(CVVersionText::reason(static_cast<CVVersionReason>(reason)));
    EXPECT_EQ(texts.size(), static_cast<int>(CVVersionReason::Interruption) + 1);
    EXPECT_FALSE(texts.contains(QString()));
}

} // namespace
