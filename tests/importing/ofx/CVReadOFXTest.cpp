#include "OFXFixtures.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using About = CVStatementQuestion::About;

/// A text and what it is read as.
struct ReadRow {
    const char* text;
    const char* read;
};

QString amountsOf(const QByteArray& entries, const CVStatementMapping& known = {}) {
    const CVStatement statement = CVReadOFX(OFXWithEntries(entries), known);
    QStringList amounts;
    for (const auto& line : statement.lines)
        amounts.append(line.hundredths && line.unreadable.isEmpty() ? QString::number(*line.hundredths)
                                                                    : line.unreadable);
    for (const auto& question : statement.questions)
        amounts.append(u'?' + question.text);
    return amounts.join(u' ');
}

TEST(CVReadOFX, ReadsElementsWithAndWithoutEnds) {
    const QString line = QStringLiteral("2024/03/01 -1250 Shop | Bread");
    for (const char* entry :
         {"<STMTTRN>\n<TRNTYPE>DEBIT\n<DTPOSTED>20240301\n<TRNAMT>-12.50\n<NAME>Shop\n<MEMO>Bread\n</STMTTRN>\n",
          "<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20240301<TRNAMT>-12.50<NAME>Shop<MEMO>Bread</STMTTRN>",
          "<STMTTRN><TRNTYPE>DEBIT</TRNTYPE><DTPOSTED>20240301</DTPOSTED><TRNAMT>-12.50</TRNAMT><NAME>Shop</NAME>"
          "<MEMO>Bread</MEMO></STMTTRN>",
          "<STMTTRN>\r<TRNTYPE>\rDEBIT\r</TRNTYPE>\r<DTPOSTED>\r\t20240301\r<TRNAMT>\r "
          "-12.50\r<NAME>Shop\r<MEMO>\rBread\r",
          "<STMTTRN >\n<DTPOSTED >20240301<TRNAMT>-12.50<FITID/><NAME>Shop<!-- <MEMO>Meat "
          "--><MEMO><![CDATA[Bread]]>\n"})
        EXPECT_EQ(OFXRead(OFXWithEntries(entry)), line) << entry;
    EXPECT_EQ(OFXRead(OFXWithEntries("<STMTTRN><DTPOSTED>20240301<TRNAMT>-1.00<STMTTRN><DTPOSTED>20240302<TRNAMT>2")),
              QStringLiteral("2024/03/01 -100 \n2024/03/02 200 "));
}

TEST(CVReadOFX, ReadsXMLAndWhatOnlyCallsItselfSo) {
    const QByteArray declared =
        "<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<?OFX OFXHEADER=\"200\" VERSION=\"211\"?>\n";
    const QByteArray entries =
        "<STMTTRN><DTPOSTED>20240301</DTPOSTED><TRNAMT>-12.50</TRNAMT><NAME>Ä &amp; B</NAME></STMTTRN>";
    const QByteArray body = "<OFX><STMTRS><BANKACCTFROM><ACCTID>1</ACCTID></BANKACCTFROM><BANKTRANLIST>" + entries +
                            "</BANKTRANLIST></STMTRS></OFX>";
    const QString line = QStringLiteral("2024/03/01 -1250 Ä & B");
    EXPECT_EQ(OFXRead(declared + body), line);
    EXPECT_TRUE(CVReadOFX(declared + body).summary.startsWith(u"OFX 2.1.1, UTF-8, account 1, 1 line, "));
    EXPECT_EQ(OFXRead("\n " + declared + body), line);
    EXPECT_EQ(OFXRead(declared + QByteArray(body).replace("&amp;", "&")), line);
    EXPECT_EQ(OFXRead(declared + QByteArray(body).replace("</NAME>", "")), line);
    EXPECT_EQ(OFXRead(declared + QByteArray(body).replace("</STMTRS>", "").replace("OFX>", "o:OFX>")), line);
    EXPECT_EQ(CVReadOFX(declared + body).lines.front().number, 3);
    EXPECT_EQ(CVReadOFX(declared + "\n" + QByteArray(body).replace("</NAME>", "")).lines.front().number, 4);
}

