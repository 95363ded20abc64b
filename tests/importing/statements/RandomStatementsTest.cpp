#include "RandomStatement.h"
#include "importing/CVReadStatement.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

/// A thousand take some seconds; CORVELLA_STATEMENTS sets another number.
int statements() {
    constexpr int kUsual = 1'000;
    const int number = qEnvironmentVariableIntValue("CORVELLA_STATEMENTS");
    return number > 0 ? number : kUsual;
}

/// What a statement says otherwise than it should; empty when it says the same.
QString difference(const RandomStatement& written, const CVStatement& read) {
    if (!read.problem.isEmpty())
        return read.problem;
    if (read.lines.size() != written.lines.size())
        return QStringLiteral("%1 lines for %2").arg(read.lines.size()).arg(written.lines.size());
    for (std::size_t at = 0; at < read.lines.size(); ++at) {
        const auto& line = read.lines[at];
        const auto& wanted = written.lines[at];
        if (!line.unreadable.isEmpty())
            return line.unreadable;
        if (line.day != wanted.day)
            return QStringLiteral("line %1: another day").arg(line.number);
        if (line.hundredths != wanted.hundredths)
            return QStringLiteral("line %1: %2 for %3").arg(line.number).arg(*line.hundredths).arg(wanted.hundredths);
        if (!line.payee.contains(wanted.payee) && !line.purpose.contains(wanted.payee))
            return QStringLiteral("line %1: another payee").arg(line.number);
    }
    return {};
}

/// Whether some answers to the questions make the statement say what was written.
bool isRightAfterAnswers(const RandomStatement& written, const CVStatement& read, int most) {
    if (read.questions.empty())
        return difference(written, read).isEmpty();
    if (most == 0)
        return false;
    for (const auto& answer : read.questions.front().answers) {
        if (isRightAfterAnswers(written, CVReadStatement(written.bytes, answer.with), most - 1))
            return true;
    }
    return false;
}

TEST(RandomStatements, AreReadAsTheyWereWrittenOrAskedAbout) {
    constexpr int kMostQuestions = 4;
    constexpr std::uint32_t kSeed = 17;
    std::mt19937 chance(kSeed);
    int asked = 0;
    for (int number = 0; number < statements() && !testing::Test::HasFailure(); ++number) {
        const RandomStatement written = makeRandomStatement(chance);
        const CVStatement read = CVReadStatement(written.bytes);
        if (read.questions.empty()) {
            EXPECT_EQ(difference(written, read), QString()) << number << '\n' << written.bytes.toStdString();
            continue;
        }
        ++asked;
        EXPECT_TRUE(isRightAfterAnswers(written, read, kMostQuestions))
            << number << ' ' << read.questions.front().text.toStdString() << '\n'
            << written.bytes.toStdString();
    }
    RecordProperty("asked", asked);
    EXPECT_LT(asked, statements() / 2);
    EXPECT_GT(asked, 0);
}

} // namespace
