#include "importing/statements/CVStatementText.h"

#include "kit/Printers.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

#include <vector>

namespace {

struct EncodedRow {
    QByteArray bytes;
    QByteArray encoding;
    QString text;
};

QByteArray inEncoding(const char* encoding, const QString& text) {
    QStringEncoder encoder(encoding);
    return encoder.encode(text);
}

TEST(CVStatementText, IsDecodedByItsMarkItsNulsItsValidityOrItsHeadings) {
    const QString cafe = QStringLiteral("Datum;Betrag;Empfänger\n");
    const QString czech = QStringLiteral("Datum zaúčtování;Zaúčtovaná částka;Měna účtu\n");
    const QString japanese = QStringLiteral("取引日,入出金(円),入出金内容\n");
    const std::vector<EncodedRow> rows{{cafe.toUtf8(), "UTF-8", cafe},
                                       {"\xEF\xBB\xBF" + cafe.toUtf8(), "UTF-8", cafe},
                                       {"\xFF\xFE" + inEncoding("UTF-16LE", cafe), "UTF-16LE", cafe},
                                       {"\xFE\xFF" + inEncoding("UTF-16BE", cafe), "UTF-16BE", cafe},
                                       {inEncoding("UTF-16LE", cafe), "UTF-16LE", cafe},
                                       {inEncoding("UTF-16BE", cafe), "UTF-16BE", cafe},
                                       {inEncoding("windows-1252", cafe), "windows-1252", cafe},
                                       {inEncoding("windows-1250", czech), "windows-1250", czech},
                                       {inEncoding("Shift_JIS", japanese), "Shift_JIS", japanese},
                                       {cafe.toUtf8() + '\x1a', "UTF-8", cafe}};
    for (const auto& [bytes, encoding, text] : rows) {
        const CVStatementText statement = CVDecodeStatement(bytes, std::nullopt);
        EXPECT_EQ(statement.encoding, encoding);
        EXPECT_EQ(statement.text, text);
        EXPECT_EQ(statement.problem, QString());
    }
}

TEST(CVStatementText, HasNoSignsWithinItsWords) {
    const QString polish = QStringLiteral("PWpłata na konto\nMOpłata za książki\n");
    const QString french = QStringLiteral("PL’été n° 5\nMÀ l’hôtel, 30 ± 1\n");
    EXPECT_EQ(CVDecodeStatement(inEncoding("windows-1250", polish), std::nullopt).text, polish);
    EXPECT_EQ(CVDecodeStatement(inEncoding("windows-1252", french), std::nullopt).encoding, "windows-1252");
}

TEST(CVStatementText, IsDecodedAsItIsToldTo) {
    const QString text = QStringLiteral("Příjem");
    EXPECT_EQ(CVDecodeStatement(inEncoding("windows-1250", text), QByteArray("windows-1250")).text, text);
    EXPECT_FALSE(CVDecodeStatement("\xFF\xFF\xFF", QByteArray("UTF-8")).problem.isEmpty());
}

TEST(CVStatementText, IsRefusedWhereTheFileIsNoText) {
    for (const QByteArray& bytes :
         {QByteArray("%PDF-1.4 something"), QByteArray("PK\x03\x04 zip"), QByteArray("\xD0\xCF\x11\xE0 old"),
          QByteArray("a,b\0c,d\n", 8), QByteArray(200, '\x02')})
        EXPECT_FALSE(CVDecodeStatement(bytes, std::nullopt).problem.isEmpty()) << bytes.left(8).toStdString();
}

TEST(CVStatementText, IsNoTableWhereItIsMarkedUpOrTagged) {
    for (const char* text : {"<?xml version=\"1.0\"?><Document/>", "OFXHEADER:100\n<OFX>", "!Type:Bank\nD1/2/24\n",
                             ":20:STARTUMS\n:25:1/2\n"})
        EXPECT_FALSE(CVProblemOfOtherKind(QString::fromLatin1(text)).isEmpty()) << text;
    EXPECT_EQ(CVProblemOfOtherKind(QStringLiteral("Date,Payee,Amount\n")), QString());
}

} // namespace
