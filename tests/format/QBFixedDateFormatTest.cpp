#include "format/QBFixedDateFormat.h"

#include "kit/DefaultLocale.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

constexpr QStringView kFormat = u"%m/%d/%y %H:%M %z";

QDateTime at(int year, int month, int day, int hour, int minute, int offsetMinutes) {
    return {QDate(year, month, day), QTime(hour, minute, 7), Qt::OffsetFromUTC, offsetMinutes * 60};
}

TEST(QBFixedDateFormat, WritesATimeAlikeInEveryLocale) {
    const DefaultLocale arabic(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(stringWithFixedFormat(kFormat, at(2014, 3, 7, 4, 5, -300)), "03/07/14 04:05 -0500");
    EXPECT_EQ(stringWithFixedFormat(kFormat, at(2000, 12, 31, 23, 59, 345)), "12/31/00 23:59 +0545");
    EXPECT_EQ(stringWithFixedFormat(kFormat, at(1999, 1, 1, 0, 0, 0)), "01/01/99 00:00 +0000");
    EXPECT_EQ(stringWithFixedFormat(u"%H:%M:%S 100%% %q%", at(2014, 3, 7, 4, 5, 0)), "04:05:07 100% q%");
}

TEST(QBFixedDateFormat, ReadsWhatItWrites) {
    for (const QDateTime& time : {at(2014, 3, 7, 4, 5, -300), at(1969, 1, 1, 0, 0, 0), at(2068, 12, 31, 23, 59, 840),
                                  at(2012, 2, 29, 12, 30, -210)}) {
        const QDateTime read = nsdateWithFixedFormat(kFormat, stringWithFixedFormat(kFormat, time));
        EXPECT_EQ(read, time.addSecs(-7));
        EXPECT_EQ(read.offsetFromUtc(), time.offsetFromUtc());
    }
}

TEST(QBFixedDateFormat, WithoutAnOffsetATimeIsALocalOne) {
    EXPECT_EQ(nsdateWithFixedFormat(u"%d.%m.%y %H:%M:%S", u"07.03.14 04:05:06"),
              QDateTime(QDate(2014, 3, 7), QTime(4, 5, 6)));
    EXPECT_EQ(nsdateWithFixedFormat(u"100%% %d", u"100% 09").date().day(), 9);
}

TEST(QBFixedDateFormat, WhatIsOfAnotherFormOrNoTimeAtAllIsInvalid) {
    for (const char16_t* const text :
         {u"", u"03/07/14", u"3/7/14 4:05 -0500", u"03/07/2014 04:05 -0500", u"03/07/14 04:05 0500",
          u"03/07/14 04:05 -05:00", u"03/07/14 04:05 -0560", u"03/07/14 04:05 -050", u"13/01/14 04:05 -0500",
          u"02/29/14 04:05 -0500", u"03/07/14 24:05 -0500", u"03/07/14 04:60 -0500", u" 03/07/14 04:05 -0500",
          u"03/07/14 04:05 -0500 ", u"+3/07/14 04:05 -0500", u"٠٣/٠٧/١٤ ٠٤:٠٥ -٠٥٠٠"})
        EXPECT_FALSE(nsdateWithFixedFormat(kFormat, text).isValid()) << QString::fromUtf16(text).toStdString();
}

} // namespace
