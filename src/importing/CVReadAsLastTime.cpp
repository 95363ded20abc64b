#include "importing/CVReadAsLastTime.h"

#include "importing/CVReadStatement.h"

#include <algorithm>
#include <functional>
#include <set>

namespace {

using Columns = std::vector<CVColumnRole>;

bool isOfAmounts(CVColumnRole role) {
    return role == CVColumnRole::Amount || role == CVColumnRole::MoneyIn || role == CVColumnRole::MoneyOut;
}

bool isOfTexts(CVColumnRole role) {
    return role == CVColumnRole::Payee || role == CVColumnRole::Payer || role == CVColumnRole::Purpose ||
           role == CVColumnRole::Category || role == CVColumnRole::BankID;
}

/// The kept columns, but for those whose place or meaning is given.
Columns withGivenColumns(Columns columns, const Columns& given) {
    columns.resize(std::max(columns.size(), given.size()), CVColumnRole::Guessed);
    const bool areAmountsGiven = std::any_of(given.begin(), given.end(), isOfAmounts);
    for (CVColumnRole& role : columns) {
        const bool isGiven =
            role != CVColumnRole::Ignored && std::find(given.begin(), given.end(), role) != given.end();
        if (isGiven || (areAmountsGiven && isOfAmounts(role)))
            role = CVColumnRole::Guessed;
    }
    for (std::size_t column = 0; column < given.size(); ++column) {
        if (given[column] != CVColumnRole::Guessed)
            columns[column] = given[column];
    }
    return columns;
}

template <typename Value>
void lay(const std::optional<Value>& given, std::optional<Value>& over) {
    if (given)
        over = given;
}

CVStatementMapping withGiven(CVStatementMapping kept, const CVStatementMapping& given) {
    lay(given.encoding, kept.encoding);
    lay(given.separator, kept.separator);
    lay(given.headerLine, kept.headerLine);
    lay(given.dayOrder, kept.dayOrder);
    lay(given.decimalMark, kept.decimalMark);
    lay(given.year, kept.year);
    lay(given.otherYear, kept.otherYear);
    lay(given.positiveIsOut, kept.positiveIsOut);
    lay(given.outMarker, kept.outMarker);
    lay(given.account, kept.account);
    if (kept.columns && given.columns)
        kept.columns = withGivenColumns(*kept.columns, *given.columns);
    else
        lay(given.columns, kept.columns);
    return kept;
}

auto countUnreadable(const CVStatement& statement) {
    return std::count_if(statement.lines.begin(), statement.lines.end(),
                         [](const CVStatementLine& line) { return !line.unreadable.isEmpty(); });
}

std::set<CVStatementQuestion::About> subjectsOf(const CVStatement& statement) {
    std::set<CVStatementQuestion::About> subjects;
    for (const CVStatementQuestion& question : statement.questions)
        subjects.insert(question.about);
    return subjects;
}

bool fits(const CVStatement& asLastTime, const CVStatement& fresh) {
    const auto asked = subjectsOf(asLastTime);
    const auto open = subjectsOf(fresh);
    return asLastTime.problem.isEmpty() && asLastTime.headerDigest == fresh.headerDigest &&
           std::includes(open.begin(), open.end(), asked.begin(), asked.end()) &&
           countUnreadable(asLastTime) <= countUnreadable(fresh);
}

/// Whether an answer says what was kept.
bool saysTheSame(const CVStatementMapping& answer, const CVStatementMapping& kept) {
    return withGiven(kept, answer) == kept;
}

CVStatementMapping ofTexts(const CVStatementMapping& kept) {
    CVStatementMapping texts;
    texts.columns = kept.columns;
    if (texts.columns)
        std::replace_if(texts.columns->begin(), texts.columns->end(), std::not_fn(isOfTexts), CVColumnRole::Guessed);
    return texts;
}

/// Puts the answers of the last time first, and reads the lines with them.
void propose(CVStatementAsLastTime& read, const CVStatementMapping& kept, const QByteArray& bytes,
             const CVStopRequested& stop) {
    CVStatementMapping proposed = read.known;
    for (CVStatementQuestion& question : read.statement.questions) {
        std::stable_partition(question.answers.begin(), question.answers.end(),
                              [&kept](const auto& answer) { return saysTheSame(answer.with, kept); });
        proposed = withGiven(proposed, question.answers.front().with);
    }
    CVStatement asProposed = CVReadStatement(bytes, proposed, stop);
    if (!fits(asProposed, read.statement))
        return;
    read.statement.lines = std::move(asProposed.lines);
    read.statement.summary = asProposed.summary;
    read.statement.balanceRemark = asProposed.balanceRemark;
}

} // namespace

CVStatementAsLastTime CVReadAsLastTime(const QByteArray& bytes, const CVStatementMapping& given,
                                       const CVImportNotes& notes, const CVStopRequested& stop) {
    CVStatementAsLastTime read{CVReadStatement(bytes, given, stop), given};
    auto kept = notes.mapping(read.statement.headerDigest);
    if (!kept)
        return read;
    // A text that is valid in one of these is written in no code page.
    if (read.statement.mapping.encoding.value_or(QByteArray()).startsWith("UTF"))
        kept->encoding.reset();
    const bool isCommon = read.statement.isDigestCommon;
    const CVStatementMapping known = withGiven(isCommon ? ofTexts(*kept) : *kept, given);
    if (known != given) {
        CVStatement asLastTime = CVReadStatement(bytes, known, stop);
        if (fits(asLastTime, read.statement))
            read = {std::move(asLastTime), known, true};
    }
    if (isCommon && !read.statement.questions.empty())
        propose(read, *kept, bytes, stop);
    return read;
}
