#include "importing/statements/CVStatementAmount.h"

#include "kit/Printers.h"

#include <QString>

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

struct AmountRow {
    const char16_t* text;
    QChar mark;
    qint64 hundredths;
    int marker = 0;
};

TEST(CVStatementAmount, IsReadFromItsTextWithTheMarkThatHolds) {
    const std::vector<AmountRow> rows{
        {u"12.50", u'.', 1250},
        {u"12,50", u',', 1250},
        {u"-12,50", u',', -1250},
        {u"+12,50", u',', 1250},
        {u"12.50-", u'.', -1250},
        {u"12,50 -", u',', -1250},
        {u"\u221212.50", u'.', -1250},
        {u"\u201312.50", u'.', -1250},
        {u"(12.50)", u'.', -1250},
        {u"($85.00)", u'.', -8500},
        {u"1,234.50", u'.', 123450},
        {u"1.234,50", u',', 123450},
        {u"1'234.50", u'.', 123450},
        {u"1\u2019234.50", u'.', 123450},
        {u"2 500,00 kr", u',', 250000},
        {u"2\u00a0500,00", u',', 250000},
        {u"2\u202f500,00 \u20ac", u',', 250000},
        {u"1,00,000.50", u'.', 10000050},
        {u"12,34,567.00", u'.', 123456700},
        {u"1.000", u',', 100000},
        {u"1.000", u'.', 100},
        {u"1000", u'.', 100000},
        {u"-,01", u',', -1},
        {u".5", u'.', 50},
        {u"5.", u'.', 500},
        {u"12,-", u',', 1200},
        {u"12.\u2013", u'.', 1200},
        {u"CHF 100.-", u'.', 10000},
        {u"$12.50", u'.', 1250},
        {u"-$12.50", u'.', -1250},
        {u"$-12.50", u'.', -1250},
        {u"- $12.50", u'.', -1250},
        {u"+ $73.01", u'.', 7301},
        {u"US$ 12.50", u'.', 1250},
        {u"R$ 1.234,56", u',', 123456},
        {u"EUR 12,50", u',', 1250},
        {u"12,50EUR", u',', 1250},
        {u"Rs. 500", u'.', 50000},
        {u"12,50 K\u010d", u',', 1250},
        {u"12,50 z\u0142", u',', 1250},
        {u"\u062f.\u0627.\u200f4.750", u'.', 475},
        {u"1234\u5186", u'.', 123400},
        {u"\u0661\u0662\u066b\u0665\u0660", u',', 1250},
        {u"12.50 CR", u'.', 1250, 1},
        {u"12.50CR", u'.', 1250, 1},
        {u"12.50 Dr", u'.', 1250, -1},
        {u"12,50 S", u',', 1250, -1},
        {u"12,50 H", u',', 1250, 1},
        {u"0.005", u'.', 1},
        {u"0.0049999", u'.', 0},
        {u"-0.005", u'.', -1},
        {u"29.9950000000001", u'.', 3000},
        {u"999999999999999.99", u'.', 99999999999999999},
    };
    for (const auto& [text, mark, hundredths, marker] : rows) {
        const auto amount = CVReadStatementAmount(QStringView(text), mark);
        ASSERT_TRUE(amount) << QString::fromUtf16(text).toStdString();
        EXPECT_EQ(amount->hundredths, hundredths) << QString::fromUtf16(text).toStdString();
        EXPECT_EQ(amount->marker, marker) << QString::fromUtf16(text).toStdString();
    }
}

TEST(CVStatementAmount, IsNoOtherText) {
    const std::vector<const char16_t*> texts{u"",
                                             u"-",
                                             u"abc",
                                             u"12.3.4",
                                             u"1,23,4.5",
                                             u"1.2345,6",
                                             u"12 5",
                                             u"--5",
                                             u"+-5",
                                             u"(-5",
                                             u"5%",
                                             u"1e5",
                                             u"A12345",
                                             u"12.03.24",
                                             u"2024-03-12",
                                             u"10:15",
                                             u"1/2",
                                             u"12.50 USD @ 3",
                                             u"01.234.5",
                                             u"1234567890123456.00",
                                             u"12.50 extra",
                                             u"DE12 5000",
                                             u"..5"};
    for (const auto* const text : texts) {
        EXPECT_FALSE(CVReadStatementAmount(QStringView(text), u'.')) << QString::fromUtf16(text).toStdString();
    }
}

TEST(CVMarkEvidence, SaysWhichDecimalMarkATextCanHave) {
    struct Row {
        const char16_t* text;
        bool point;
        bool comma;
        bool differs;
    };
    for (const auto& [text, point, comma, differs] : std::vector<Row>{{u"12.50", true, false, false},
                                                                      {u"12,50", false, true, false},
                                                                      {u"1.000", true, true, true},
                                                                      {u"1,234", true, true, true},
                                                                      {u"0.000", true, false, false},
                                                                      {u"0,123", false, true, false},
                                                                      {u"1000", true, true, false},
                                                                      {u"2 500", true, true, false},
                                                                      {u"1.234.567", false, true, false},
                                                                      {u"1,234,567", true, false, false},
                                                                      {u"1.234,56", false, true, false},
                                                                      {u".9765", true, false, false},
                                                                      {u"1.2345", true, false, false},
                                                                      {u"text", false, false, false}}) {
        const CVMarkEvidence evidence = CVMarkEvidenceOf(QStringView(text));
        EXPECT_EQ(evidence.point, point) << QString::fromUtf16(text).toStdString();
        EXPECT_EQ(evidence.comma, comma) << QString::fromUtf16(text).toStdString();
        EXPECT_EQ(evidence.differs, differs) << QString::fromUtf16(text).toStdString();
    }
}

TEST(CVCurrencyName, IsACodeASymbolOrAnAbbreviation) {
    for (const auto* const name : {u"EUR", u"\u20ac", u"US$", u"kr", u"kr.", u"K\u010d", u"\u5143", u"CHF"})
        EXPECT_TRUE(CVIsCurrencyName(QStringView(name))) << QString::fromUtf16(name).toStdString();
    for (const auto* const name : {u"", u"Euro shop", u"Ab", u"ABCD", u"12"})
        EXPECT_FALSE(CVIsCurrencyName(QStringView(name))) << QString::fromUtf16(name).toStdString();
}

} // namespace
