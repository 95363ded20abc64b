#include "OFXFixtures.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using About = CVStatementQuestion::About;

QByteArray fileOf(const QByteArray& statements) {
    return "OFXHEADER:100\nVERSION:160\n<OFX>" + statements + "</OFX>";
}

CVStatementMapping ofAccount(const char* name) {
    CVStatementMapping known;
    known.account = QString::fromUtf8(name);
    return known;
}

const QByteArray kTwo = fileOf(OFXAccount("1234", OFXEntry("-1.00") + OFXEntry("-2.00")) +
                               "<CCSTMTRS><CURDEF>USD<CCACCTFROM><ACCTID>5678</CCACCTFROM><BANKTRANLIST>" +
                               OFXEntry("-3.00") + "</BANKTRANLIST></CCSTMTRS>");

TEST(OFXAccounts, AreAskedFor) {
    const CVStatement statement = CVReadOFX(kTwo);
    ASSERT_EQ(statement.questions.size(), 1U);
    const CVStatementQuestion& question = statement.questions.front();
    EXPECT_EQ(question.about, About::Account);
    ASSERT_EQ(question.answers.size(), 2U);
    EXPECT_EQ(question.answers.front().label, QStringLiteral("1234, 2 lines"));
    EXPECT_EQ(question.answers.back().option, QStringLiteral("--account \"5678\""));
    // The lines are those of the first account until it is known which is meant.
    EXPECT_EQ(OFXLinesText(statement), QStringLiteral("2024/03/01 -100 Shop\n2024/03/01 -200 Shop"));
    EXPECT_EQ(OFXRead(kTwo, question.answers.back().with), QStringLiteral("2024/03/01 -300 Shop"));
}

TEST(OFXAccounts, AreRememberedEachForItself) {
    const CVStatement first = CVReadOFX(kTwo, ofAccount("1234"));
    const CVStatement second = CVReadOFX(kTwo, ofAccount("5678"));
    EXPECT_EQ(first.headerDigest.size(), 64);
    EXPECT_NE(first.headerDigest, second.headerDigest);
    EXPECT_EQ(first.headerDigest, CVReadOFX(fileOf(OFXAccount("1234", OFXEntry("9")))).headerDigest);
    EXPECT_EQ(second.summary, QStringLiteral("OFX 1.6, UTF-8, account 5678 in USD, 1 line, 1 March 2024"));
}

TEST(OFXAccounts, AreNamedWhereTheOneAskedForIsMissing) {
    EXPECT_EQ(CVReadOFX(kTwo, ofAccount("99")).problem,
              QStringLiteral("This file does not hold the account “99”, but these: “1234”, “5678”."));
}

TEST(OFXAccounts, AreNotAskedForWhereOneAloneHasLines) {
    EXPECT_EQ(OFXRead(fileOf(OFXAccount("1", "") + OFXAccount("2", OFXEntry("5")))),
              QStringLiteral("2024/03/01 500 Shop"));
}

TEST(OFXAccounts, AreOneWhereTheFileHasSeveralStatementsOfIt) {
    EXPECT_EQ(OFXRead(fileOf(OFXAccount("1", OFXEntry("4")) + OFXAccount("1", OFXEntry("5")))),
              QStringLiteral("2024/03/01 400 Shop\n2024/03/01 500 Shop"));
}

TEST(OFXAccounts, AreToldApartByMoreThanTheirNumber) {
    const QByteArray savings = OFXAccount("1", OFXEntry("5")).replace("CHECKING", "SAVINGS");
    const QByteArray nameless = OFXAccount("", OFXEntry("6")).replace("CHECKING", "");
    const CVStatement statement = CVReadOFX(fileOf(OFXAccount("1", OFXEntry("4")) + savings + nameless));
    ASSERT_EQ(statement.questions.size(), 1U);
    QStringList labels;
    for (const auto& answer : statement.questions.front().answers)
        labels.append(answer.label);
    EXPECT_EQ(labels, (QStringList{"1, 1 line", "1 SAVINGS, 1 line", "77, 1 line"}));
    EXPECT_EQ(OFXRead(fileOf(OFXAccount("1", OFXEntry("4")) + savings), ofAccount("1 SAVINGS")),
              QStringLiteral("2024/03/01 500 Shop"));
}

TEST(OFXAccounts, TakeNoLineFromWhatIsNotBooked) {
    const QByteArray pending =
        "<BANKTRANLISTP><STMTTRNP><TRNTYPE>DEBIT<DTTRAN>20240302<TRNAMT>-7.00<NAME>Inn</STMTTRNP>"
        "</BANKTRANLISTP>";
    const CVStatement statement =
        CVReadOFX(fileOf(OFXAccount("1", OFXEntry("-4")).replace("<LEDGERBAL>", pending + "<LEDGERBAL>")));
    EXPECT_EQ(OFXLinesText(statement), QStringLiteral("2024/03/01 -400 Shop"));
    EXPECT_TRUE(statement.summary.endsWith(u", 1 pending line left out"));
    EXPECT_EQ(OFXRead(fileOf(OFXAccount("1", pending))),
              QStringLiteral("problem: This statement holds only pending payments, which are not booked yet."));
}

TEST(OFXAccounts, TakeNoLineFromInvestments) {
    const QByteArray purchase =
        "<BUYSTOCK><INVBUY><INVTRAN><FITID>1<DTTRADE>20240301<MEMO>Share</INVTRAN><UNITS>3<TOTAL>-30"
        "</INVBUY></BUYSTOCK>";
    const QByteArray investments =
        "<INVSTMTRS><CURDEF>EUR<INVACCTFROM><BROKERID>b<ACCTID>9</INVACCTFROM><INVTRANLIST>" + purchase +
        "</INVTRANLIST></INVSTMTRS>";
    EXPECT_EQ(
        OFXRead(fileOf(investments)),
        QStringLiteral("problem: This statement holds only purchases, sales and earnings of investments, which are "
                       "no payments."));
    const CVStatement beside = CVReadOFX(fileOf(OFXAccount("1", OFXEntry("-4")) + investments));
    EXPECT_EQ(OFXLinesText(beside), QStringLiteral("2024/03/01 -400 Shop"));
    EXPECT_TRUE(beside.summary.endsWith(u", 1 investment line left out"));
    const QByteArray cash = "<INVBANKTRAN>" + OFXEntry("-5") + "<SUBACCTFUND>CASH</INVBANKTRAN>";
    EXPECT_EQ(OFXRead(fileOf(QByteArray(investments).replace("</INVTRANLIST>", cash + "</INVTRANLIST>"))),
              QStringLiteral("2024/03/01 -500 Shop"));
}

} // namespace
