#include "OFXFixtures.h"

QByteArray OFXWithEntries(const QByteArray& entries) {
    return "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\nCHARSET:1252\n\n<OFX>\n" + OFXAccount("1234", entries) +
           "</OFX>\n";
}

QByteArray OFXEntry(const QByteArray& amount, const QByteArray& type, const QByteArray& more) {
    return "<STMTTRN>\n<TRNTYPE>" + type + "\n<DTPOSTED>20240301\n<TRNAMT>" + amount + "\n" + more + "\n</STMTTRN>\n";
}

QByteArray OFXAccount(const QByteArray& number, const QByteArray& entries) {
    return "<STMTRS><CURDEF>EUR<BANKACCTFROM><BANKID>77<ACCTID>" + number +
           "<ACCTTYPE>CHECKING</BANKACCTFROM><BANKTRANLIST>\n" + entries +
           "</BANKTRANLIST><LEDGERBAL><BALAMT>100</LEDGERBAL></STMTRS>\n";
}

QString OFXLinesText(const CVStatement& statement) {
    QStringList lines;
    for (const auto& line : statement.lines) {
        if (!line.unreadable.isEmpty()) {
            lines.append(QStringLiteral("%1! %2").arg(line.number).arg(line.unreadable));
            continue;
        }
        const QString day = QString::fromLatin1(line.day->corvellaXMLRepresentation());
        const QString texts = line.purpose.isEmpty() ? line.payee : line.payee + QStringLiteral(" | ") + line.purpose;
        lines.append(QStringLiteral("%1 %2 %3").arg(day).arg(*line.hundredths).arg(texts));
    }
    return lines.join(u'\n');
}

QString OFXRead(const QByteArray& bytes, const CVStatementMapping& known) {
    const CVStatement statement = CVReadOFX(bytes, known);
    if (!statement.problem.isEmpty())
        return QStringLiteral("problem: ") + statement.problem;
    if (!statement.questions.empty())
        return QStringLiteral("question: ") + statement.questions.front().text;
    return OFXLinesText(statement);
}