TEST(CVReadOFX, TakesTheDayThatTheBankWrote) {
    const std::vector<ReadRow> rows{{"20240301", "2024/03/01"},
                                    {"20240301235959", "2024/03/01"},
                                    {"20240301000000.000[-5:EST]", "2024/03/01"},
                                    {"20240301235959[+14]", "2024/03/01"},
                                    {"20240301093914:014", "2024/03/01"},
                                    {"2024-03-01", "2024/03/01"},
                                    {"2024-03-01T23:30:00", "2024/03/01"},
                                    {"20240229", "2024/02/29"},
                                    {"20230229", "8! “20230229” is no day"},
                                    {"20240231120000", "8! “20240231120000” is no day"},
                                    {"202403", "8! “202403” is no day"},
                                    {"24-03-01", "8! “24-03-01” is no day"},
                                    {"01032024", "8! “01032024” is no day"},
                                    {"01/03/2024", "8! “01/03/2024” is no day"},
                                    {"", "8! there is no day"}};
    for (const auto& [text, read] : rows) {
        const QByteArray entry = QByteArray("<STMTTRN><DTPOSTED>") + text + "<DTUSER>20240401<TRNAMT>1</STMTTRN>";
        const QString line = OFXRead(OFXWithEntries(entry));
        EXPECT_EQ(line.section(QStringLiteral(" 100"), 0, 0), QString::fromUtf8(read)) << text;
    }
}

TEST(CVReadOFX, TakesTheAmountAsItsTextSaysIt) {
    const std::vector<ReadRow> rows{{"-12.50", "-1250"},
                                    {"12.50-", "-1250"},
                                    {"-12,50", "-1250"},
                                    {"+00000000000115.8331", "11583"},
                                    {"-1,234.56", "-123456"},
                                    {"-1.234,56", "-123456"},
                                    {"1303.7355652284177", "130374"},
                                    {"-.5", "-50"},
                                    {"(3.00)", "-300"},
                                    {"3.00 DR", "-300"},
                                    {"-3.00 CR", "“-3.00 CR” is no amount"},
                                    {"USD 3.00", "300"},
                                    {"1e5", "“1e5” is no amount"},
                                    {"12.50 13.50", "“12.50 13.50” is no amount"},
                                    {"", "there is no amount"}};
    for (const auto& [text, read] : rows)
        EXPECT_EQ(amountsOf(OFXEntry(text)), QString::fromUtf8(read)) << text;
    EXPECT_EQ(amountsOf("<STMTTRN><DTPOSTED>20240301<TRNAMT>1.00<TRNAMT>2.00"),
              QStringLiteral("it has two days or two amounts"));
    EXPECT_EQ(amountsOf("<STMTTRN><DTPOSTED>20240301<DTPOSTED>20240302<TRNAMT>1.00"),
              QStringLiteral("it has two days or two amounts"));
}

TEST(CVReadOFX, SettlesTheDecimalMarkByAllAmountsTogether) {
    EXPECT_EQ(amountsOf(OFXEntry("1.000") + OFXEntry("2,50")), QStringLiteral("100000 250"));
    EXPECT_EQ(amountsOf(OFXEntry("1,000") + OFXEntry("2.50")), QStringLiteral("100000 250"));
    EXPECT_EQ(amountsOf(OFXEntry("1.50") + OFXEntry("2,50")), QStringLiteral("150 250"));
    EXPECT_EQ(amountsOf(OFXEntry("100") + OFXEntry("2000")), QStringLiteral("10000 200000"));
    EXPECT_EQ(amountsOf(OFXEntry("1.000")), QStringLiteral("100 ?In line 8, is “1.000” 1.00 or 1000.00?"));
    EXPECT_TRUE(amountsOf(OFXEntry("1.000") + OFXEntry("1.5") + OFXEntry("2,5")).contains(u'?'));
    // By a balance, and by another account.
    const auto other = [](const char* from, const char* to) {
        return OFXRead(OFXWithEntries(OFXEntry("1.000")).replace(from, to));
    };
    EXPECT_EQ(other("<BALAMT>100", "<BALAMT>10,50"), QStringLiteral("2024/03/01 100000 Shop"));
    EXPECT_EQ(other("<BALAMT>100", "<BALAMT>10.50"), QStringLiteral("2024/03/01 100 Shop"));
    // As answered.
    const CVStatement statement = CVReadOFX(OFXWithEntries(OFXEntry("1.000")));
    EXPECT_EQ(statement.mapping.decimalMark, std::nullopt);
    EXPECT_EQ(amountsOf(OFXEntry("1.000"), statement.questions.front().answers.back().with), QStringLiteral("100000"));
    // A mark that no amount has shown is not remembered.
    EXPECT_EQ(CVReadOFX(OFXWithEntries(OFXEntry("100"))).mapping.decimalMark, std::nullopt);
}

