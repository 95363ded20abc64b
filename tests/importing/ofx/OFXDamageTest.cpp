#include "OFXFixtures.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

const QByteArray kDeclaration = "<?xml version=\"1.0\"?>\n";

TEST(OFXDamage, LeavesTheEntryUnreadInWhichTheFileEnds) {
    const QByteArray whole = OFXWithEntries(OFXEntry("-1.00") + OFXEntry("-23.45"));
    const auto cutBehind = [&](const char* text) {
        return OFXRead(whole.first(whole.lastIndexOf(text) + static_cast<qsizetype>(qstrlen(text))));
    };
    const QString first = QStringLiteral("2024/03/01 -100 Shop\n");
    EXPECT_EQ(cutBehind("<TRNAMT>-23"), first + QStringLiteral("14! the file ends within it"));
    EXPECT_EQ(cutBehind("<NAME>Sh"), first + QStringLiteral("14! the file ends within it"));
    EXPECT_EQ(OFXRead(whole.first(whole.indexOf("</STMTTRN>") + 11)),
              first + QStringLiteral("14! the file breaks off here, so that lines may be missing"));
    EXPECT_EQ(cutBehind("</STMTRS>\n"),
              first +
                  QStringLiteral("2024/03/01 -2345 Shop\n21! the file breaks off here, so that lines may be missing"));
    EXPECT_EQ(OFXRead(kDeclaration + "<OFX><STMTRS><BANKTRANLIST><STMTTRN><DTPOSTED>20240301</DTPOSTED><TRNAMT>-1"),
              QStringLiteral("2! the file ends within it"));
}

TEST(OFXDamage, ReadsListsThatEndTwiceOrNotAtAll) {
    const QByteArray twice = OFXWithEntries(OFXEntry("1") + "</BANKTRANLIST>" + OFXEntry("2"));
    EXPECT_EQ(OFXRead(twice), QStringLiteral("2024/03/01 100 Shop\n2024/03/01 200 Shop"));
    EXPECT_EQ(OFXRead(OFXWithEntries(OFXEntry("1")).replace("</BANKTRANLIST>", "")),
              QStringLiteral("2024/03/01 100 Shop"));
    EXPECT_EQ(OFXRead("<STMTTRN><DTPOSTED>20240301<TRNAMT>5<NAME>A</STMTTRN>"), QStringLiteral("2024/03/01 500 A"));
}

TEST(OFXDamage, IsAProblemWhereNothingCanBeRead) {
    EXPECT_EQ(
        OFXRead("OFXHEADER:100\n<OFX></OFX>"),
        QStringLiteral("problem: This file holds no statement of an account. Please have your bank export it again."));
    EXPECT_EQ(OFXRead(OFXWithEntries("")), QStringLiteral("problem: This statement holds no lines."));
    EXPECT_TRUE(OFXRead(OFXWithEntries(QByteArray(1, '\0'))).startsWith(u"problem: This is no statement"));
}

TEST(OFXDamage, PutsNoAbbreviationOfTheFileIn) {
    const QByteArray bomb = "<!DOCTYPE OFX [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>\n";
    const QByteArray body = OFXWithEntries(OFXEntry("1", "OTHER", "<NAME>&b;"));
    const QString problem =
        QStringLiteral("problem: This is no statement that a bank hands out: the file defines abbreviations.");
    EXPECT_EQ(OFXRead(kDeclaration + bomb + "<OFX><NAME>&b;</NAME></OFX>"), problem);
    EXPECT_EQ(OFXRead(kDeclaration + bomb + body.sliced(body.indexOf("<OFX>"))), problem);
    EXPECT_EQ(OFXRead("OFXHEADER:100\n" + bomb + body.sliced(body.indexOf("<OFX>"))), problem);
    EXPECT_EQ(
        OFXRead(kDeclaration + "<!DOCTYPE OFX SYSTEM \"file:///etc/passwd\">\n" + body.sliced(body.indexOf("<OFX>"))),
        QStringLiteral("2024/03/01 100 &b;"));
    const QByteArray tree =
        "<OFX><STMTTRN><DTPOSTED>20240301</DTPOSTED><TRNAMT>1</TRNAMT><NAME>A&b;</NAME></STMTTRN></OFX>";
    EXPECT_EQ(OFXRead(kDeclaration + "<!DOCTYPE OFX SYSTEM \"none.dtd\">\n" + tree),
              QStringLiteral("2024/03/01 100 A&b;"));
}

TEST(OFXDamage, TakesNoLongerForAbsurdMarkup) {
    const auto isRead = [](const QByteArray& before) {
        const QByteArray body = OFXWithEntries(OFXEntry("1"));
        const QByteArray bytes = kDeclaration + body.sliced(body.indexOf("<OFX>"));
        return OFXRead(QByteArray(bytes).replace("<OFX>", "<OFX>" + before)) == u"2024/03/01 100 Shop";
    };
    QByteArray attributes;
    for (int at = 0; at < 300'000; ++at)
        attributes += " a" + QByteArray::number(at) + "='x'";
    EXPECT_TRUE(isRead("<A" + attributes + "/>"));
    EXPECT_TRUE(isRead(QByteArray("<A>").repeated(200'000)));
    EXPECT_TRUE(isRead(QByteArray("<!--").repeated(200'000)));
    EXPECT_TRUE(isRead(QByteArray("<").repeated(200'000)));
    EXPECT_TRUE(isRead(QByteArray("&").repeated(200'000)));
}

TEST(OFXDamage, HasLimits) {
    EXPECT_EQ(OFXRead(OFXWithEntries(QByteArray("<STMTTRN>").repeated(200'001))),
              QStringLiteral("problem: This statement has more than 200000 lines. Please import it in parts."));
    EXPECT_EQ(OFXRead(OFXWithEntries(QByteArray("<STMTRS>").repeated(1001))),
              QStringLiteral("problem: This file holds more than 1000 accounts. Please import it in parts."));
    EXPECT_EQ(OFXRead(OFXWithEntries(OFXEntry("1", "OTHER", "<MEMO>" + QByteArray(10'001, 'a')))),
              QStringLiteral("8! one of its texts is too long"));
}

} // namespace
