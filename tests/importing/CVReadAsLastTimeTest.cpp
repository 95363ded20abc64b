#include "importing/CVReadAsLastTime.h"

#include "importing/CVReadStatement.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

using About = CVStatementQuestion::About;

/// "2026/03/13 -12500 Shop" of the first line.
QString firstLine(const CVStatement& statement) {
    if (statement.lines.empty() || !statement.lines.front().unreadable.isEmpty())
        return QStringLiteral("unreadable");
    const CVStatementLine& line = statement.lines.front();
    return QStringLiteral("%1 %2 %3")
        .arg(QString::fromLatin1(line.day->corvellaXMLRepresentation()))
        .arg(*line.hundredths)
        .arg(line.payee + line.purpose);
}

QStringList optionsOf(const CVStatement& statement) {
    QStringList options;
    for (const auto& question : statement.questions)
        options.append(question.answers.front().option);
    return options;
}

/// An import of `bytes` in which each question gets the answer whose option is in `answers`.
void import(const QByteArray& bytes, const QStringList& answers, CVImportNotes& notes, CVStatementMapping given = {}) {
    CVStatementAsLastTime read = CVReadAsLastTime(bytes, given, notes);
    for (qsizetype left = answers.size(); left > 0 && !read.statement.questions.empty(); --left) {
        for (const auto& answer : read.statement.questions.front().answers) {
            if (answers.contains(answer.option)) {
                read.statement = CVReadStatement(bytes, answer.with);
                break;
            }
        }
    }
    ASSERT_TRUE(read.statement.questions.empty()) << read.statement.questions.front().text.toStdString();
    ASSERT_EQ(read.statement.problem, QString());
    notes.noteMapping(read.statement.headerDigest, {}, read.statement.lasting);
}

struct Following {
    const char* first;
    QStringList answers;
    const char* second;
    /// The options of what is asked about the second one.
    QStringList asked;
    QString line;
};

class SecondStatement : public testing::TestWithParam<Following> {};

TEST_P(SecondStatement, IsReadByWhatTheFirstOneSettled) {
    CVImportNotes notes;
    import(GetParam().first, GetParam().answers, notes);
    const CVStatement second = CVReadAsLastTime(GetParam().second, {}, notes).statement;
    EXPECT_EQ(optionsOf(second), GetParam().asked) << GetParam().second;
    EXPECT_EQ(firstLine(second), GetParam().line) << GetParam().second;
}

// Whole numbers, days that are the same in each order, and minus signs alone settle nothing for the next statement.
INSTANTIATE_TEST_SUITE_P(WhatNothingSettledIsAsked, SecondStatement,
                         testing::Values(Following{"Date,Payee,Amount\n2026-03-13,A,-100\n2026-03-15,B,400\n",
                                                   {},
                                                   "Date,Payee,Amount\n2026-04-13,A,-1.250\n2026-04-15,B,4.000\n",
                                                   {"--decimal point"},
                                                   "2026/04/13 -125 A"},
                                         Following{"Date,Payee,Amount\n2026-03-13,A,-1.00\n2026-03-15,B,4.00\n",
                                                   {},
                                                   "Date,Payee,Amount\n03/04/2026,A,-1.25\n03/05/2026,B,4.00\n",
                                                   {"--date-order dmy"},
                                                   "2026/04/03 -125 A"},
                                         Following{"Date,Payee,Amount\n03/03/2026,A,-1.00\n04/04/2026,B,4.00\n",
                                                   {},
                                                   "Date,Payee,Amount\n03/04/2026,A,-1.25\n03/05/2026,B,4.00\n",
                                                   {"--date-order dmy"},
                                                   "2026/04/03 -125 A"},
                                         Following{"Date,Payee,Amount\n2026-03-13,A,-1.00\n2026-03-15,B,-4.00\n",
                                                   {},
                                                   "Date,Payee,Amount\n2026-04-13,A,100.00\n2026-04-15,B,4.00\n",
                                                   {"--sign inverted"},
                                                   "2026/04/13 -10000 A"},
                                         Following{"Date,Payee,Amount\n2026-03-13,A,+1.00\n",
                                                   {},
                                                   "Date,Payee,Amount\n2026-04-13,A,100.00\n2026-04-15,B,4.00\n",
                                                   {"--sign inverted"},
                                                   "2026/04/13 -10000 A"},
                                         Following{
                                             "Date,Payee,Amount,Fee\n2026-03-13,A,-1.00,0.00\n2026-03-15,B,4.00,0.00\n",
                                             {},
                                             "Date,Payee,Amount,Fee\n2026-03-13,A,-1.00,0.50\n2026-03-15,B,4.00,0.00\n",
                                             {"--fee 4"},
                                             "2026/03/13 -150 A"}));

