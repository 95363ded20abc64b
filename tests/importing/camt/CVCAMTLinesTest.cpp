#include "CAMTFixtures.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

TEST(CVCAMTLines, TakesTheDayThatTheBankWrote) {
    for (const auto* const day :
         {"<BookgDt><Dt>2024-03-13</Dt></BookgDt>", "<BookgDt><Dt>2024-03-13+01:00</Dt></BookgDt>",
          "<BookgDt><Dt>2024-03-13Z</Dt></BookgDt>", "<BookgDt><DtTm>2024-03-13T23:59:59.999-11:00</DtTm></BookgDt>",
          "<BookgDt><DtTm>2024-03-13T00:00:00+14:00</DtTm></BookgDt><ValDt><Dt>2024-03-15</Dt></ValDt>",
          "<ValDt><Dt>2024-03-13</Dt></ValDt>", "<BookgDt>\n<Dt> 2024-03-13 </Dt>\n</BookgDt>"}) {
        const CVStatement statement =
            readCAMTEntries("<Ntry><Amt Ccy=\"EUR\">1</Amt><CdtDbtInd>CRDT</CdtDbtInd>" + QByteArray(day) + "</Ntry>");
        EXPECT_EQ(camtLinesOf(statement), QStringLiteral("2024/03/13|100|||")) << day;
    }
}

TEST(CVCAMTLines, ReadsAmountsAsTextAndTheirMark) {
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
        expectCAMTRows({{"<Ntry>" + amount + "<BookgDt><Dt>2024-03-13</Dt></BookgDt></Ntry>", lines}});
}

/// The mark is that of the booking, and a reversal's is the opposite of the booking that it takes back: CRDT brings
/// back money that had gone out. The parties are those of the earlier booking.
TEST(CVCAMTLines, TakesTheMarkOfAReversalAsItStands) {
    const QByteArray parties = "<NtryDtls><TxDtls><RltdPties><Dbtr><Nm>Ann</Nm></Dbtr><Cdtr><Nm>Gym</Nm></Cdtr>"
                               "</RltdPties></TxDtls></NtryDtls>";
    const auto reversal = [&](const QByteArray& mark, const QByteArray& isReversal) {
        return "<Ntry><Amt Ccy=\"EUR\">12.50</Amt><CdtDbtInd>" + mark + "</CdtDbtInd><RvslInd>" + isReversal +
               "</RvslInd><BookgDt><Dt>2024-03-13</Dt></BookgDt>" + parties + "</Ntry>";
    };
    expectCAMTRows({{reversal("CRDT", "true"), "2024/03/13|1250|Gym||"},
                    {reversal("CRDT", "1"), "2024/03/13|1250|Gym||"},
                    {reversal("CRDT", "false"), "2024/03/13|1250|Ann||"},
                    {reversal("DBIT", "true"), "2024/03/13|-1250|Ann||"},
                    {reversal("DBIT", "false"), "2024/03/13|-1250|Gym||"}});
}

