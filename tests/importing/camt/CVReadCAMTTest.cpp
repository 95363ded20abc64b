#include "importing/camt/CVReadCAMT.h"

#include "importing/CVReadStatement.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

#include <vector>

namespace {

using About = CVStatementQuestion::About;

QString lineText(const CVStatementLine& line) {
    if (!line.unreadable.isEmpty())
        return u'!' + line.unreadable;
    const QString day = QString::fromLatin1(line.day->corvellaXMLRepresentation());
    return QStringList{day, QString::number(*line.hundredths), line.payee, line.purpose, line.bankID}.join(u'|');
}

/// "2024/03/12|-1250|payee|purpose|bank's number", or "!why" for an entry that cannot be read.
QString linesOf(const CVStatement& statement) {
    QStringList lines;
    for (const auto& line : statement.lines)
        lines.append(lineText(line));
    return lines.join(u'\n');
}

QByteArray document(const QByteArray& statements, const QByteArray& version = "02") {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Document "
           "xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001." +
           version + "\"><BkToCstmrStmt>\n<GrpHdr><MsgId>1</MsgId></GrpHdr>" + statements +
           "</BkToCstmrStmt></Document>";
}

QByteArray statementOf(const QByteArray& entries, const QByteArray& number = "DE11",
                       const QByteArray& currency = "EUR") {
    return "<Stmt><Id>1</Id><Acct><Id><IBAN>" + number + "</IBAN></Id><Ccy>" + currency +
           "</Ccy><Ownr><Nm>Ann Owner</Nm></Ownr></Acct>"
           "<Bal><Amt Ccy=\"EUR\">100.00</Amt><CdtDbtInd>CRDT</CdtDbtInd></Bal>" +
           entries + "</Stmt>";
}

/// An entry of 12.50 out, with `more` in it.
QByteArray entryWith(const QByteArray& more) {
    return "<Ntry><Amt Ccy=\"EUR\">12.50</Amt><CdtDbtInd>DBIT</CdtDbtInd><Sts>BOOK</Sts>"
           "<BookgDt><Dt>2024-03-13</Dt></BookgDt>" +
           more + "</Ntry>";
}

QByteArray partsWith(const QByteArray& parts) {
    return entryWith("<NtryDtls><TxDtls>" + parts + "</TxDtls></NtryDtls>");
}

CVStatement read(const QByteArray& entries) {
    return CVReadStatement(document(statementOf(entries)));
}

struct CAMTRow {
    QByteArray entries;
    const char* lines;
};

void expectRows(const std::vector<CAMTRow>& rows) {
    for (const auto& [entries, lines] : rows) {
        const CVStatement statement = read(entries);
        EXPECT_EQ(statement.problem, QString()) << entries.toStdString();
        EXPECT_TRUE(statement.questions.empty());
        EXPECT_EQ(linesOf(statement), QString::fromUtf8(lines)) << entries.toStdString();
    }
}

TEST(CVReadCAMT, ReadsTheShapesOfAllVersions) {
    const QByteArray amount = "<Amt Ccy=\"EUR\">12.50</Amt><CdtDbtInd>DBIT</CdtDbtInd>";
    const QByteArray day = "<BookgDt><Dt>2024-03-13</Dt></BookgDt>";
    // Of the first version payments stand in the entry itself, and accounts are named otherwise.
    const QByteArray first = "<Stmt><Acct><Id><PrtryAcct><Id>77</Id></PrtryAcct></Id></Acct><Ntry>" + amount +
                             "<Sts>BOOK</Sts>" + day +
                             "<TxDtls><RltdPties><Cdtr><Nm>Shop</Nm></Cdtr></RltdPties><RmtInf><Strd><CdtrRefInf>"
                             "<CdtrRef>RF1</CdtrRef></CdtrRefInf></Strd></RmtInf></TxDtls></Ntry></Stmt>";
    const QByteArray second = statementOf("<Ntry>" + amount + "<Sts>BOOK</Sts>" + day +
                                          "<NtryDtls><TxDtls><RltdPties><Cdtr><Nm>Shop</Nm></Cdtr></RltdPties>"
                                          "<RmtInf><Ustrd>RF1</Ustrd></RmtInf></TxDtls></NtryDtls></Ntry>");
    const QByteArray eighth =
        statementOf("<Ntry>" + amount + "<Sts><Cd>BOOK</Cd></Sts>" + day +
                    "<NtryDtls><TxDtls><RltdPties><Cdtr><Pty><Nm>Shop</Nm></Pty></Cdtr></RltdPties>"
                    "<RmtInf><Strd><CdtrRefInf><Ref>RF1</Ref></CdtrRefInf></Strd></RmtInf></TxDtls></NtryDtls></Ntry>");
    const QString line = QStringLiteral("2024/03/13|-1250|Shop|RF1|");
    EXPECT_EQ(linesOf(CVReadStatement(document(first, "01"))), line);
    EXPECT_EQ(linesOf(CVReadStatement(document(second, "02"))), line);
    EXPECT_EQ(linesOf(CVReadStatement(document(eighth, "08"))), line);
    EXPECT_EQ(linesOf(CVReadStatement(document(eighth, "12"))), line);
}

TEST(CVReadCAMT, ReadsReportsNotificationsAndPrefixes) {
    QByteArray report = document(statementOf(partsWith("<RltdPties><Cdtr><Nm>Shop</Nm></Cdtr></RltdPties>")));
    QByteArray notification = report;
    QByteArray prefixed = report;
    report.replace("BkToCstmrStmt", "BkToCstmrAcctRpt").replace("Stmt>", "Rpt>").replace("053", "052");
    notification.replace("BkToCstmrStmt", "BkToCstmrDbtCdtNtfctn").replace("Stmt>", "Ntfctn>").replace("053", "054");
    prefixed.replace("<", "<n:").replace("<n:/", "</n:").replace("<n:?", "<?").replace("xmlns=", "xmlns:n=");
    const QString line = QStringLiteral("2024/03/13|-1250|Shop||");
    EXPECT_EQ(linesOf(CVReadStatement(report)), line);
    EXPECT_EQ(linesOf(CVReadStatement(notification)), line);
    EXPECT_EQ(linesOf(CVReadStatement(prefixed)), line) << prefixed.toStdString();
    EXPECT_TRUE(CVReadStatement(report).summary.startsWith(QStringLiteral("CAMT.052 version 2, account DE11, ")));
    EXPECT_TRUE(CVReadStatement(notification).summary.startsWith(QStringLiteral("CAMT.054 version 2, ")));
}

TEST(CVReadCAMT, TakesTheDayThatTheBankWrote) {
    for (const auto* const day :
         {"<BookgDt><Dt>2024-03-13</Dt></BookgDt>", "<BookgDt><Dt>2024-03-13+01:00</Dt></BookgDt>",
          "<BookgDt><Dt>2024-03-13Z</Dt></BookgDt>", "<BookgDt><DtTm>2024-03-13T23:59:59.999-11:00</DtTm></BookgDt>",
          "<BookgDt><DtTm>2024-03-13T00:00:00+14:00</DtTm></BookgDt><ValDt><Dt>2024-03-15</Dt></ValDt>",
          "<ValDt><Dt>2024-03-13</Dt></ValDt>", "<BookgDt>\n<Dt> 2024-03-13 </Dt>\n</BookgDt>"}) {
        const CVStatement statement =
            read("<Ntry><Amt Ccy=\"EUR\">1</Amt><CdtDbtInd>CRDT</CdtDbtInd>" + QByteArray(day) + "</Ntry>");
        EXPECT_EQ(linesOf(statement), QStringLiteral("2024/03/13|100|||")) << day;
    }
}

TEST(CVReadCAMT, ReadsAmountsAsTextAndTheirMark) {
    const std::vector<CAMTRow> rows{
        {"<Amt Ccy=\"EUR\">12.5</Amt><CdtDbtInd>DBIT</CdtDbtInd>", "2024/03/13|-1250|||"},
        {"<Amt Ccy=\"EUR\">12.5</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "2024/03/13|1250|||"},
        {"<Amt Ccy=\"EUR\">0012</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "2024/03/13|1200|||"},
        {"<Amt Ccy=\"EUR\">1.00500</Amt><CdtDbtInd>DBIT</CdtDbtInd>", "2024/03/13|-101|||"},
        {"<Amt Ccy=\"EUR\">.5</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "2024/03/13|50|||"},
        {"<Amt Ccy=\"EUR\">12,5</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "2024/03/13|1250|||"},
        {"<Amt Ccy=\"EUR\">123456789012345.67</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "2024/03/13|12345678901234567|||"},
        {"<Amt>5</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "2024/03/13|500|||"},
        {"<Amt Ccy=\"EUR\">1,234</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "!“1,234” is no amount"},
        {"<Amt Ccy=\"EUR\">1,234.50</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "!“1,234.50” is no amount"},
        {"<Amt Ccy=\"EUR\">-12.50</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "!“-12.50” is no amount"},
        {"<Amt Ccy=\"EUR\">1E3</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "!“1E3” is no amount"},
        {"<Amt Ccy=\"EUR\">1234567890123456</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "!“1234567890123456” is no amount"},
        {"<Amt Ccy=\"EUR\"/><CdtDbtInd>CRDT</CdtDbtInd>", "!there is no amount"},
        {"<Amt Ccy=\"EUR\">1</Amt>", "!it is marked neither as money in nor as money out"},
        {"<Amt Ccy=\"EUR\">1</Amt><CdtDbtInd>debit</CdtDbtInd>", "!it is marked neither as money in nor as money out"},
        {"<Amt Ccy=\"USD\">1</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "!its amount is in USD, the account in EUR"},
    };
    for (const auto& [amount, lines] : rows)
        expectRows({{"<Ntry>" + amount + "<BookgDt><Dt>2024-03-13</Dt></BookgDt></Ntry>", lines}});
}

/// The mark is that of the booking, and a reversal's is the opposite of the booking that it takes back: CRDT brings
/// back money that had gone out. The parties are those of the earlier booking.
TEST(CVReadCAMT, TakesTheMarkOfAReversalAsItStands) {
    const QByteArray parties = "<NtryDtls><TxDtls><RltdPties><Dbtr><Nm>Ann</Nm></Dbtr><Cdtr><Nm>Gym</Nm></Cdtr>"
                               "</RltdPties></TxDtls></NtryDtls>";
    const auto reversal = [&](const QByteArray& mark, const QByteArray& isReversal) {
        return "<Ntry><Amt Ccy=\"EUR\">12.50</Amt><CdtDbtInd>" + mark + "</CdtDbtInd><RvslInd>" + isReversal +
               "</RvslInd><BookgDt><Dt>2024-03-13</Dt></BookgDt>" + parties + "</Ntry>";
    };
    expectRows({{reversal("CRDT", "true"), "2024/03/13|1250|Gym||"},
                {reversal("CRDT", "1"), "2024/03/13|1250|Gym||"},
                {reversal("CRDT", "false"), "2024/03/13|1250|Ann||"},
                {reversal("DBIT", "true"), "2024/03/13|-1250|Ann||"},
                {reversal("DBIT", "false"), "2024/03/13|-1250|Gym||"}});
}

TEST(CVReadCAMT, NamesTheOtherSide) {
    const auto entry = [](const QByteArray& parties) {
        return partsWith("<RltdPties>" + parties + "</RltdPties>").replace("DBIT", "CRDT");
    };
    const QByteArray own = "<Id><IBAN>DE11</IBAN></Id>";
    const QByteArray other = "<Id><Othr><Id>99</Id></Othr></Id>";
    expectRows({
        {entry("<Dbtr><Nm>Boss</Nm></Dbtr><Cdtr><Nm>Ann</Nm></Cdtr>"), "2024/03/13|1250|Boss||"},
        {entry("<UltmtDbtr><Nm>Boss</Nm></UltmtDbtr>"), "2024/03/13|1250|Boss||"},
        {entry("<Dbtr><Nm>Agent</Nm></Dbtr><UltmtDbtr><Pty><Nm>Boss</Nm></Pty></UltmtDbtr>"),
         "2024/03/13|1250|Agent||"},
        {entry("<Cdtr><Nm>Boss</Nm></Cdtr>"), "2024/03/13|1250|Boss||"},
        {entry("<Cdtr><Nm>Ann</Nm></Cdtr><CdtrAcct>" + own + "</CdtrAcct>"), "2024/03/13|1250|||"},
        {entry("<Cdtr><Nm>ANN OWNER</Nm></Cdtr>"), "2024/03/13|1250|||"},
        {entry("<Dbtr><Nm>Ann</Nm></Dbtr><DbtrAcct>" + own + "</DbtrAcct><Cdtr><Nm>Boss</Nm></Cdtr><CdtrAcct>" + other +
               "</CdtrAcct>"),
         "2024/03/13|1250|Boss||"},
        {entry("<Dbtr><Nm>Ann Owner</Nm></Dbtr><DbtrAcct>" + other + "</DbtrAcct>"), "2024/03/13|1250|Ann Owner||"},
        {entry("<Dbtr><Agt><FinInstnId><Nm>Bank</Nm></FinInstnId></Agt></Dbtr>"), "2024/03/13|1250|Bank||"},
        {entry("<Prtry><Tp>x</Tp><Pty><Nm>Boss</Nm></Pty></Prtry>"), "2024/03/13|1250|Boss||"},
    });
}

TEST(CVReadCAMT, JoinsWhatAPaymentIsFor) {
    expectRows({
        {partsWith("<RmtInf><Ustrd>Two\n  lamps</Ustrd><Ustrd>March</Ustrd></RmtInf><AddtlTxInf>x</AddtlTxInf>"),
         "2024/03/13|-1250||Two lamps March|"},
        {partsWith("<RmtInf><Ustrd>Two &amp; &#x6c;amps</Ustrd><Strd><CdtrRefInf><Ref>RF1</Ref></CdtrRefInf>"
                   "<AddtlRmtInf>and more</AddtlRmtInf><AddtlRmtInf>?REJECT?0</AddtlRmtInf></Strd></RmtInf>"),
         "2024/03/13|-1250||Two & lamps RF1 and more|"},
        {partsWith("<RmtInf><Strd><RfrdDocInf><Nb>R-7</Nb></RfrdDocInf></Strd></RmtInf>"), "2024/03/13|-1250||R-7|"},
        {partsWith("<RmtInf><Ustrd><![CDATA[a < b]]></Ustrd></RmtInf>"), "2024/03/13|-1250||a < b|"},
        {partsWith("<AddtlTxInf>Fee</AddtlTxInf>"), "2024/03/13|-1250||Fee|"},
        {entryWith("<AddtlNtryInf>Fee</AddtlNtryInf>"), "2024/03/13|-1250||Fee|"},
    });
}

TEST(CVReadCAMT, KeepsTheNumberOfTheBank) {
    const QByteArray own =
        "<NtryDtls><TxDtls><Refs><AcctSvcrRef>A1</AcctSvcrRef><TxId>T1</TxId></Refs></TxDtls></NtryDtls>";
    expectRows({
        {entryWith("<NtryRef>7</NtryRef><AcctSvcrRef>B1</AcctSvcrRef>" + own), "2024/03/13|-1250|||B1"},
        {entryWith("<NtryRef>7</NtryRef><AcctSvcrRef>NONREF</AcctSvcrRef>" + own), "2024/03/13|-1250|||7"},
        {entryWith(own), "2024/03/13|-1250|||A1"},
        {partsWith("<Refs><EndToEndId>NOTPROVIDED</EndToEndId><TxId>T1</TxId></Refs>"), "2024/03/13|-1250|||T1"},
        {partsWith("<Refs><AcctSvcrRef>NOTPROVIDED</AcctSvcrRef></Refs>"), "2024/03/13|-1250|||"},
    });
}

QByteArray batchOf(const QByteArray& parts) {
    return entryWith("<AcctSvcrRef>B</AcctSvcrRef><NtryDtls><Btch><NbOfTxs>2</NbOfTxs></Btch>" + parts +
                     "</NtryDtls><AddtlNtryInf>Collected</AddtlNtryInf>");
}

QByteArray part(const QByteArray& amount, const QByteArray& payee) {
    return "<TxDtls>" + amount + "<RltdPties><Cdtr><Nm>" + payee + "</Nm></Cdtr></RltdPties></TxDtls>";
}

TEST(CVReadCAMT, MakesALineOfEachPartWhereThePartsAreTheWhole) {
    const auto details = [](const QByteArray& amount, const QByteArray& currency) {
        return "<AmtDtls><InstdAmt><Amt Ccy=\"USD\">99</Amt></InstdAmt><TxAmt><Amt Ccy=\"" + currency + "\">" + amount +
               "</Amt></TxAmt></AmtDtls>";
    };
    expectRows({
        {batchOf(part("<Amt Ccy=\"EUR\">10.00</Amt>", "A") + part("<Amt Ccy=\"EUR\">2.50</Amt>", "B")),
         "2024/03/13|-1000|A|Collected|B#1\n2024/03/13|-250|B|Collected|B#2"},
        {batchOf(part(details("10.00", "EUR"), "A") + part(details("2.50", "EUR"), "B")),
         "2024/03/13|-1000|A|Collected|B#1\n2024/03/13|-250|B|Collected|B#2"},
        {batchOf(part("<Refs><TxId>1</TxId></Refs><Amt Ccy=\"EUR\">15.00</Amt>", "A") +
                 part("<Refs><TxId>2</TxId></Refs><Amt Ccy=\"EUR\">2.50</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "B")),
         "2024/03/13|-1500|A|Collected|1\n2024/03/13|250|B|Collected|2"},
        {entryWith("<NtryDtls>" + part("<Amt Ccy=\"EUR\">10.00</Amt>", "A") + "</NtryDtls><NtryDtls>" +
                   part("<Amt Ccy=\"EUR\">2.50</Amt>", "B") + "</NtryDtls>"),
         "2024/03/13|-1000|A||\n2024/03/13|-250|B||"},
    });
}

TEST(CVReadCAMT, KeepsTheWholeWhereThePartsAreNot) {
    expectRows({
        {batchOf(part("<Amt Ccy=\"EUR\">10.00</Amt>", "A") + part("<Amt Ccy=\"EUR\">2.00</Amt>", "B")),
         "2024/03/13|-1250||Collected|B"},
        {batchOf(part("<Amt Ccy=\"EUR\">10.00</Amt>", "A") + part("", "A")), "2024/03/13|-1250|A|Collected|B"},
        {batchOf(part("<Amt Ccy=\"USD\">10.00</Amt>", "A") + part("<Amt Ccy=\"USD\">2.50</Amt>", "A")),
         "2024/03/13|-1250|A|Collected|B"},
        {batchOf(part("<Amt Ccy=\"USD\">99.00</Amt>", "A")), "2024/03/13|-1250|A|Collected|B"},
        {entryWith("<NtryDtls><TxDtls><RmtInf><Ustrd>a</Ustrd></RmtInf></TxDtls><TxDtls><RmtInf><Ustrd>b</Ustrd>"
                   "</RmtInf></TxDtls></NtryDtls>"),
         "2024/03/13|-1250||a b|"},
    });
}

TEST(CVReadCAMT, KeepsEntriesThatItCannotReadWithTheReason) {
    const auto entry = [](const QByteArray& more) {
        return "<Ntry><Amt Ccy=\"EUR\">12.50</Amt><CdtDbtInd>DBIT</CdtDbtInd>" + more + "</Ntry>";
    };
    const QByteArray day = "<BookgDt><Dt>2024-03-13</Dt></BookgDt>";
    expectRows({
        {entry("<Sts>PDNG</Sts>" + day) + entry(day), "!not booked yet\n2024/03/13|-1250|||"},
        {entry("<Sts><Cd>PDNG</Cd></Sts>"), "!not booked yet"},
        {entry("<Sts><Cd>FUTR</Cd></Sts>" + day), "!not booked yet"},
        {entry("<Sts>INFO</Sts>" + day), "!it is for information alone, not booked"},
        {entry("<Sts><Prtry>ODD</Prtry></Sts>" + day), "!“ODD” does not say whether it is booked"},
        {entry("<Sts>BOOK</Sts>"), "!there is no day"},
        {entry("<BookgDt><Dt>2024-02-30</Dt></BookgDt>"), "!“2024-02-30” is no day"},
        {entry("<BookgDt><Dt>13.03.2024</Dt></BookgDt>"), "!“13.03.2024” is no day"},
        {entry("<BookgDt><Dt>2024-03</Dt></BookgDt>"), "!“2024-03” is no day"},
    });
    const CVStatement statement = read("\n" + entry("<Sts>PDNG</Sts>" + day));
    ASSERT_EQ(statement.lines.size(), 1U);
    EXPECT_EQ(statement.lines.front().number, 4);
    EXPECT_EQ(statement.lines.front().cells, (QStringList{"2024-03-13", "12.50", "EUR", "DBIT"}));
}

TEST(CVReadCAMT, PutsTheStatementsOfAnAccountTogether) {
    const CVStatement statement = CVReadStatement(document(statementOf(entryWith("")) + statementOf(entryWith(""))));
    EXPECT_TRUE(statement.questions.empty());
    EXPECT_EQ(statement.lines.size(), 2U);
    EXPECT_EQ(statement.headerDigest.size(), 64);
}

TEST(CVReadCAMT, AsksForTheAccountWhereThereAreSeveral) {
    const QByteArray bytes =
        document(statementOf(entryWith("")) + statementOf(entryWith("<NtryRef>1</NtryRef>") + entryWith(""), "DE22") +
                 statementOf("", "DE33") + statementOf(entryWith("")));
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
    EXPECT_EQ(linesOf(other), QStringLiteral("2024/03/13|-1250|||1\n2024/03/13|-1250|||"));
    EXPECT_NE(other.headerDigest, statement.headerDigest);
    CVStatementMapping missing;
    missing.account = QStringLiteral("DE44");
    EXPECT_EQ(CVReadStatement(bytes, missing).problem,
              QStringLiteral("This file does not hold the account “DE44”, but these: “DE11”, “DE22”."));
}

TEST(CVReadCAMT, TellsAccountsOfOneNumberByTheirCurrencies) {
    QByteArray dollars = statementOf(entryWith(""), "DE11", "USD");
    dollars.replace("Ccy=\"EUR\"", "Ccy=\"USD\"");
    const CVStatement statement = CVReadStatement(document(statementOf(entryWith("")) + dollars));
    ASSERT_EQ(statement.questions.size(), 1U);
    EXPECT_EQ(statement.questions.front().answers.at(0).label, QStringLiteral("DE11 EUR, 1 line"));
    EXPECT_EQ(statement.questions.front().answers.at(1).label, QStringLiteral("DE11 USD, 1 line"));
}

TEST(CVReadCAMT, SaysInOneLineWhatItIs) {
    const DefaultLocale locale(QLocale(QStringLiteral("de_DE")));
    const FixedToday today(QBDate::dateWithYear(2026, 6, 1));
    const CVStatement home = read(entryWith(""));
    EXPECT_TRUE(home.summary.startsWith(QStringLiteral("CAMT.053 version 2, account DE11, 1 line, 13")))
        << home.summary.toStdString();
    const DefaultLocale other(QLocale(QStringLiteral("en_GB")));
    EXPECT_TRUE(
        read(entryWith("")).summary.startsWith(QStringLiteral("CAMT.053 version 2, account DE11, in EUR, 1 line")));
    EXPECT_FALSE(home.mapping.columns);
    EXPECT_FALSE(home.mapping.headerLine);
    EXPECT_EQ(home.mapping.encoding, "UTF-8");
    EXPECT_EQ(linesOf(CVReadStatement(document(statementOf(entryWith(""))), home.mapping)), linesOf(home));
}

TEST(CVReadCAMT, SaysWhatIsWrongWithAFileWithoutEntries) {
    EXPECT_EQ(read("").problem, QStringLiteral("This statement holds no entries."));
    EXPECT_EQ(CVReadStatement("<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001.02\"/>").problem,
              QStringLiteral("This file holds no statement of an account."));
}

TEST(CVReadCAMT, TakesEveryEncoding) {
    QString text = QString::fromUtf8(document(statementOf(entryWith("<AddtlNtryInf>Café</AddtlNtryInf>"))));
    const QString line = QStringLiteral("2024/03/13|-1250||Café|");
    QStringEncoder wide(QStringEncoder::Utf16LE);
    const auto declaring = [text](const char* encoding) {
        return QString(text).replace(QStringLiteral("UTF-8"), QLatin1String(encoding));
    };
    for (const QByteArray& bytes : {text.toUtf8(), "\xEF\xBB\xBF" + text.toUtf8(), "\n " + text.toUtf8(),
                                    declaring("ISO-8859-1").toLatin1(), declaring("windows-1252").toLatin1(),
                                    declaring("ISO-8859-15").toLatin1(), text.toLatin1(), declaring("UTF-16").toUtf8(),
                                    "\xFF\xFE" + QByteArray(wide(declaring("UTF-16"))), declaring("NO-SUCH").toUtf8()})
        EXPECT_EQ(linesOf(CVReadStatement(bytes)), line) << bytes.first(60).toStdString();
    CVStatementMapping known;
    known.encoding = "windows-1250";
    EXPECT_EQ(linesOf(CVReadStatement(text.toLatin1(), known)), line);
}

TEST(CVReadCAMT, RefusesDamagedAndHostileFilesInOneSentence) {
    const QByteArray whole = document(statementOf(entryWith("") + "\n" + entryWith("")));
    EXPECT_EQ(
        CVReadStatement(whole.first(whole.size() - 20)).problem,
        QStringLiteral("This statement is damaged in line 4, so that nothing of it is read. Please have your bank "
                       "make it anew."));
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE lolz [<!ENTITY a \"ha\">";
    for (char name = 'b'; name <= 'z'; ++name)
        bomb += QByteArray("<!ENTITY ") + name + " \"" +
                QByteArray("&").append(char(name - 1)).append(';').repeated(10) + "\">";
    bomb += "]>" + document(statementOf(entryWith("<AddtlNtryInf>&z;</AddtlNtryInf>"))).sliced(39);
    QByteArray external = "<?xml version=\"1.0\"?><!DOCTYPE d [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>" +
                          document(statementOf(entryWith("<AddtlNtryInf>&a;</AddtlNtryInf>"))).sliced(39);
    for (const QByteArray& bytes : {bomb, external})
        EXPECT_EQ(CVReadStatement(bytes).problem,
                  QStringLiteral("This is no statement of a bank: it declares a document type of its own."));
    EXPECT_FALSE(read(entryWith("<AddtlNtryInf>&nothing;</AddtlNtryInf>")).problem.isEmpty());
    EXPECT_FALSE(read(entryWith(QByteArray("<a>").repeated(300) + QByteArray("</a>").repeated(300))).problem.isEmpty());
    QByteArray tag = "<Ntry";
    for (int attribute = 0; attribute < 101; ++attribute)
        tag += " a" + QByteArray::number(attribute) + "  =  '1'";
    EXPECT_EQ(read(tag + "/>").problem,
              QStringLiteral("This is no statement: one of its tags has more than 100 attributes."));
    // Quotation marks of a text are no attributes.
    EXPECT_EQ(read(entryWith("<AddtlNtryInf>" + QByteArray("=\"").repeated(90) + "</AddtlNtryInf>")).problem,
              QString());
}

TEST(CVReadCAMT, IsBoundedAndCanBeStopped) {
    const QByteArray entry = "<Ntry/>";
    EXPECT_EQ(read(entry.repeated(200'001)).problem,
              QStringLiteral("This statement has more than 200000 payments. Please import it in parts."));
    EXPECT_FALSE(
        read(entryWith("<NtryDtls>" + QByteArray("<TxDtls/>").repeated(200'001) + "</NtryDtls>")).problem.isEmpty());
    const CVStatement statement = read(
        partsWith("<RmtInf>" + QByteArray("<Ustrd>" + QByteArray(9000, 'x') + "</Ustrd>").repeated(2) + "</RmtInf>"));
    ASSERT_EQ(statement.lines.size(), 1U);
    EXPECT_EQ(statement.lines.front().purpose.size(), 4096);
    const QByteArray many = document(statementOf(entryWith("").repeated(2000)));
    const auto at = [](int least) { return [least](int permille) { return permille >= least; }; };
    EXPECT_EQ(CVReadStatement(many, {}, at(0)).problem, QStringLiteral("Reading the statement was stopped."));
    EXPECT_EQ(CVReadStatement(many, {}, at(500)).problem, QStringLiteral("Reading the statement was stopped."));
    EXPECT_EQ(CVReadStatement(many, {}, at(1001)).problem, QString());
}

TEST(CVReadCAMT, IsRecognizedByContentAlone) {
    EXPECT_TRUE(CVIsCAMT(document("")));
    EXPECT_TRUE(CVIsCAMT("\n<BkToCstmrStmt>"));
    for (const auto* const bytes :
         {"", "<html>BkToCstmr</html>", "Date;Payee;Amount\n13/03/2024;BkToCstmrStmt;1\n",
          "<?xml version=\"1.0\"?><OFX></OFX>", "<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:pain.001.001.03\">"})
        EXPECT_FALSE(CVIsCAMT(bytes)) << bytes;
}

} // namespace
