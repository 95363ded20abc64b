#include "QIFFixtures.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

QString lineText(const CVStatementLine& line) {
    if (!line.unreadable.isEmpty())
        return QStringLiteral("%1! %2").arg(line.number).arg(line.unreadable);
    QStringList parts{QString::fromLatin1(line.day->corvellaXMLRepresentation()), QString::number(*line.hundredths)};
    parts.append({line.payee, line.purpose, line.category, line.bankID});
    return parts.join(u'|');
}

} // namespace

QString qifLinesOf(const CVStatement& statement) {
    QStringList lines;
    for (const auto& line : statement.lines)
        lines.append(lineText(line));
    return lines.join(u'\n');
}

std::vector<CVStatementQuestion::About> subjectsOf(const CVStatement& statement) {
    std::vector<CVStatementQuestion::About> subjects;
    for (const auto& question : statement.questions)
        subjects.push_back(question.about);
    return subjects;
}

void expectQIFRows(const std::vector<QIFRow>& rows) {
    for (const auto& [bytes, lines] : rows) {
        const CVStatement statement = CVReadStatement(bytes);
        EXPECT_EQ(statement.problem, QString()) << bytes;
        EXPECT_EQ(subjectsOf(statement), std::vector<CVStatementQuestion::About>()) << bytes;
        EXPECT_EQ(qifLinesOf(statement), QString::fromUtf8(lines)) << bytes;
    }
}
