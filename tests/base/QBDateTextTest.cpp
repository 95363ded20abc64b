#include "base/QBDate.h"
#include "kit/Day.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

namespace {

struct FormRow {
    QBDate date;
    const char* text;
};

const FormRow kForms[]{
    {day(2014, 3, 7), "2014/03/07"},
    {day(2014, 12, 31), "2014/12/31"},
    {day(812, 5, 5), "0812/05/05"},
    {day(99, 1, 1), "0099/01/01"},
    {day(1, 1, 1), "0001/01/01"},
    {day(0, 2, 29), "0000/02/29"},
    {day(9999, 12, 31), "9999/12/31"},
    {day(10000, 1, 1), "10000/01/01"},
    {day(123456, 7, 8), "123456/07/08"},
    // The width of four characters includes the sign.
    {day(-1, 12, 31), "-001/12/31"},
    {day(-99, 1, 2), "-099/01/02"},
    {day(-999, 1, 2), "-999/01/02"},
    {day(-1000, 1, 2), "-1000/01/02"},
    {day(-12345, 10, 11), "-12345/10/11"},
    {day(1'000'000'000, 12, 31), "1000000000/12/31"},
    {day(-1'000'000'000, 1, 1), "-1000000000/01/01"},
};

TEST(QBDateText, PadsTheYearToFourAndMonthAndDayToTwo) {
    for (const FormRow& row : kForms) {
        EXPECT_EQ(row.date.corvellaXMLRepresentation(), row.text);
        EXPECT_LE(row.date.corvellaXMLRepresentation().size(), QBDate::kXMLBound);
    }
}

TEST(QBDateText, IsReadBack) {
    for (const FormRow& row : kForms)
        EXPECT_EQ(QBDate::optimizedDateWithCStringXMLFormat(row.text), row.date) << row.text;
}

TEST(QBDateText, OfEveryDayIsReadBackAndAgreesWithTheLibrary) {
    for (const qint64 firstYear : {-4, 796, 1896, 1996, 9996}) {
        const QBDate end = day(firstYear + 9, 1, 1);
        for (QBDate date = day(firstYear, 1, 1); date != end; date = date.dateByAddingYears(0, 0, 1)) {
            std::array<char, 40> expected{};
            std::snprintf(expected.data(), expected.size(), "%04ld/%02d/%02d",
                          static_cast<long>(date.yearOfCommonEra()), date.monthOfYear(), date.dayOfMonth());
            const QByteArray text = date.corvellaXMLRepresentation();
            ASSERT_EQ(text, expected.data());
            ASSERT_EQ(QBDate::optimizedDateWithCStringXMLFormat(text.constData()), date);
        }
    }
}

TEST(QBDateText, IsWrittenBehindWhatStandsThere) {
    std::array<char, 2 + QBDate::kXMLBound> text{'a', 'b'};
    const char* const end = day(2014, 3, 7).writeXMLRepresentation(text.data() + 2);
    EXPECT_EQ(std::string_view(text.data(), static_cast<std::size_t>(end - text.data())), "ab2014/03/07");
}

using namespace std::string_view_literals;

constexpr std::string_view kNoDates[]{
    "",
    "(null)",
    "/",
    "//",
    "2014",
    "2014/03",
    "2014/03/",
    "2014//07",
    "/03/07",
    "2014-03-07",
    "2014/03-07",
    "2014.03.07",
    "07/Mar/2014",
    "2014/03/07/",
    "2014/03/07 ",
    " 2014/03/07",
    "2014/ 3/07",
    "2014/03/07x",
    "2014/03/07\0"sv,
    "2014x/03/07",
    "+2014/03/07",
    "--2014/03/07",
    "-/03/07",
    "0x7DE/03/07",
    "2014/3.0/07",
    "\xD9\xA2/03/07",
    // no day of the calendar
    "2014/00/07",
    "2014/13/07",
    "2014/03/00",
    "2014/03/32",
    "2014/04/31",
    "2014/02/29",
    "1900/02/29",
    "2100/02/29",
    "2012/02/30",
    "2014/-3/07",
    "2014/03/-7",
    // a number that would be valid if high bits were lost
    "2014/259/07",
    "2014/03/263",
    "2014/4294967299/07",
    "2014/03/4294967303",
    "2014/18446744073709551619/07",
    // beyond the years that are kept
    "1000000001/01/01",
    "-1000000001/01/01",
    "9223372036854775807/01/01",
    "9223372036854775808/01/01",
    "99999999999999999999999999/01/01",
};

TEST(QBDateText, OfAnotherFormIsNoDate) {
    for (const std::string_view text : kNoDates)
        EXPECT_EQ(QBDate::optimizedDateWithCStringXMLFormat(text), std::nullopt) << text;
}

TEST(QBDateText, WithTheLeastYearThatANumberHoldsIsNoDate) {
    EXPECT_EQ(QBDate::optimizedDateWithCStringXMLFormat("-9223372036854775808/01/01"), std::nullopt);
}

TEST(QBDateText, KnowsTheLeapDaysOfAllCenturies) {
    for (int year = 0; year <= 2400; year += 100) {
        const QByteArray text = QByteArray::number(year).rightJustified(4, '0') + "/02/29";
        EXPECT_EQ(QBDate::optimizedDateWithCStringXMLFormat(text.constData()).has_value(), year % 400 == 0) << year;
    }
}

} // namespace
