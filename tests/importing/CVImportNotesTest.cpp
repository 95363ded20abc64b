#include "importing/CVImportNotes.h"

#include "importing/CVNotesJSON.h"
#include "importing/ImportFixtures.h"

#include <gtest/gtest.h>

namespace {

using Note = CVImportLine::Note;
using Income = CVImportTargets::Income;

class CVImportNotesTest : public testing::Test {
protected:
    CVImportNotesTest() { mBudget.set("Checking", 1).set("Income", 2).currentSet(1); }

    void note(CVImportLine line, bool checked = true, Note kind = Note::None) {
        line.checked = checked;
        line.note = kind;
        mNotes.noteLines({1, "Checking"}, mTargets, std::span(&line, 1));
    }
    /// The notes as the next start of the program has them.
    [[nodiscard]] CVImportNotes readAgain() const {
        return CVNotesOfJSON(CVJSONOfNotes(mNotes)).value_or(CVImportNotes());
    }

    BudgetBuilder mBudget;
    CVImportNotes mNotes;
    CVImportTargets mTargets{.set = 1, .income = Income::OwnSet, .incomeSet = 2};
};

TEST_F(CVImportNotesTest, KnowNothingAtFirst) {
    EXPECT_EQ(mNotes.targets(mBudget.document(), "header"), std::nullopt);
    EXPECT_EQ(mNotes.mapping("header"), std::nullopt);
    EXPECT_FALSE(mNotes.wasLeftOut("Corner Market"));
    EXPECT_EQ(mNotes.payeeFor("Corner Market"), QString());
    EXPECT_FALSE(mNotes.knowsNumber({1, "Checking"}, "N-1", day(2026, 3, 1)));
}

TEST_F(CVImportNotesTest, KnowWhereStatementsOfAHeaderWentElseWhereTheLastOneWent) {
    mNotes.noteTargets(mBudget.document(), "card", mTargets);
    const CVImportTargets other{.set = 2, .income = Income::SameSet};
    mNotes.noteTargets(mBudget.document(), {}, other);
    const CVImportNotes again = readAgain();
    EXPECT_EQ(again.targets(mBudget.document(), "card"), mTargets);
    EXPECT_EQ(again.targets(mBudget.document(), "other"), other);
    EXPECT_EQ(again.targets(mBudget.document(), {}), other);
}

TEST_F(CVImportNotesTest, FindASetByItsNameBeforeItsID) {
    mNotes.noteTargets(mBudget.document(), {}, mTargets);
    mBudget.setNamed("Checking")->setUniqueID(7);
    mBudget.set("Other", 1);
    EXPECT_EQ(mNotes.targets(mBudget.document(), {})->set, 7U);
}

TEST_F(CVImportNotesTest, FindARenamedSetByItsID) {
    mNotes.noteTargets(mBudget.document(), {}, mTargets);
    mBudget.setNamed("Checking")->setTransactionSetName("Giro");
    EXPECT_EQ(readAgain().targets(mBudget.document(), {})->set, 1U);
}

TEST_F(CVImportNotesTest, NameNoTargetsWhereASetIsGone) {
    mNotes.noteTargets(mBudget.document(), {}, mTargets);
    std::erase(mBudget.document().transactionSets(), mBudget.setNamed("Income"));
    EXPECT_EQ(mNotes.targets(mBudget.document(), {}), std::nullopt);
}

TEST_F(CVImportNotesTest, NameASetForTheIncomeThatWasNotMadeUntilItIsThere) {
    const CVImportTargets wanted{.set = 1, .income = Income::OwnSet, .newIncomeSet = "Wages"};
    mNotes.noteTargets(mBudget.document(), {}, wanted);
    EXPECT_EQ(readAgain().targets(mBudget.document(), {}), wanted);
    mBudget.set("Wages", 8);
    EXPECT_EQ(readAgain().targets(mBudget.document(), {}),
              (CVImportTargets{.set = 1, .income = Income::OwnSet, .incomeSet = 8}));
}

TEST_F(CVImportNotesTest, KnowABudgetWithoutSets) {
    BudgetBuilder budget;
    const CVImportTargets targets{.income = Income::LeftOut};
    mNotes.noteTargets(budget.document(), {}, targets);
    EXPECT_EQ(readAgain().targets(budget.document(), {}), targets);
}

TEST_F(CVImportNotesTest, KeepAMappingButForItsYearAndTheLineOfItsHeader) {
    CVStatementMapping mapping{.encoding = "windows-1252",
                               .separator = ';',
                               .headerLine = 4,
                               .columns = std::vector{CVColumnRole::Day, CVColumnRole::Payee, CVColumnRole::Amount},
                               .dayOrder = CVDayOrder::MonthDayYear,
                               .decimalMark = u',',
                               .year = 2026,
                               .otherYear = 2025,
                               .positiveIsOut = true,
                               .outMarker = "Soll"};
    mNotes.noteMapping("header", "Giro", mapping);
    mNotes.noteMapping({}, "Nothing", mapping);
    mapping.year.reset();
    mapping.otherYear.reset();
    mapping.headerLine.reset();
    EXPECT_EQ(mNotes.mapping("header"), mapping);
    EXPECT_EQ(readAgain().mapping("header"), mapping);
    EXPECT_EQ(readAgain().mappingNamed("Giro"), mapping);
    EXPECT_EQ(readAgain().mappingNamed("Nothing"), std::nullopt);
    EXPECT_EQ(readAgain().mappingNamed({}), std::nullopt);
}

TEST_F(CVImportNotesTest, KeepEveryRoleOfAColumn) {
    CVStatementMapping mapping;
    mapping.columns.emplace();
    for (int role = 0; role <= static_cast<int>(CVColumnRole::Guessed); ++role)
        mapping.columns->push_back(static_cast<CVColumnRole>(role));
    mapping.separator = '\t';
    mNotes.noteMapping("header", {}, mapping);
    EXPECT_EQ(readAgain().mapping("header"), mapping);
}

TEST_F(CVImportNotesTest, ForgetAMappingThatNobodyKnows) {
    const auto notes = CVNotesOfJSON(R"({"import notes": 1, "columns": {"a": {"mapping": {"columns": ["moon"]}},)"
                                     R"("b": {"mapping": {"day order": "moon"}}, "c": {"mapping": {}}}})");
    ASSERT_TRUE(notes);
    EXPECT_EQ(notes->mapping("a"), std::nullopt);
    EXPECT_EQ(notes->mapping("b"), std::nullopt);
    EXPECT_EQ(notes->mapping("c"), CVStatementMapping());
}

TEST_F(CVImportNotesTest, KnowAPayeeThatWasLeftOutInAnySpelling) {
    note(importLine(day(2026, 3, 1), 500, "Transfer to savings 0815", ""), false, Note::NoCategory);
    EXPECT_TRUE(readAgain().wasLeftOut("TRANSFER SAVINGS 4711"));
    EXPECT_FALSE(readAgain().wasLeftOut("Corner Market"));
}

TEST_F(CVImportNotesTest, ForgetAPayeeThatIsRecordedAgain) {
    note(importLine(day(2026, 3, 1), 500, "Savings", ""), false);
    note(importLine(day(2026, 3, 1), 500, "Savings", "Other"), true, Note::LeftOutBefore);
    EXPECT_FALSE(mNotes.wasLeftOut("Savings"));
}

TEST_F(CVImportNotesTest, DoNotTakeAPayeeForLeftOutOfWhomALineWasRecorded) {
    std::vector lines(2, importLine(day(2026, 3, 1), 500, "Corner Market", "Food"));
    lines[1].checked = false;
    mNotes.noteLines({1, "Checking"}, mTargets, lines);
    EXPECT_FALSE(mNotes.wasLeftOut("Corner Market"));
}

TEST_F(CVImportNotesTest, DoNotTakeAPayeeForLeftOutWhoIsRecordedOrCannotBeRead) {
    const auto line = importLine(day(2026, 3, 1), 500, "Corner Market", "Food");
    note(line, false, Note::RecordedAlready);
    note(line, false, Note::PerhapsRecorded);
    note(line, false, Note::Unreadable);
    CVImportLine nothing = line;
    nothing.hundredths = 0;
    note(nothing, false);
    CVImportLine foreign = line;
    foreign.otherCurrency = "JPY";
    note(foreign, false);
    CVImportLine income = line;
    income.isIncome = true;
    mTargets.income = Income::LeftOut;
    note(income, false);
    EXPECT_FALSE(mNotes.wasLeftOut("Corner Market"));
}

TEST_F(CVImportNotesTest, KnowAPayeeAsItWasCorrected) {
    CVImportLine line = importLine(day(2026, 3, 1), 500, "Amber Books", "Books");
    line.payeeInStatement = "AMB MKTPLC 12";
    note(line);
    EXPECT_EQ(readAgain().payeeFor("AMB MKTPLC 99"), "Amber Books");
    line.payee = "AMB Mktplc";
    note(line);
    EXPECT_EQ(mNotes.payeeFor("AMB MKTPLC 99"), QString());
}

TEST_F(CVImportNotesTest, LearnNoPayeeFromALineThatIsNotRecorded) {
    mBudget.transaction({.date = day(2026, 3, 1), .amount = 5, .payTo = "Amber Books", .set = "Checking"});
    CVImportLine line = importLine(day(2026, 3, 1), 500, "AMB MKTPLC 12", "Books");
    line.recorded = {mBudget.transactionAt(0)};
    for (const Note said : {Note::RecordedAlready, Note::PerhapsRecorded}) {
        note(line, false, said);
        EXPECT_EQ(mNotes.payeeFor("AMB MKTPLC 99"), QString());
    }
}

TEST_F(CVImportNotesTest, KnowTheBanksNumbersOfAnAccountByTheirDay) {
    CVImportLine line = importLine(day(2026, 3, 1), 500, "Bus", "Transport");
    line.bankID = "N-1";
    note(line);
    line.bankID = "N-2";
    note(line, false, Note::RecordedAlready);
    line.bankID = "N-3";
    note(line, false);
    const CVImportNotes again = readAgain();
    EXPECT_TRUE(again.knowsNumber({1, "Checking"}, "N-1", day(2026, 3, 1)));
    EXPECT_TRUE(again.knowsNumber({1, "Checking"}, "N-2", day(2026, 3, 1)));
    EXPECT_FALSE(again.knowsNumber({1, "Checking"}, "N-3", day(2026, 3, 1)));
    EXPECT_FALSE(again.knowsNumber({1, "Checking"}, "N-1", day(2026, 3, 2)));
    EXPECT_FALSE(again.knowsNumber({2, "Cash"}, "N-1", day(2026, 3, 1)));
    EXPECT_FALSE(again.knowsNumber({1, "Checking"}, "", day(2026, 3, 1)));
}

TEST_F(CVImportNotesTest, KnowTheNumberOfALineWhoseDayWasEdited) {
    CVImportLine line = importLine(day(2026, 3, 1), 500, "Bus", "Transport");
    line.bankID = "N-1";
    line.day = day(2026, 2, 20);
    note(line);
    EXPECT_TRUE(mNotes.knowsNumber({1, "Checking"}, "N-1", day(2026, 3, 1)));
    mNotes.forgetNumbers({1, "Checking"}, std::span(&line, 1));
    EXPECT_FALSE(mNotes.knowsNumber({1, "Checking"}, "N-1", day(2026, 3, 1)));
}

TEST_F(CVImportNotesTest, KnowTheNumbersOfARenamedAccountUnlessAnotherOneHasItsNameNow) {
    CVImportLine line = importLine(day(2026, 3, 1), 500, "Bus", "Transport");
    line.bankID = "N-1";
    note(line);
    EXPECT_TRUE(readAgain().knowsNumber({1, "Giro"}, "N-1", day(2026, 3, 1)));
    EXPECT_TRUE(readAgain().knowsNumber({7, "Checking"}, "N-1", day(2026, 3, 1))) << "the name wins";
    EXPECT_FALSE(readAgain().knowsNumber({7, "Giro"}, "N-1", day(2026, 3, 1)));
    line.bankID = "N-2";
    mNotes.noteLines({1, "Giro"}, mTargets, std::span(&line, 1));
    for (const char* number : {"N-1", "N-2"}) {
        EXPECT_TRUE(readAgain().knowsNumber({1, "Giro"}, number, day(2026, 3, 1)));
        EXPECT_FALSE(readAgain().knowsNumber({7, "Checking"}, number, day(2026, 3, 1)));
    }
}

TEST_F(CVImportNotesTest, HoldNoNumberInItsOwnWords) {
    CVImportLine line = importLine(day(2026, 3, 1), 500, "Bus", "Transport");
    line.bankID = "DE02-1203";
    note(line);
    EXPECT_FALSE(CVJSONOfNotes(mNotes).contains("DE02"));
}

TEST_F(CVImportNotesTest, ForgetTheNumbersOfWhatWasTakenBack) {
    CVImportLine line = importLine(day(2026, 3, 1), 500, "Bus", "Transport");
    line.bankID = "N-1";
    note(line);
    mNotes.forgetNumbers({1, "Checking"}, std::span(&line, 1));
    EXPECT_FALSE(mNotes.knowsNumber({1, "Checking"}, "N-1", day(2026, 3, 1)));
}

TEST_F(CVImportNotesTest, AreWrittenTheSameEachTime) {
    for (int at = 0; at < 50; ++at) {
        CVImportLine line = importLine(day(2026, 3, 1), 500, "Payee " + QString(QChar(u'a' + at % 26)) + "x", "Food");
        line.bankID = QString::number(at);
        note(line, at % 2 == 0);
    }
    EXPECT_EQ(CVJSONOfNotes(mNotes), CVJSONOfNotes(readAgain()));
}

TEST(CVNotesOfJSONTest, KnowsItsOwnBytesOnly) {
    EXPECT_TRUE(CVNotesOfJSON(CVJSONOfNotes({})));
    for (const QByteArray& bytes : {QByteArray(), QByteArray("{}"), QByteArray("[1]"), QByteArray("{\"import no"),
                                    QByteArray("<corvella/>"), QByteArray("\0\0", 2)})
        EXPECT_FALSE(CVNotesOfJSON(bytes)) << bytes.toStdString();
}

TEST(CVNotesOfJSONTest, PassesOverValuesOfAnotherKind) {
    const auto notes = CVNotesOfJSON(R"({"import notes": 1, "last statement": 3, "statements": {"a": []},
        "columns": [], "payees left out": {"a": 1}, "payees": [1], "numbers": {"Checking": "x"}})");
    ASSERT_TRUE(notes);
    EXPECT_FALSE(notes->wasLeftOut("a"));
    EXPECT_TRUE(notes->contents().targets.isEmpty());
    EXPECT_FALSE(notes->contents().lastTargets);
}

} // namespace