INSTANTIATE_TEST_SUITE_P(
    WhatATextProvedOrAnAnswerSaidHolds, SecondStatement,
    testing::Values(Following{"Date,Payee,Amount\n2026-03-13,A,-100.50\n2026-03-15,B,400\n",
                              {},
                              "Date,Payee,Amount\n2026-04-13,A,-1.250\n2026-04-15,B,4.000\n",
                              {},
                              "2026/04/13 -125 A"},
                    Following{"Date,Payee,Amount\n03/13/2026,A,-1.00\n04/04/2026,B,4.00\n",
                              {},
                              "Date,Payee,Amount\n03/04/2026,A,-1.25\n03/05/2026,B,4.00\n",
                              {},
                              "2026/03/04 -125 A"},
                    Following{"Date,Payee,Amount\n2026-03-13,A,-1.00\n2026-03-15,B,4.00\n",
                              {},
                              "Date,Payee,Amount\n2026-04-13,A,100.00\n2026-04-15,B,4.00\n",
                              {},
                              "2026/04/13 10000 A"},
                    Following{"Date,Payee,Amount\n2026-03-13,A,1.00\n",
                              {"--sign inverted"},
                              "Date,Payee,Amount\n2026-04-13,A,100.00\n2026-04-15,B,4.00\n",
                              {},
                              "2026/04/13 -10000 A"},
                    // What a balance proves of the columns.
                    Following{"Date,Payee,X,Y,Balance\n2026-03-13,A,5.00,,95.00\n2026-03-14,B,,3.00,98.00\n"
                              "2026-03-15,C,4.00,,94.00\n",
                              {},
                              "Date,Payee,X,Y,Balance\n2026-04-13,A,5.00,,\n2026-04-14,B,,3.00,\n",
                              {},
                              "2026/04/13 -500 A"},
                    Following{"Date,Payee,Amount\n03/04/2026,A,-1.250\n04/05/2026,B,4.000\n",
                              {"--date-order mdy", "--decimal comma"},
                              "Date,Payee,Amount\n03/05/2026,A,-2.250\n03/06/2026,B,4.000\n",
                              {},
                              "2026/03/05 -225000 A"}));

// The lines above the header grow and shrink from month to month.
INSTANTIATE_TEST_SUITE_P(
    AHeaderIsFoundWhereverItStands, SecondStatement,
    testing::Values(Following{"Account 1\nBalance 5\nDate,Payee,Amount\n03/04/2026,A,-1.00\n04/06/2026,B,4.00\n",
                              {"--date-order mdy"},
                              "Account 1\nBalance 5\nFrom\nTo\nDate,Payee,Amount\n05/04/2026,A,-1.00\n"
                              "05/06/2026,B,4.00\n",
                              {},
                              "2026/05/04 -100 A"},
                    Following{"Account 1\nBalance 5\nDate,Payee,Amount\n03/04/2026,A,-1.00\n04/06/2026,B,4.00\n",
                              {"--date-order mdy"},
                              "Account 1\nDate,Payee,Amount\n05/04/2026,A,-1.00\n05/06/2026,B,4.00\n",
                              {},
                              "2026/05/04 -100 A"}));