TEST(CVReadOFX, AsksWhereTheTypesContradictTheSigns) {
    const auto isAsked = [](const QByteArray& entries) {
        const CVStatement statement = CVReadOFX(OFXWithEntries(entries));
        return !statement.questions.empty() && statement.questions.front().about == About::Sign;
    };
    const QByteArray turned = OFXEntry("12.50", "DEBIT") + OFXEntry("-3.00", "CREDIT") + OFXEntry("5.00", "XFER");
    const QByteArray unsignedOnes = OFXEntry("12.50", "DEBIT") + OFXEntry("3.00", "CREDIT") + OFXEntry("5", "XFER");
    EXPECT_TRUE(isAsked(turned));
    EXPECT_TRUE(isAsked(unsignedOnes));
    EXPECT_TRUE(isAsked(OFXEntry("12.50", "DEBIT")));
    EXPECT_FALSE(isAsked(OFXEntry("-12.50", "DEBIT") + OFXEntry("3.00", "DEBIT")));
    EXPECT_FALSE(isAsked(OFXEntry("-12.50", "PAYMENT") + OFXEntry("3.00", "ATM")));
    EXPECT_FALSE(isAsked(OFXEntry("-1", "CREDIT") + OFXEntry("-2", "CREDIT") + OFXEntry("3", "CREDIT")));
    const auto answered = [](const QByteArray& entries, std::size_t answer) {
        const CVStatement statement = CVReadOFX(OFXWithEntries(entries));
        return amountsOf(entries, statement.questions.at(0).answers.at(answer).with);
    };
    EXPECT_EQ(answered(turned, 0), QStringLiteral("-1250 300 -500"));
    EXPECT_EQ(answered(turned, 1), QStringLiteral("1250 -300 500"));
    EXPECT_EQ(answered(unsignedOnes, 0), QStringLiteral("-1250 300 “XFER” does not tell money out from money in"));
    EXPECT_EQ(answered(unsignedOnes, 1), QStringLiteral("1250 300 500"));
    CVStatementMapping inverted;
    inverted.positiveIsOut = true;
    EXPECT_EQ(amountsOf(turned, inverted), QStringLiteral("-1250 300 -500"));
    EXPECT_EQ(amountsOf(unsignedOnes, inverted), QStringLiteral("-1250 300 -500"));
    // The word that was chosen tells the next statement too, whatever its signs.
    CVStatementMapping byType;
    byType.outMarker = QStringLiteral("DEBIT");
    EXPECT_EQ(amountsOf(OFXEntry("3.00", "CREDIT"), byType), QStringLiteral("300"));
    EXPECT_EQ(amountsOf(OFXEntry("-3.00", "CREDIT"), byType), QStringLiteral("300"));
}

