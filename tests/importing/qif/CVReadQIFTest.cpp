#include "importing/qif/CVReadQIF.h"

#include "QIFFixtures.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

#include <vector>

namespace {

using About = CVStatementQuestion::About;

TEST(CVReadQIF, ReadsThePaymentsOfEachType) {
    expectQIFRows({
        {"!Type:Bank\nD2024-03-13\nT-12.50\nPShop\n^\n", "2024/03/13|-1250|Shop|||"},
        {"!Type:Cash\nD2024-03-13\nT-12.50\nPShop\n^\n", "2024/03/13|-1250|Shop|||"},
        {"!Type:CCard\nD2024-03-13\nT-12.50\nPShop\n^\n", "2024/03/13|-1250|Shop|||"},
        {"!Type:Oth A\nD2024-03-13\nT-12.50\nPShop\n^\n", "2024/03/13|-1250|Shop|||"},
        {"!type:oth L \nD2024-03-13\nT-12.50\nPShop\n^\n", "2024/03/13|-1250|Shop|||"},
        {"!Type:Banque\nD2024-03-13\nT-12.50\nPShop\n^\n", "2024/03/13|-1250|Shop|||"},
    });
}

TEST(CVReadQIF, NeedsNeitherAHeaderNorTheLastEnd) {
    expectQIFRows({
        {"D2024-03-13\nT-12.50\nPShop\n^\nD2024-03-14\nT1.00\n^\n", "2024/03/13|-1250|Shop|||\n2024/03/14|100||||"},
        {"!Type:Bank\nD2024-03-13\nT-12.50\nPShop", "2024/03/13|-1250|Shop|||"},
        {"!Type:Bank\nD2024-03-13\nT-12.50\nPShop\n!Type:Cat\nNFood\n^\n", "2024/03/13|-1250|Shop|||"},
        {"# a comment\n\n!Type:Bank\nD2024-03-13\nT-12.50\nPShop\n^\n", "2024/03/13|-1250|Shop|||"},
        {"!Option:AutoSwitch\n!Account\nNOne\nTBank\n^\n!Clear:AutoSwitch\n!Account\nNOne\nTBank\n^\n"
         "!Type:Bank\nD2024-03-13\nT-12.50\nPShop\n^\n",
         "2024/03/13|-1250|Shop|||"},
        {"!Account\nNOne\nTBank\n^\nD2024-03-13\nT-12.50\nPShop\n^\n", "2024/03/13|-1250|Shop|||"},
    });
}

TEST(CVReadQIF, TakesEveryLineEndAndEncoding) {
    const QString text = QStringLiteral("!Type:Bank\nD2024-03-13\nT-12.50\nPCafé\n^\n");
    QString carriageReturns = text;
    carriageReturns.replace(u'\n', u'\r');
    QString pairs = text;
    pairs.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    QStringEncoder wide(QStringEncoder::Utf16LE);
    const QByteArray wideBytes = wide(text);
    for (const QByteArray& bytes : {text.toUtf8(), text.toLatin1(), "\xEF\xBB\xBF" + text.toUtf8(), wideBytes,
                                    "\xFF\xFE" + wideBytes, carriageReturns.toUtf8(), pairs.toUtf8()})
        EXPECT_EQ(qifLinesOf(CVReadStatement(bytes)), QStringLiteral("2024/03/13|-1250|Café|||"));
    const CVStatement statement = CVReadStatement(pairs.toUtf8() + "\r\nDx\r\nT1.00\r\n^\r\n");
    ASSERT_EQ(statement.lines.size(), 2U);
    EXPECT_EQ(statement.lines.at(0).number, 2);
    EXPECT_EQ(statement.lines.at(1).number, 7);
}

TEST(CVReadQIF, SettlesTheOrderOfDayAndMonthOverAllAccountsElseAsks) {
    const DefaultLocale locale(QLocale(QStringLiteral("en_GB")));
    const QByteArray open = "!Type:Bank\nD1/ 2'05\nT-12.50\nPShop\n^\n";
    expectQIFRows(
        {{"!Type:Bank\nD1/ 2'05\nT-12.50\n^\nD1/13'05\nT1.00\n^\n", "2005/01/02|-1250||||\n2005/01/13|100||||"},
         {"!Type:Bank\nD1/ 2'05\nT-12.50\n^\nD13/1'05\nT1.00\n^\n", "2005/02/01|-1250||||\n2005/01/13|100||||"}});
    CVStatementMapping other;
    other.account = QStringLiteral("B");
    const CVStatement both =
        CVReadStatement("!Account\nNA\n^\n!Type:Bank\nD1/13'05\nT1.00\n^\n!Account\nNB\n^\n" + open, other);
    EXPECT_EQ(qifLinesOf(both), QStringLiteral("2005/01/02|-1250|Shop|||"));
    const CVStatement statement = CVReadStatement(open);
    ASSERT_EQ(subjectsOf(statement), std::vector{About::DayOrder});
    EXPECT_EQ(statement.questions.front().text,
              QStringLiteral("In line 2, is “1/ 2'05” 1 February 2005 or 2 January 2005?"));
    EXPECT_EQ(statement.questions.front().answers.at(1).option, QStringLiteral("--date-order mdy"));
    const CVStatement answered = CVReadStatement(open, statement.questions.front().answers.at(1).with);
    EXPECT_EQ(qifLinesOf(answered), QStringLiteral("2005/01/02|-1250|Shop|||"));
    EXPECT_TRUE(answered.questions.empty());
}

TEST(CVReadQIF, ExpectsAYearOfTwoDigitsBehindSlashesUnlessTheDaysSayOtherwise) {
    expectQIFRows({{"!Type:Bank\nD03/03/10\nT1.00\n^\n", "2010/03/03|100||||"},
                   {"!Type:Bank\nD24/03/12\nT1.00\n^\nD24/03/15\nT1.00\n^\nD24/04/02\nT1.00\n^\n",
                    "2024/03/12|100||||\n2024/03/15|100||||\n2024/04/02|100||||"}});
}

TEST(CVReadQIF, AsksAboutTheDayThatMostReadingsTellApart) {
    const DefaultLocale locale(QLocale(QStringLiteral("en_GB")));
    const CVStatement two = CVReadStatement("!Type:Bank\nD03-03-10\nT1.00\n^\n");
    ASSERT_EQ(subjectsOf(two), std::vector{About::DayOrder});
    EXPECT_EQ(two.questions.front().text, QStringLiteral("In line 2, is “03-03-10” 3 March 2010 or 10 March 2003?"));
    const CVStatement three = CVReadStatement("!Type:Bank\nD03-03-10\nT1.00\n^\nD04-05-10\nT1.00\n^\n");
    ASSERT_EQ(subjectsOf(three), std::vector{About::DayOrder});
    EXPECT_EQ(three.questions.front().text,
              QStringLiteral("In line 5, is “04-05-10” 4 May 2010, 5 April 2010 or 10 May 2004?"));
}

TEST(CVReadQIF, SettlesTheOrderByDaysThatRunOneWayInEachAccount) {
    const QByteArray rising =
        "D1/2/05\nT1.00\n^\nD2/2/05\nT1.00\n^\nD4/1/05\nT1.00\n^\nD5/3/05\nT1.00\n^\nD6/1/05\nT1.00\n^\n";
    CVStatementMapping known;
    known.account = QStringLiteral("A");
    const CVStatement statement =
        CVReadStatement("!Account\nNA\n^\n!Type:Bank\n" + rising + "!Account\nNB\n^\n!Type:Bank\n" + rising, known);
    EXPECT_EQ(subjectsOf(statement), std::vector<About>());
    EXPECT_EQ(statement.mapping.dayOrder, CVDayOrder::MonthDayYear);
}

TEST(CVReadQIF, AsksForTheAccountWhereThereAreSeveral) {
    const QByteArray bytes =
        "!Account\nNOne\nTBank\n^\n!Type:Bank\nD2024-03-13\nT1.00\nPA\n^\n"
        "!Account\nNTwo\nTCCard\n^\n!Type:CCard\nD2024-03-14\nT2.00\nPB\n^\nD2024-03-14\nT3.00\nPC\n^\n";
    const CVStatement statement = CVReadStatement(bytes);
    ASSERT_EQ(subjectsOf(statement), std::vector{About::Account});
    const CVStatementQuestion& question = statement.questions.front();
    EXPECT_EQ(question.text, QStringLiteral("This file holds 2 accounts. Which one is to be imported?"));
    ASSERT_EQ(question.answers.size(), 2U);
    EXPECT_EQ(question.answers.at(0).label, QStringLiteral("One, 1 line"));
    EXPECT_EQ(question.answers.at(1).label, QStringLiteral("Two, 2 lines"));
    EXPECT_EQ(question.answers.at(1).option, QStringLiteral("--account \"Two\""));
    EXPECT_EQ(qifLinesOf(statement), QStringLiteral("2024/03/13|100|A|||"));
    const CVStatement two = CVReadStatement(bytes, question.answers.at(1).with);
    EXPECT_TRUE(two.questions.empty());
    EXPECT_EQ(qifLinesOf(two), QStringLiteral("2024/03/14|200|B|||\n2024/03/14|300|C|||"));
    EXPECT_NE(two.headerDigest, statement.headerDigest);
    EXPECT_EQ(two.headerDigest.size(), 64);
    CVStatementMapping missing;
    missing.account = QStringLiteral("Three");
    EXPECT_EQ(CVReadStatement(bytes, missing).problem,
              QStringLiteral("This file does not hold the account “Three”, but these: “One”, “Two”."));
}

TEST(CVReadQIF, TellsAccountsWithoutNamesByTheirTypes) {
    const CVStatement statement = CVReadStatement(
        "!Type:Bank\nD2024-03-13\nT1.00\n^\n!Type:CCard\nD2024-03-13\nT2.00\n^\n!Type:Bank\nD2024-03-14\nT3.00\n^\n");
    ASSERT_EQ(subjectsOf(statement), std::vector{About::Account});
    EXPECT_EQ(statement.questions.front().answers.at(0).label, QStringLiteral("Bank, 2 lines"));
    EXPECT_EQ(statement.questions.front().answers.at(1).label, QStringLiteral("CCard, 1 line"));
}

TEST(CVReadQIF, RemembersNothingOfAnAccountWithoutAName) {
    EXPECT_EQ(CVReadStatement("!Type:Bank\nD2024-03-13\nT1.00\n^\n").headerDigest, QByteArray());
}

TEST(CVReadQIF, NamesNobodyByAListOfAccounts) {
    const DefaultLocale locale(QLocale(QStringLiteral("en_GB")));
    const FixedToday today(QBDate::dateWithYear(2026, 6, 1));
    const CVStatement statement = CVReadStatement(
        "!Option:AutoSwitch\n!Account\nNOne\n^\nNTwo\n^\n!Clear:AutoSwitch\n!Type:Bank\nD2024-03-13\nT1.00\n^\n");
    EXPECT_EQ(statement.summary, QStringLiteral("QIF, UTF-8, 1 line, 13 March 2024"));
}

TEST(CVReadQIF, LeavesOutListsAndInvestments) {
    const DefaultLocale locale(QLocale(QStringLiteral("en_GB")));
    const FixedToday today(QBDate::dateWithYear(2026, 6, 1));
    const QByteArray lists =
        "!Type:Class\nNA\nDB\n^\n!Type:Cat\nNFood\nDEat\nE\n^\n!Type:Memorized\nKC\nT-5.00\nPX\n^\n"
        "!Type:Security\nNS\n^\n!Type:Prices\n\"S\",1.00,\"1/2/05\"\n^\n";
    const QByteArray investments = "!Type:Invst\nD2024-03-13\nNBuy\nYS\nI10\nQ5\nT50.00\n^\nD2024-03-13\nNSell\n^\n";
    EXPECT_EQ(CVReadStatement(lists).problem,
              QStringLiteral("This file holds lists, such as one of categories, but no payments."));
    EXPECT_EQ(CVReadStatement(lists + investments).problem,
              QStringLiteral("This file holds investments alone, which are no payments."));
    EXPECT_EQ(CVReadStatement("!Type:Bank\n").problem, QStringLiteral("This file holds no payments."));
    const CVStatement statement =
        CVReadStatement(lists + investments + "!Type:Bank\nD2024-03-13\nT1.00\nPA\n^\n" + lists);
    EXPECT_EQ(qifLinesOf(statement), QStringLiteral("2024/03/13|100|A|||"));
    EXPECT_EQ(statement.summary, QStringLiteral("QIF, UTF-8, 2 investment lines left out, 1 line, 13 March 2024"));
}

TEST(CVReadQIF, ReadsWithTheMappingThatItHasFound) {
    const QByteArray bytes = "!Type:Bank\nD3/13/2024\nT-1.234,50\n^\n";
    const CVStatement statement = CVReadStatement(bytes);
    EXPECT_EQ(statement.mapping.dayOrder, CVDayOrder::MonthDayYear);
    EXPECT_EQ(statement.mapping.decimalMark, u',');
    EXPECT_EQ(statement.mapping.encoding, "UTF-8");
    EXPECT_FALSE(statement.mapping.columns);
    EXPECT_FALSE(statement.mapping.separator);
    EXPECT_FALSE(statement.mapping.headerLine);
    EXPECT_EQ(qifLinesOf(CVReadStatement(bytes, statement.mapping)), qifLinesOf(statement));
    CVStatementMapping turned = statement.mapping;
    turned.positiveIsOut = true;
    EXPECT_EQ(qifLinesOf(CVReadStatement(bytes, turned)), QStringLiteral("2024/03/13|123450||||"));
}

TEST(CVReadQIF, IsRecognizedByContentAlone) {
    for (const auto* const bytes : {"!Type:Bank\n", "\n\n!type:CCard\n", "!Account\nNx\n", "!Option:MDY\n",
                                    "\xFF\xFE!\0T\0y\0p\0e\0:\0", "D1/2/24\nT1\n^\n", "PShop\nD1/2/24\nU1.00\n^\n"}) {
        const bool isWide = *bytes == '\xFF';
        EXPECT_TRUE(CVIsQIF(isWide ? QByteArray(bytes, 14) : QByteArray(bytes))) << bytes;
    }
    for (const auto* const bytes : {"", "Date;Payee;Amount\n13/03/2024;Shop;-12,50\n", "Type: Bank\n", "a!Type:Bank\n",
                                    "D1/2/24\nPShop\n^\n", "<OFX>", "2024-03-13,Shop,-12.50\n"})
        EXPECT_FALSE(CVIsQIF(bytes)) << bytes;
}

TEST(CVReadQIF, IsBoundedAndCanBeStopped) {
    QByteArray many = "!Type:Bank\n";
    for (int entry = 0; entry < 200'001; ++entry)
        many += "D2024-03-13\nT1\n^\n";
    EXPECT_EQ(CVReadStatement(many).problem,
              QStringLiteral("This statement has more than 200000 payments. Please import it in parts."));
    QByteArray long_ = "!Type:Bank\nD2024-03-13\nT1\n";
    for (int line = 0; line < 2'000'000; ++line)
        long_ += "M\n";
    EXPECT_FALSE(CVReadStatement(long_).problem.isEmpty());
    const auto at = [](int least) { return [least](int permille) { return permille >= least; }; };
    EXPECT_EQ(CVReadStatement(many.first(100'000), {}, at(0)).problem,
              QStringLiteral("Reading the statement was stopped."));
    EXPECT_EQ(CVReadStatement(many.first(100'000), {}, at(600)).problem,
              QStringLiteral("Reading the statement was stopped."));
}

} // namespace
