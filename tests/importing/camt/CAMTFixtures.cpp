#include "CAMTFixtures.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

QString lineText(const CVStatementLine& line) {
    if (!line.unreadable.isEmpty())
        return u'!' + line.unreadable;
    const QString day = QString::fromLatin1(line.day->corvellaXMLRepresentation());
    return QStringList{day, QString::number(*line.hundredths), line.payee, line.purpose, line.bankID}.join(u'|');
}

} // namespace

QString camtLinesOf(const CVStatement& statement) {
    QStringList lines;
    for (const auto& line : statement.lines)
        lines.append(lineText(line));
    return lines.join(u'\n');
}

QByteArray camtDocument(const QByteArray& statements, const QByteArray& version) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Document "
           "xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001." +
           version + "\"><BkToCstmrStmt>\n<GrpHdr><MsgId>1</MsgId></GrpHdr>" + statements +
           "</BkToCstmrStmt></Document>";
}

QByteArray camtStatement(const QByteArray& entries, const QByteArray& number, const QByteArray& currency) {
    return "<Stmt><Id>1</Id><Acct><Id><IBAN>" + number + "</IBAN></Id><Ccy>" + currency +
           "</Ccy><Ownr><Nm>Ann Owner</Nm></Ownr></Acct>"
           "<Bal><Amt Ccy=\"EUR\">100.00</Amt><CdtDbtInd>CRDT</CdtDbtInd></Bal>" +
           entries + "</Stmt>";
}

QByteArray camtEntry(const QByteArray& more) {
    return "<Ntry><Amt Ccy=\"EUR\">12.50</Amt><CdtDbtInd>DBIT</CdtDbtInd><Sts>BOOK</Sts>"
           "<BookgDt><Dt>2024-03-13</Dt></BookgDt>" +
           more + "</Ntry>";
}

QByteArray camtEntryOfPart(const QByteArray& part) {
    return camtEntry("<NtryDtls><TxDtls>" + part + "</TxDtls></NtryDtls>");
}

CVStatement readCAMTEntries(const QByteArray& entries) {
    return CVReadStatement(camtDocument(camtStatement(entries)));
}

void expectCAMTRows(const std::vector<CAMTRow>& rows) {
    for (const auto& [entries, lines] : rows) {
        const CVStatement statement = readCAMTEntries(entries);
        EXPECT_EQ(statement.problem, QString()) << entries.toStdString();
        EXPECT_TRUE(statement.questions.empty());
        EXPECT_EQ(camtLinesOf(statement), QString::fromUtf8(lines)) << entries.toStdString();
    }
}