TEST(CVReadOFX, TakesDebitsAndCreditsForTheSignsWhereThereAreNone) {
    const QByteArray debits = OFXEntry("12.50", "DEBIT") + OFXEntry("3.00", "DEBIT");
    const QByteArray credit = OFXEntry("5.00", "CREDIT");
    const auto isRead = [&](const QByteArray& more) { return !amountsOf(debits + credit + more).contains(u'?'); };
    EXPECT_EQ(amountsOf(debits + credit + OFXEntry("1", "FEE") + OFXEntry("2", "PAYMENT") + OFXEntry("4", "DIRECTDEP")),
              QStringLiteral("-1250 -300 500 -100 -200 400"));
    EXPECT_TRUE(isRead({}));
    EXPECT_FALSE(isRead(OFXEntry("5.00", "XFER")));
    EXPECT_FALSE(isRead(OFXEntry("+5.00", "CREDIT")));
    EXPECT_TRUE(amountsOf(debits).contains(u'?'));
    EXPECT_TRUE(amountsOf(OFXEntry("12.50", "DEBIT") + credit).contains(u'?'));
    CVStatementMapping ownSigns;
    ownSigns.positiveIsOut = false;
    EXPECT_EQ(amountsOf(debits + credit, ownSigns), QStringLiteral("1250 300 500"));
    // On a card, a payment is what was paid to the bank.
    const QByteArray card = OFXWithEntries(debits + credit + OFXEntry("9", "PAYMENT")).replace("STMTRS", "CCSTMTRS");
    EXPECT_TRUE(OFXRead(card).startsWith(u"question"));
}

TEST(CVReadOFX, ReadsNoAmountInAnotherCurrencyAsOneOfTheAccount) {
    const auto currency = [](const QByteArray& more) { return amountsOf(OFXEntry("-10.00", "OTHER", more)); };
    EXPECT_EQ(currency("<CURRENCY><CURRATE>1.1<CURSYM>USD</CURRENCY>"),
              QStringLiteral("its amount is in USD, and the account is in EUR"));
    EXPECT_EQ(currency("<CURRENCY><CURRATE>1.0000<CURSYM>USD</CURRENCY>"), QStringLiteral("-1000"));
    EXPECT_EQ(currency("<CURRENCY><CURRATE>1.1<CURSYM>EUR</CURRENCY>"), QStringLiteral("-1000"));
    EXPECT_EQ(currency("<ORIGCURRENCY><CURRATE>1.1<CURSYM>USD</ORIGCURRENCY>"), QStringLiteral("-1000"));
}

TEST(CVReadOFX, KeepsTheNumberOfTheBankAndTheCategory) {
    const CVStatement statement =
        CVReadOFX(OFXWithEntries(OFXEntry("1", "OTHER", "<FITID>a\n 7<NAME>Shop<CATEGORY>Food<MEMO>B")));
    ASSERT_EQ(statement.lines.size(), 1U);
    EXPECT_EQ(statement.lines.front().bankID, QStringLiteral("a 7"));
    EXPECT_EQ(statement.lines.front().category, QStringLiteral("Food"));
    EXPECT_EQ(statement.lines.front().number, 8);
    EXPECT_EQ(statement.lines.front().cells, (QStringList{"OTHER", "20240301", "1", "a 7", "Shop", "B"}));
}

TEST(CVReadOFX, LeavesOutWhatTheBankTakesBackWithTheReason) {
    EXPECT_EQ(amountsOf(OFXEntry("1.00", "OTHER", "<CORRECTFITID>1<CORRECTACTION>DELETE")),
              QStringLiteral("the bank takes an entry of an earlier file back with it"));
    EXPECT_EQ(amountsOf(OFXEntry("1.00", "OTHER", "<CORRECTFITID>1<CORRECTACTION>REPLACE")), QStringLiteral("100"));
}

TEST(CVReadOFX, IsStoppedWhenAsked) {
    QByteArray entries;
    for (int count = 0; count < 2000; ++count)
        entries += OFXEntry("1.00");
    const auto stop = [](int) { return true; };
    EXPECT_EQ(CVReadOFX(OFXWithEntries(entries), {}, stop).problem,
              QStringLiteral("Reading the statement was stopped."));
    EXPECT_EQ(CVReadOFX("<?xml version=\"1.0\"?><OFX><A/></OFX>", {}, stop).problem,
              QStringLiteral("Reading the statement was stopped."));
}

} // namespace
