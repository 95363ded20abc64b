#include "importing/camt/CVReadCAMT.h"

#include "CAMTFixtures.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

namespace {

using About = CVStatementQuestion::About;

TEST(CVReadCAMT, ReadsTheShapesOfAllVersions) {
    const QByteArray amount = "<Amt Ccy=\"EUR\">12.50</Amt><CdtDbtInd>DBIT</CdtDbtInd>";
    const QByteArray day = "<BookgDt><Dt>2024-03-13</Dt></BookgDt>";
    // Of the first version payments stand in the entry itself, and accounts are named otherwise.
    const QByteArray first = "<Stmt><Acct><Id><PrtryAcct><Id>77</Id></PrtryAcct></Id></Acct><Ntry>" + amount +
                             "<Sts>BOOK</Sts>" + day +
                             "<TxDtls><RltdPties><Cdtr><Nm>Shop</Nm></Cdtr></RltdPties><RmtInf><Strd><CdtrRefInf>"
                             "<CdtrRef>RF1</CdtrRef></CdtrRefInf></Strd></RmtInf></TxDtls></Ntry></Stmt>";
    const QByteArray second = camtStatement("<Ntry>" + amount + "<Sts>BOOK</Sts>" + day +
                                            "<NtryDtls><TxDtls><RltdPties><Cdtr><Nm>Shop</Nm></Cdtr></RltdPties>"
                                            "<RmtInf><Ustrd>RF1</Ustrd></RmtInf></TxDtls></NtryDtls></Ntry>");
    const QByteArray eighth = camtStatement(
        "<Ntry>" + amount + "<Sts><Cd>BOOK</Cd></Sts>" + day +
        "<NtryDtls><TxDtls><RltdPties><Cdtr><Pty><Nm>Shop</Nm></Pty></Cdtr></RltdPties>"
        "<RmtInf><Strd><CdtrRefInf><Ref>RF1</Ref></CdtrRefInf></Strd></RmtInf></TxDtls></NtryDtls></Ntry>");
    const QString line = QStringLiteral("2024/03/13|-1250|Shop|RF1|");
    EXPECT_EQ(camtLinesOf(CVReadStatement(camtDocument(first, "01"))), line);
    EXPECT_EQ(camtLinesOf(CVReadStatement(camtDocument(second, "02"))), line);
    EXPECT_EQ(camtLinesOf(CVReadStatement(camtDocument(eighth, "08"))), line);
    EXPECT_EQ(camtLinesOf(CVReadStatement(camtDocument(eighth, "12"))), line);
}

TEST(CVReadCAMT, ReadsReportsNotificationsAndPrefixes) {
    QByteArray report =
        camtDocument(camtStatement(camtEntryOfPart("<RltdPties><Cdtr><Nm>Shop</Nm></Cdtr></RltdPties>")));
    QByteArray notification = report;
    QByteArray prefixed = report;
    report.replace("BkToCstmrStmt", "BkToCstmrAcctRpt").replace("Stmt>", "Rpt>").replace("053", "052");
    notification.replace("BkToCstmrStmt", "BkToCstmrDbtCdtNtfctn").replace("Stmt>", "Ntfctn>").replace("053", "054");
    prefixed.replace("<", "<n:").replace("<n:/", "</n:").replace("<n:?", "<?").replace("xmlns=", "xmlns:n=");
    const QString line = QStringLiteral("2024/03/13|-1250|Shop||");
    EXPECT_EQ(camtLinesOf(CVReadStatement(report)), line);
    EXPECT_EQ(camtLinesOf(CVReadStatement(notification)), line);
    EXPECT_EQ(camtLinesOf(CVReadStatement(prefixed)), line) << prefixed.toStdString();
    EXPECT_TRUE(CVReadStatement(report).summary.startsWith(QStringLiteral("CAMT.052 version 2, account DE11, ")));
    EXPECT_TRUE(CVReadStatement(notification).summary.startsWith(QStringLiteral("CAMT.054 version 2, ")));
}

TEST(CVReadCAMT, PutsTheStatementsOfAnAccountTogether) {
    const CVStatement statement =
        CVReadStatement(camtDocument(camtStatement(camtEntry("")) + camtStatement(camtEntry(""))));
    EXPECT_TRUE(statement.questions.empty());
    EXPECT_EQ(statement.lines.size(), 2U);
    EXPECT_EQ(statement.headerDigest.size(), 64);
}

TEST(CVReadCAMT, AsksForTheAccountWhereThereAreSeveral) {
    const QByteArray bytes = camtDocument(camtStatement(camtEntry("")) +
                                          camtStatement(camtEntry("<NtryRef>1</NtryRef>") + camtEntry(""), "DE22") +
                                          camtStatement("", "DE33") + camtStatement(camtEntry("")));
    const CVStatement statement = CVReadStatement(bytes);
    ASSERT_EQ(statement.questions.size(), 1U);
    const CVStatementQuestion& question = statement.questions.front();
    EXPECT_EQ(question.about, About::Account);
    ASSERT_EQ(question.answers.size(), 2U);
    EXPECT_EQ(question.answers.at(0).label, QStringLiteral("DE11, 2 lines"));
    EXPECT_EQ(question.answers.at(1).label, QStringLiteral("DE22, 2 lines"));
    EXPECT_EQ(question.answers.at(1).option, QStringLiteral("--account \"DE22\""));
    EXPECT_EQ(statement.lines.size(), 2U);
    const CVStatement other = CVReadStatement(bytes, question.answers.at(1).with);
    EXPECT_TRUE(other.questions.empty());
    EXPECT_EQ(camtLinesOf(other), QStringLiteral("2024/03/13|-1250|||1\n2024/03/13|-1250|||"));
    EXPECT_NE(other.headerDigest, statement.headerDigest);
    CVStatementMapping missing;
    missing.account = QStringLiteral("DE44");
    EXPECT_EQ(CVReadStatement(bytes, missing).problem,
              QStringLiteral("This file does not hold the account “DE44”, but these: “DE11”, “DE22”."));
}

TEST(CVReadCAMT, TellsAccountsOfOneNumberByTheirCurrencies) {
    QByteArray dollars = camtStatement(camtEntry(""), "DE11", "USD");
    dollars.replace("Ccy=\"EUR\"", "Ccy=\"USD\"");
    const CVStatement statement = CVReadStatement(camtDocument(camtStatement(camtEntry("")) + dollars));
    ASSERT_EQ(statement.questions.size(), 1U);
    EXPECT_EQ(statement.questions.front().answers.at(0).label, QStringLiteral("DE11 EUR, 1 line"));
    EXPECT_EQ(statement.questions.front().answers.at(1).label, QStringLiteral("DE11 USD, 1 line"));
}

TEST(CVReadCAMT, SaysInOneLineWhatItIs) {
    const DefaultLocale locale(QLocale(QStringLiteral("de_DE")));
    const FixedToday today(QBDate::dateWithYear(2026, 6, 1));
    const CVStatement home = readCAMTEntries(camtEntry(""));
    EXPECT_TRUE(home.summary.startsWith(QStringLiteral("CAMT.053 version 2, account DE11, 1 line, 13")))
        << home.summary.toStdString();
    const DefaultLocale other(QLocale(QStringLiteral("en_GB")));
    EXPECT_TRUE(readCAMTEntries(camtEntry(""))
                    .summary.startsWith(QStringLiteral("CAMT.053 version 2, account DE11, in EUR, 1 line")));
    EXPECT_FALSE(home.mapping.columns);
    EXPECT_FALSE(home.mapping.headerLine);
    EXPECT_EQ(home.mapping.encoding, "UTF-8");
    EXPECT_EQ(camtLinesOf(CVReadStatement(camtDocument(camtStatement(camtEntry(""))), home.mapping)),
              camtLinesOf(home));
}

TEST(CVReadCAMT, SaysWhatIsWrongWithAFileWithoutEntries) {
    EXPECT_EQ(readCAMTEntries("").problem, QStringLiteral("This statement holds no entries."));
    EXPECT_EQ(CVReadStatement("<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001.02\"/>").problem,
              QStringLiteral("This file holds no statement of an account."));
}

TEST(CVReadCAMT, TakesEveryEncoding) {
    QString text = QString::fromUtf8(camtDocument(camtStatement(camtEntry("<AddtlNtryInf>Café</AddtlNtryInf>"))));
    const QString line = QStringLiteral("2024/03/13|-1250||Café|");
    QStringEncoder wide(QStringEncoder::Utf16LE);
    const auto declaring = [text](const char* encoding) {
        return QString(text).replace(QStringLiteral("UTF-8"), QLatin1String(encoding));
    };
    for (const QByteArray& bytes : {text.toUtf8(), "\xEF\xBB\xBF" + text.toUtf8(), "\n " + text.toUtf8(),
                                    declaring("ISO-8859-1").toLatin1(), declaring("windows-1252").toLatin1(),
                                    declaring("ISO-8859-15").toLatin1(), text.toLatin1(), declaring("UTF-16").toUtf8(),
                                    "\xFF\xFE" + QByteArray(wide(declaring("UTF-16"))), declaring("NO-SUCH").toUtf8()})
        EXPECT_EQ(camtLinesOf(CVReadStatement(bytes)), line) << bytes.first(60).toStdString();
    const QByteArray greek = declaring("windows-1253").toLatin1().replace('\xE9', '\xE1');
    EXPECT_EQ(camtLinesOf(CVReadStatement(greek)), QStringLiteral("2024/03/13|-1250||Cafα|"));
    CVStatementMapping known;
    known.encoding = "windows-1250";
    EXPECT_EQ(camtLinesOf(CVReadStatement(text.toLatin1(), known)), line);
}

TEST(CVReadCAMT, RefusesDamagedAndHostileFilesInOneSentence) {
    const QByteArray whole = camtDocument(camtStatement(camtEntry("") + "\n" + camtEntry("")));
    EXPECT_EQ(
        CVReadStatement(whole.first(whole.size() - 20)).problem,
        QStringLiteral("This statement is damaged in line 4, so that nothing of it is read. Please have your bank "
                       "make it anew."));
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE lolz [<!ENTITY a \"ha\">";
    for (char name = 'b'; name <= 'z'; ++name)
        bomb += QByteArray("<!ENTITY ") + name + " \"" +
                QByteArray("&").append(char(name - 1)).append(';').repeated(10) + "\">";
    bomb += "]>" + camtDocument(camtStatement(camtEntry("<AddtlNtryInf>&z;</AddtlNtryInf>"))).sliced(39);
    QByteArray external = "<?xml version=\"1.0\"?><!DOCTYPE d [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>" +
                          camtDocument(camtStatement(camtEntry("<AddtlNtryInf>&a;</AddtlNtryInf>"))).sliced(39);
    for (const QByteArray& bytes : {bomb, external})
        EXPECT_EQ(CVReadStatement(bytes).problem,
                  QStringLiteral("This is no statement of a bank: it declares a document type of its own."));
    EXPECT_FALSE(readCAMTEntries(camtEntry("<AddtlNtryInf>&nothing;</AddtlNtryInf>")).problem.isEmpty());
    EXPECT_FALSE(readCAMTEntries(camtEntry(QByteArray("<a>").repeated(300) + QByteArray("</a>").repeated(300)))
                     .problem.isEmpty());
    QByteArray tag = "<Ntry";
    for (int attribute = 0; attribute < 101; ++attribute)
        tag += " a" + QByteArray::number(attribute) + "  =  '1'";
    EXPECT_EQ(readCAMTEntries(tag + "/>").problem,
              QStringLiteral("This is no statement: one of its tags has more than 100 attributes."));
    // Quotation marks of a text are no attributes.
    EXPECT_EQ(readCAMTEntries(camtEntry("<AddtlNtryInf>" + QByteArray("=\"").repeated(90) + "</AddtlNtryInf>")).problem,
              QString());
}

TEST(CVReadCAMT, IsBoundedAndCanBeStopped) {
    const QByteArray entry = "<Ntry/>";
    EXPECT_EQ(readCAMTEntries(entry.repeated(200'001)).problem,
              QStringLiteral("This statement has more than 200000 payments. Please import it in parts."));
    EXPECT_FALSE(readCAMTEntries(camtEntry("<NtryDtls>" + QByteArray("<TxDtls/>").repeated(200'001) + "</NtryDtls>"))
                     .problem.isEmpty());
    const CVStatement statement = readCAMTEntries(camtEntryOfPart(
        "<RmtInf>" + QByteArray("<Ustrd>" + QByteArray(9000, 'x') + "</Ustrd>").repeated(2) + "</RmtInf>"));
    ASSERT_EQ(statement.lines.size(), 1U);
    EXPECT_EQ(statement.lines.front().purpose.size(), 4096);
    const QByteArray many = camtDocument(camtStatement(camtEntry("").repeated(2000)));
    const auto at = [](int least) { return [least](int permille) { return permille >= least; }; };
    EXPECT_EQ(CVReadStatement(many, {}, at(0)).problem, QStringLiteral("Reading the statement was stopped."));
    EXPECT_EQ(CVReadStatement(many, {}, at(500)).problem, QStringLiteral("Reading the statement was stopped."));
    EXPECT_EQ(CVReadStatement(many, {}, at(1001)).problem, QString());
}

TEST(CVReadCAMT, IsRecognizedByContentAlone) {
    EXPECT_TRUE(CVIsCAMT(camtDocument("")));
    EXPECT_TRUE(CVIsCAMT("\n<BkToCstmrStmt>"));
    for (const auto* const bytes :
         {"", "<html>BkToCstmr</html>", "Date;Payee;Amount\n13/03/2024;BkToCstmrStmt;1\n",
          "<?xml version=\"1.0\"?><OFX></OFX>", "<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:pain.001.001.03\">"})
        EXPECT_FALSE(CVIsCAMT(bytes)) << bytes;
}

} // namespace
