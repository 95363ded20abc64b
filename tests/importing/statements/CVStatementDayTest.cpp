#include "importing/statements/CVStatementDay.h"

#include "kit/Printers.h"

#include <QString>

#include <gtest/gtest.h>

#include <vector>

namespace {

QString text(const std::optional<QBDate>& day) {
    return day ? QString::fromLatin1(day->corvellaXMLRepresentation()) : QStringLiteral("none");
}

struct DayRow {
    const char16_t* text;
    const char* dayMonthYear;
    const char* monthDayYear;
    const char* yearMonthDay;
};

TEST(CVStatementDay, IsReadInEachOrderInWhichItExists) {
    const std::vector<DayRow> rows{
        {u"2024-03-12", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"2024/3/2", "2024/03/02", "2024/03/02", "2024/03/02"},
        {u"2024.03.12.", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"2012:03:01", "2012/03/01", "2012/03/01", "2012/03/01"},
        {u"20240312", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"20240312101500", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"03/04/2024", "2024/04/03", "2024/03/04", "none"},
        {u"13/04/2024", "2024/04/13", "none", "none"},
        {u"04/13/2024", "none", "2024/04/13", "none"},
        {u"12.03.2024", "2024/03/12", "none", "none"},
        {u"12-03-2024", "2024/03/12", "2024/12/03", "none"},
        {u"12 03 2024", "2024/03/12", "2024/12/03", "none"},
        {u"1. 3. 2024", "2024/03/01", "none", "none"},
        {u"05/06/07", "2007/06/05", "2007/05/06", "2005/06/07"},
        {u"2/3/04", "2004/03/02", "2004/02/03", "none"},
        {u"31/12/99", "1999/12/31", "none", "none"},
        {u"3/7'24", "2024/07/03", "2024/03/07", "none"},
        {u"10 Feb 18", "2018/02/10", "2018/02/10", "2018/02/10"},
        {u"10-Feb-2018", "2018/02/10", "2018/02/10", "2018/02/10"},
        {u"Feb 10, 2018", "2018/02/10", "2018/02/10", "2018/02/10"},
        {u"February 10th 2018", "2018/02/10", "2018/02/10", "2018/02/10"},
        {u"2018-Feb-10", "2018/02/10", "2018/02/10", "2018/02/10"},
        {u"7. M\u00e4rz 2024", "2024/03/07", "2024/03/07", "2024/03/07"},
        {u"7 ao\u00fbt 2024", "2024/08/07", "2024/08/07", "2024/08/07"},
        {u"12 de marzo de 2024", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"12MAR2024", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"2024\u5e743\u670812\u65e5", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"2024-03-12 15:12:22", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"2024-03-12T15:12:22Z", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"2024-03-12T15:12:22.123+01:00", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"2013-07-03-08.21.36.47192", "2013/07/03", "2013/07/03", "2013/07/03"},
        {u"13/04/2024 6:11", "2024/04/13", "none", "none"},
        {u"01/24/2023 10:28 am", "none", "2023/01/24", "none"},
        {u"Fr. 12.03.2024", "2024/03/12", "none", "none"},
        {u"Tue 12 Mar 2024", "2024/03/12", "2024/03/12", "2024/03/12"},
        {u"29/02/2024", "2024/02/29", "none", "none"},
    };
    for (const auto& row : rows) {
        const auto day = CVReadStatementDay(QStringView(row.text));
        ASSERT_TRUE(day) << QString::fromUtf16(row.text).toStdString();
        EXPECT_EQ(text(day->in(CVDayOrder::DayMonthYear)), row.dayMonthYear)
            << QString::fromUtf16(row.text).toStdString();
        EXPECT_EQ(text(day->in(CVDayOrder::MonthDayYear)), row.monthDayYear)
            << QString::fromUtf16(row.text).toStdString();
        EXPECT_EQ(text(day->in(CVDayOrder::YearMonthDay)), row.yearMonthDay)
            << QString::fromUtf16(row.text).toStdString();
    }
}

TEST(CVStatementDay, IsNoOtherText) {
    for (const auto* const other :
         {u"", u"12.50", u"1/2/3/4", u"10:15", u"30/02/2024", u"29/02/2023", u"32/01/2024", u"2024-13-01", u"12345678",
          u"Card 12/03/2024 shop", u"1.234.567", u"12.03.2024 - 31.03.2024", u"0/1/2024", u"99999999", u"001/02/2024"})
        EXPECT_FALSE(CVReadStatementDay(QStringView(other))) << QString::fromUtf16(other).toStdString();
}

TEST(CVStatementDay, WithoutAYearTakesTheYearThatIsGiven) {
    for (const auto* const form : {u"12.03.", u"12/03", u"12 March"}) {
        const auto day = CVReadStatementDay(QStringView(form));
        ASSERT_TRUE(day) << QString::fromUtf16(form).toStdString();
        EXPECT_FALSE(day->hasYear());
        EXPECT_EQ(text(day->in(CVDayOrder::DayMonthYear, 2019)), "2019/03/12");
    }
}

TEST(CVReadDayOfColumn, TakesDigitsSideBySideForADay) {
    EXPECT_FALSE(CVReadStatementDay(u"12032024"));
    const auto day = CVReadDayOfColumn(u"12032024");
    ASSERT_TRUE(day);
    EXPECT_EQ(text(day->in(CVDayOrder::DayMonthYear)), "2024/03/12");
    EXPECT_EQ(text(CVReadDayOfColumn(u"240312")->in(CVDayOrder::YearMonthDay)), "2024/03/12");
}

TEST(CVMonthOfWord, KnowsMonthsOfManyLanguagesAndLeavesOutWhatHasSeveralMeanings) {
    struct Row {
        const char16_t* word;
        int month;
    };
    for (const auto& [word, month] : std::vector<Row>{{u"March", 3},
                                                      {u"Mar", 3},
                                                      {u"M\u00e4rz", 3},
                                                      {u"MRZ", 3},
                                                      {u"avril", 4},
                                                      {u"diciembre", 12},
                                                      {u"Okt.", 10},
                                                      {u"lokakuuta", 10},
                                                      {u"\u043c\u0430\u044f", 5},
                                                      {u"listopad", 0},
                                                      {u"shop", 0},
                                                      {u"", 0}})
        EXPECT_EQ(CVMonthOfWord(QStringView(word)), month) << QString::fromUtf16(word).toStdString();
}

} // namespace
