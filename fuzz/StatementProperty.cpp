#include "StatementProperty.h"

#include "importing/CVReadStatement.h"

namespace {

QString brokenStatementLine(const CVStatementLine& line) {
    if (line.number < 1)
        return QStringLiteral("a line without a number");
    if (line.unreadable.isEmpty() && !(line.day && line.hundredths))
        return QStringLiteral("line %1 has neither an amount and a day nor a reason").arg(line.number);
    return {};
}

bool areSameLines(const CVStatement& one, const CVStatement& other) {
    if (one.lines.size() != other.lines.size())
        return false;
    for (std::size_t at = 0; at < one.lines.size(); ++at) {
        if (one.lines[at].day != other.lines[at].day || one.lines[at].hundredths != other.lines[at].hundredths)
            return false;
    }
    return true;
}

} // namespace

QString brokenStatementProperty(const QByteArray& bytes) {
    const CVStatement statement = CVReadStatement(bytes);
    if (!statement.problem.isEmpty())
        return statement.lines.empty() ? QString() : QStringLiteral("lines beside a problem");
    for (const CVStatementLine& line : statement.lines) {
        if (QString broken = brokenStatementLine(line); !broken.isEmpty())
            return broken;
    }
    for (const CVStatementQuestion& question : statement.questions) {
        if (question.answers.size() < 2 || question.text.isEmpty())
            return QStringLiteral("a question without answers");
    }
    if (!statement.questions.empty() || statement.lines.empty())
        return {};
    const CVStatement again = CVReadStatement(bytes, statement.mapping);
    if (!again.problem.isEmpty() || !again.questions.empty())
        return QStringLiteral("the mapping that was found leaves something open");
    return areSameLines(statement, again) ? QString() : QStringLiteral("the mapping that was found reads other lines");
}
