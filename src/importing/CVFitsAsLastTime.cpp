#include "importing/CVFitsAsLastTime.h"

#include <algorithm>

namespace {

auto countUnreadable(const CVStatement& statement) {
    return std::count_if(statement.lines.begin(), statement.lines.end(),
                         [](const CVStatementLine& line) { return !line.unreadable.isEmpty(); });
}

} // namespace

bool CVFitsAsLastTime(const CVStatement& asLastTime, const CVStatement& statement) {
    return asLastTime.problem.isEmpty() && asLastTime.questions.empty() &&
           asLastTime.headerDigest == statement.headerDigest &&
           countUnreadable(asLastTime) <= countUnreadable(statement);
}