TEST(CVCAMTLines, NamesTheOtherSide) {
    const auto entry = [](const QByteArray& parties) {
        return camtEntryOfPart("<RltdPties>" + parties + "</RltdPties>").replace("DBIT", "CRDT");
    };
    const QByteArray own = "<Id><IBAN>DE11</IBAN></Id>";
    const QByteArray other = "<Id><Othr><Id>99</Id></Othr></Id>";
    expectCAMTRows({
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

TEST(CVCAMTLines, JoinsWhatAPaymentIsFor) {
    expectCAMTRows({
        {camtEntryOfPart("<RmtInf><Ustrd>Two\n  lamps</Ustrd><Ustrd>March</Ustrd></RmtInf><AddtlTxInf>x</AddtlTxInf>"),
         "2024/03/13|-1250||Two lamps March|"},
        {camtEntryOfPart("<RmtInf><Ustrd>Two &amp; &#x6c;amps</Ustrd><Strd><CdtrRefInf><Ref>RF1</Ref></CdtrRefInf>"
                         "<AddtlRmtInf>and more</AddtlRmtInf><AddtlRmtInf>?REJECT?0</AddtlRmtInf></Strd></RmtInf>"),
         "2024/03/13|-1250||Two & lamps RF1 and more|"},
        {camtEntryOfPart("<RmtInf><Strd><RfrdDocInf><Nb>R-7</Nb></RfrdDocInf></Strd></RmtInf>"),
         "2024/03/13|-1250||R-7|"},
        {camtEntryOfPart("<RmtInf><Ustrd><![CDATA[a < b]]></Ustrd></RmtInf>"), "2024/03/13|-1250||a < b|"},
        {camtEntryOfPart("<AddtlTxInf>Fee</AddtlTxInf>"), "2024/03/13|-1250||Fee|"},
        {camtEntry("<AddtlNtryInf>Fee</AddtlNtryInf>"), "2024/03/13|-1250||Fee|"},
    });
}

TEST(CVCAMTLines, KeepsTheNumberOfTheBank) {
    const QByteArray own =
        "<NtryDtls><TxDtls><Refs><AcctSvcrRef>A1</AcctSvcrRef><TxId>T1</TxId></Refs></TxDtls></NtryDtls>";
    expectCAMTRows({
        {camtEntry("<NtryRef>7</NtryRef><AcctSvcrRef>B1</AcctSvcrRef>" + own), "2024/03/13|-1250|||B1"},
        {camtEntry("<NtryRef>7</NtryRef><AcctSvcrRef>NONREF</AcctSvcrRef>" + own), "2024/03/13|-1250|||7"},
        {camtEntry(own), "2024/03/13|-1250|||A1"},
        {camtEntryOfPart("<Refs><EndToEndId>NOTPROVIDED</EndToEndId><TxId>T1</TxId></Refs>"), "2024/03/13|-1250|||T1"},
        {camtEntryOfPart("<Refs><AcctSvcrRef>NOTPROVIDED</AcctSvcrRef></Refs>"), "2024/03/13|-1250|||"},
    });
}

QByteArray batchOf(const QByteArray& parts) {
    return camtEntry("<AcctSvcrRef>B</AcctSvcrRef><NtryDtls><Btch><NbOfTxs>2</NbOfTxs></Btch>" + parts +
                     "</NtryDtls><AddtlNtryInf>Collected</AddtlNtryInf>");
}

QByteArray part(const QByteArray& amount, const QByteArray& payee) {
    return "<TxDtls>" + amount + "<RltdPties><Cdtr><Nm>" + payee + "</Nm></Cdtr></RltdPties></TxDtls>";
}

TEST(CVCAMTLines, MakesALineOfEachPartWhereThePartsAreTheWhole) {
    const auto details = [](const QByteArray& amount, const QByteArray& currency) {
        return "<AmtDtls><InstdAmt><Amt Ccy=\"USD\">99</Amt></InstdAmt><TxAmt><Amt Ccy=\"" + currency + "\">" + amount +
               "</Amt></TxAmt></AmtDtls>";
    };
    expectCAMTRows({
        {batchOf(part("<Amt Ccy=\"EUR\">10.00</Amt>", "A") + part("<Amt Ccy=\"EUR\">2.50</Amt>", "B")),
         "2024/03/13|-1000|A|Collected|B#1\n2024/03/13|-250|B|Collected|B#2"},
        {batchOf(part(details("10.00", "EUR"), "A") + part(details("2.50", "EUR"), "B")),
         "2024/03/13|-1000|A|Collected|B#1\n2024/03/13|-250|B|Collected|B#2"},
        {batchOf(part("<Refs><TxId>1</TxId></Refs><Amt Ccy=\"EUR\">15.00</Amt>", "A") +
                 part("<Refs><TxId>2</TxId></Refs><Amt Ccy=\"EUR\">2.50</Amt><CdtDbtInd>CRDT</CdtDbtInd>", "B")),
         "2024/03/13|-1500|A|Collected|1\n2024/03/13|250|B|Collected|2"},
        {camtEntry("<NtryDtls>" + part("<Amt Ccy=\"EUR\">10.00</Amt>", "A") + "</NtryDtls><NtryDtls>" +
                   part("<Amt Ccy=\"EUR\">2.50</Amt>", "B") + "</NtryDtls>"),
         "2024/03/13|-1000|A||\n2024/03/13|-250|B||"},
    });
}

TEST(CVCAMTLines, KeepsTheWholeWhereThePartsAreNot) {
    expectCAMTRows({
        {batchOf(part("<Amt Ccy=\"EUR\">10.00</Amt>", "A") + part("<Amt Ccy=\"EUR\">2.00</Amt>", "B")),
         "2024/03/13|-1250||Collected|B"},
        {batchOf(part("<Amt Ccy=\"EUR\">10.00</Amt>", "A") + part("", "A")), "2024/03/13|-1250|A|Collected|B"},
        {batchOf(part("<Amt Ccy=\"USD\">10.00</Amt>", "A") + part("<Amt Ccy=\"USD\">2.50</Amt>", "A")),
         "2024/03/13|-1250|A|Collected|B"},
        {batchOf(part("<Amt Ccy=\"USD\">99.00</Amt>", "A")), "2024/03/13|-1250|A|Collected|B"},
        {camtEntry("<NtryDtls><TxDtls><RmtInf><Ustrd>a</Ustrd></RmtInf></TxDtls><TxDtls><RmtInf><Ustrd>b</Ustrd>"
                   "</RmtInf></TxDtls></NtryDtls>"),
         "2024/03/13|-1250||a b|"},
    });
}

TEST(CVCAMTLines, KeepsEntriesThatItCannotReadWithTheReason) {
    const auto entry = [](const QByteArray& more) {
        return "<Ntry><Amt Ccy=\"EUR\">12.50</Amt><CdtDbtInd>DBIT</CdtDbtInd>" + more + "</Ntry>";
    };
    const QByteArray day = "<BookgDt><Dt>2024-03-13</Dt></BookgDt>";
    expectCAMTRows({
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
    const CVStatement statement = readCAMTEntries("\n" + entry("<Sts>PDNG</Sts>" + day));
    ASSERT_EQ(statement.lines.size(), 1U);
    EXPECT_EQ(statement.lines.front().number, 4);
    EXPECT_EQ(statement.lines.front().cells, (QStringList{"2024-03-13", "12.50", "EUR", "DBIT"}));
}

} // namespace