INSTANTIATE_TEST_SUITE_P(TheEncodingOfTheFirstOneIsNotThatOfAll, SecondStatement,
                         testing::Values(Following{"Date,Payee,Amount\n2026-03-13,M\xfcller,-1.00\n2026-03-15,B,4.00\n",
                                                   {},
                                                   "Date,Payee,Amount\n2026-04-13,Müller,-1.00\n2026-04-15,B,4.00\n",
                                                   {},
                                                   "2026/04/13 -100 Müller"}));

// Another bank may write as many columns.
INSTANTIATE_TEST_SUITE_P(WithoutAHeaderWhatIsOpenIsAskedAgainWithTheLastAnswerFirst, SecondStatement,
                         testing::Values(Following{"03/04/2026,A,-1.00,X\n04/06/2026,B,4.00,Y\n",
                                                   {"--date-order mdy"},
                                                   "05/04/2026,A,-1.00,X\n05/06/2026,B,4.00,Y\n",
                                                   {"--date-order mdy"},
                                                   "2026/05/04 -100 A X"}));

TEST(CVReadAsLastTime, TriesUTF8BeforeACodePageThatWasChosen) {
    CVImportNotes notes;
    import("Date,Payee,Amount\n2026-03-13,\xc8"
           "as,-1.00\n2026-03-15,B,4.00\n",
           {}, notes, {.encoding = "windows-1250"});
    const auto again = CVReadAsLastTime("Date,Payee,Amount\n2026-03-14,\xc8"
                                        "as,-1.00\n2026-03-15,B,4.00\n",
                                        {}, notes);
    EXPECT_EQ(firstLine(again.statement), "2026/03/14 -100 Čas");
    const auto other = CVReadAsLastTime("Date,Payee,Amount\n2026-03-14,Čas,-1.00\n2026-03-15,B,4.00\n", {}, notes);
    EXPECT_EQ(firstLine(other.statement), "2026/03/14 -100 Čas");
}

TEST(CVReadAsLastTime, ProposesTheTextsOfAStatementWithoutAHeader) {
    CVImportNotes notes;
    CVStatementMapping given;
    given.columns = {CVColumnRole::Guessed, CVColumnRole::Purpose, CVColumnRole::Guessed, CVColumnRole::Payee};
    import("2026-03-13,A,-1.00,X\n2026-03-15,B,4.00,Y\n", {}, notes, given);
    const auto again = CVReadAsLastTime("2026-04-13,A,-1.00,X\n2026-04-15,B,4.00,Y\n", {}, notes);
    ASSERT_FALSE(again.statement.lines.empty());
    EXPECT_EQ(again.statement.lines.front().payee, "X");
    EXPECT_EQ(again.statement.lines.front().purpose, "A");
}

TEST(CVReadAsLastTime, LaysWhatIsGivenOverWhatWasKept) {
    CVImportNotes notes;
    import("Date,Payee,Who,Amount\n03/04/2026,A,X,-1.00\n04/06/2026,B,Y,4.00\n", {"--date-order mdy"}, notes);
    CVStatementMapping given;
    given.columns = {CVColumnRole::Guessed, CVColumnRole::Guessed, CVColumnRole::Payee};
    const auto read =
        CVReadAsLastTime("Date,Payee,Who,Amount\n05/04/2026,A,X,-1.00\n05/06/2026,B,Y,4.00\n", given, notes);
    EXPECT_EQ(optionsOf(read.statement), QStringList());
    EXPECT_TRUE(read.isAsLastTime);
    EXPECT_EQ(read.statement.lines.at(0).day, QBDate::dateWithYear(2026, 5, 4));
    EXPECT_EQ(read.known.columns, given.columns);
}

TEST(CVReadAsLastTime, ReadsAnewWhereALineDoesNotFit) {
    CVImportNotes notes;
    import("Date,Payee,Amount\n03/04/2026,A,-1.00\n", {"--date-order mdy"}, notes);
    const auto read = CVReadAsLastTime("Date,Payee,Amount\n13/04/2026,A,-1.00\n", {}, notes);
    EXPECT_FALSE(read.isAsLastTime);
    EXPECT_EQ(firstLine(read.statement), "2026/04/13 -100 A");
}

} // namespace
