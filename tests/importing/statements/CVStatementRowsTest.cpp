#include "importing/delimited/CVStatementRows.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr qsizetype kAllRows = 1'000'000;

/// The rows with bars between their cells, and the line of each before it.
QString rowsText(const QString& text, char separator) {
    QStringList rows;
    for (const auto& row : CVReadStatementRows(text, separator, kAllRows).rows)
        rows.append(QString::number(row.line) + u':' + row.cells.join(u'|'));
    return rows.join(u' ');
}

TEST(CVStatementRows, AreTakenApartAtTheSeparatorsOutsideOfQuotes) {
    struct Row {
        const char16_t* text;
        const char16_t* rows;
    };
    for (const auto& [text, rows] : std::vector<Row>{{u"a,b\nc,d\n", u"1:a|b 2:c|d"},
                                                     {u"a,b\r\nc,d", u"1:a|b 2:c|d"},
                                                     {u"a,b\rc,d\r", u"1:a|b 2:c|d"},
                                                     {u"a\n\nb\n", u"1:a 2: 3:b"},
                                                     {u"a,,b,\n", u"1:a||b|"},
                                                     {u" a , b \n", u"1:a|b"},
                                                     {u"\"a,b\",c\n", u"1:a,b|c"},
                                                     {u"\"a\"\"b\",c\n", u"1:a\"b|c"},
                                                     {u"\"a\nb\",c\nd\n", u"1:a\nb|c 3:d"},
                                                     {u"a, \"b,c\" ,d\n", u"1:a|b,c|d"},
                                                     {u"\"-1.00\"\t,x\n", u"1:-1.00|x"},
                                                     // A quote within is a character; one without a partner is none.
                                                     {u"a\"b,c\n", u"1:a\"b|c"},
                                                     {u"12\" pipe,c\n", u"1:12\" pipe|c"},
                                                     {u"\"Shop \"Sun\" Ltd\",c\n", u"1:Shop \"Sun\" Ltd|c"},
                                                     {u"x\",\"b\",c\n", u"1:x|b|c"},
                                                     {u"\"a,b\n\"c\",d\n", u"1:a|b 2:c|d"},
                                                     {u"\"a,b", u"1:a|b"}}) {
        EXPECT_EQ(rowsText(QString::fromUtf16(text), ','), QString::fromUtf16(rows));
    }
}

TEST(CVStatementRows, OfAnEndlessLineOrOfEndlessCellsAreRefused) {
    EXPECT_FALSE(CVReadStatementRows(QString(2'000'000, u'x'), ',', kAllRows).problem.isEmpty());
    EXPECT_FALSE(CVReadStatementRows(QString(5'000, u','), ',', kAllRows).problem.isEmpty());
    EXPECT_FALSE(CVReadStatementRows(QString("\"a,").repeated(3'000), ',', kAllRows).problem.isEmpty());
    EXPECT_TRUE(CVReadStatementRows(QString("a,b\n").repeated(3'000), ',', kAllRows).problem.isEmpty());
}

TEST(CVStatementRows, AreReadUntilAStopIsAskedFor) {
    const auto rows =
        CVReadStatementRows(QString("a,b\n").repeated(3'000), ',', kAllRows, [](qsizetype) { return true; });
    EXPECT_LT(rows.rows.size(), 3'000U);
    EXPECT_EQ(CVReadStatementRows(QString("a,b\n").repeated(3'000), ',', 10).rows.size(), 10U);
}

TEST(CVSeparatorOfStatement, IsTheOneWithWhichTheRowsHaveADayAndAnAmount) {
    EXPECT_EQ(CVSeparatorOf("2024-03-12,Shop,-12.50\n"), ',');
    EXPECT_EQ(CVSeparatorOf("12.03.2024;Shop, Town;-12,50\n"), ';');
    EXPECT_EQ(CVSeparatorOf("12.03.2024\tShop; Town, Street\t-12,50\n"), '\t');
    EXPECT_EQ(CVSeparatorOf("12.03.2024|Shop|-12,50\n"), '|');
    EXPECT_EQ(CVSeparatorOf("Date;Payee;Amount\n"), ';');
}

} // namespace
