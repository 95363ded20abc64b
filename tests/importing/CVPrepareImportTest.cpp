#include "importing/CVPrepareImport.h"

#include "importing/ImportFixtures.h"
#include "kit/DefaultLocale.h"

#include <gtest/gtest.h>

namespace {

using Note = CVImportLine::Note;
using Income = CVImportTargets::Income;

class CVPrepareImportTest : public testing::Test {
protected:
    CVPrepareImportTest() {
        mBudget.set("Checking", 1).set("Income", 2).currentSet(1).category("Food", 3).category("Salary", 4).lastID(9);
    }

    void record(int dayOfMonth, double amount, const QString& payee, const QString& category = "Food",
                const QString& set = "Checking", const QString& xfor = "") {
        mBudget.transaction({.date = day(2026, 3, dayOfMonth),
                             .amount = amount,
                             .payTo = payee,
                             .xfor = xfor,
                             .category = category,
                             .set = set});
    }

    [[nodiscard]] CVImportLines prepare(const std::vector<CVStatementLine>& lines) {
        return CVPrepareImport(mBudget.document(), mNotes).lines(lines, mTargets);
    }
    [[nodiscard]] CVImportLine prepareOne(const CVStatementLine& line) { return prepare({line}).at(0); }

    const DefaultLocale mLocale{QLocale(QLocale::English, QLocale::UnitedStates)};
    BudgetBuilder mBudget;
    CVImportNotes mNotes;
    CVImportTargets mTargets{.set = 1, .income = Income::OwnSet, .incomeSet = 2};
};

TEST_F(CVPrepareImportTest, TurnsMoneyOutIntoAPositiveAmount) {
    const auto line = prepareOne(statementLine(7, day(2026, 3, 4), -1250, "  Corner   Market "));
    EXPECT_TRUE(line.checked);
    EXPECT_FALSE(line.isIncome);
    EXPECT_EQ(line.hundredths, 1250);
    EXPECT_EQ(line.number, 7);
    EXPECT_EQ(line.day, day(2026, 3, 4));
    EXPECT_EQ(line.payee, "Corner Market");
}

TEST_F(CVPrepareImportTest, LeavesOutWhatIsInAnotherCurrency) {
    CVStatementLine foreign = statementLine(7, day(2026, 3, 4), -500000, "Corner Market");
    foreign.otherCurrency = "JPY";
    const auto line = prepareOne(foreign);
    EXPECT_FALSE(line.checked);
    EXPECT_EQ(line.noteText, "in another currency (JPY)");
}

TEST_F(CVPrepareImportTest, LeavesMoneyInPositiveInASetOfItsOwn) {
    const auto line = prepareOne(statementLine(2, day(2026, 3, 4), 424000, "Ashgrove"));
    EXPECT_TRUE(line.isIncome);
    EXPECT_EQ(line.hundredths, 424000);
}

TEST_F(CVPrepareImportTest, MakesMoneyInNegativeInTheSameSet) {
    mTargets.income = Income::SameSet;
    const auto line = prepareOne(statementLine(2, day(2026, 3, 4), 424000, "Ashgrove"));
    EXPECT_TRUE(line.isIncome);
    EXPECT_TRUE(line.checked);
    EXPECT_EQ(line.hundredths, -424000);
}

TEST_F(CVPrepareImportTest, ChecksNoMoneyInThatIsLeftOut) {
    mTargets.income = Income::LeftOut;
    const auto line = prepareOne(statementLine(2, day(2026, 3, 4), 424000, "Ashgrove"));
    EXPECT_FALSE(line.checked);
    EXPECT_EQ(line.noteText, "money in is left out");
}

TEST_F(CVPrepareImportTest, ChecksNoLineOfNothing) {
    const auto line = prepareOne(statementLine(2, day(2026, 3, 4), 0, "Account statement"));
    EXPECT_FALSE(line.checked);
    EXPECT_EQ(line.noteText, "nothing was paid");
}

TEST_F(CVPrepareImportTest, TakesThePurposeForAMissingPayee) {
    auto statement = statementLine(2, day(2026, 3, 4), -500, " ");
    statement.purpose = "Card Corner Market";
    const auto line = prepareOne(statement);
    EXPECT_EQ(line.payee, "Card Corner Market");
    EXPECT_EQ(line.xfor, "");
}

TEST_F(CVPrepareImportTest, KeepsALineThatCannotBeReadWithItsReason) {
    auto statement = statementLine(97, day(2026, 3, 4), -500, "Corner Market");
    statement.unreadable = "“x” is no amount";
    const auto line = prepareOne(statement);
    EXPECT_EQ(line.note, Note::Unreadable);
    EXPECT_EQ(line.noteText, "cannot be read: “x” is no amount");
    EXPECT_FALSE(line.checked);
    EXPECT_EQ(line.number, 97);
}

TEST_F(CVPrepareImportTest, NamesWhatAnUnreadableLineLacks) {
    auto statement = statementLine(97, day(2026, 3, 4), -500, "Corner Market");
    statement.hundredths.reset();
    EXPECT_EQ(prepareOne(statement).noteText, "cannot be read: no amount");
    statement.day.reset();
    EXPECT_EQ(prepareOne(statement).noteText, "cannot be read: no date");
}

TEST_F(CVPrepareImportTest, ProposesTheRememberedCategoryAndPurpose) {
    record(1, 5, "Corner Market", "Food", "Checking", "bread");
    record(2, 6, "Corner Market", "Food", "Checking", "bread");
    const auto line = prepareOne(statementLine(2, day(2026, 3, 20), -700, "CORNER MARKET 12"));
    EXPECT_EQ(line.category, "Food");
    EXPECT_EQ(line.sure, CVSureness::Sure);
    EXPECT_EQ(line.xfor, "bread");
    EXPECT_EQ(line.from.size(), 2U);
    EXPECT_EQ(line.note, Note::None);
}

TEST_F(CVPrepareImportTest, LeavesThePurposeOfTheStatement) {
    record(1, 5, "Corner Market", "Food", "Checking", "bread");
    record(2, 6, "Corner Market", "Food", "Checking", "bread");
    auto statement = statementLine(2, day(2026, 3, 20), -700, "Corner Market");
    statement.purpose = "till 3";
    EXPECT_EQ(prepareOne(statement).xfor, "till 3");
}

TEST_F(CVPrepareImportTest, SaysThatThereIsNoCategoryYet) {
    const auto line = prepareOne(statementLine(2, day(2026, 3, 20), -700, "Corner Market"));
    EXPECT_EQ(line.note, Note::NoCategory);
    EXPECT_EQ(line.noteText, "no category yet");
    EXPECT_TRUE(line.checked);
}

TEST_F(CVPrepareImportTest, TakesTheStatementsCategoryWhereNothingIsRemembered) {
    auto statement = statementLine(2, day(2026, 3, 20), -700, "Corner Market");
    statement.category = "Shopping";
    EXPECT_EQ(prepareOne(statement).category, "Shopping");
    statement.category = "FOOD";
    EXPECT_EQ(prepareOne(statement).category, "Food");
    EXPECT_EQ(prepareOne(statement).sure, CVSureness::Likely);
}

TEST_F(CVPrepareImportTest, PrefersWhatIsRememberedToACategoryThatTheBudgetDoesNotHave) {
    record(1, 5, "Corner Market");
    auto statement = statementLine(2, day(2026, 3, 20), -700, "Corner Market");
    statement.category = "Shopping";
    EXPECT_EQ(prepareOne(statement).category, "Food");
    statement.category = "Salary";
    EXPECT_EQ(prepareOne(statement).category, "Salary");
    record(2, 6, "Corner Market");
    EXPECT_EQ(prepareOne(statement).category, "Food");
}

TEST_F(CVPrepareImportTest, GivesThePartsOfAPaymentTheirOwnCategories) {
    record(1, 7, "Corner Market");
    auto food = statementLine(2, day(2026, 3, 20), -700, "Corner Market");
    food.category = "FOOD";
    auto lamps = statementLine(2, day(2026, 3, 20), -300, "Corner Market");
    lamps.category = "Lamps";
    auto other = statementLine(9, day(2026, 3, 21), -300, "Corner Market");
    other.category = "Lamps";
    const auto lines = prepare({food, lamps, other});
    EXPECT_EQ(lines.at(0).category, "Food");
    EXPECT_EQ(lines.at(1).category, "Lamps");
    EXPECT_EQ(lines.at(2).category, "Food");
}

TEST_F(CVPrepareImportTest, ChecksNothingThatIsRecordedAlready) {
    record(3, 7, "Corner Market");
    const auto line = prepareOne(statementLine(2, day(2026, 3, 5), -700, "CORNER MARKET 12"));
    EXPECT_EQ(line.note, Note::RecordedAlready);
    EXPECT_EQ(line.noteText, "recorded on 3/3 already");
    EXPECT_FALSE(line.checked);
    EXPECT_EQ(line.recorded, CVTransactions{mBudget.transactionAt(0)});
}

TEST_F(CVPrepareImportTest, SaysTheYearOfWhatWasRecordedInAnother) {
    mBudget.transaction(
        {.date = day(2025, 12, 31), .amount = 7, .payTo = "Bus", .category = "Food", .set = "Checking"});
    EXPECT_EQ(prepareOne(statementLine(2, day(2026, 1, 2), -700, "Bus")).noteText, "recorded on 12/31/25 already");
}

TEST_F(CVPrepareImportTest, LeavesWhatIsPerhapsRecordedChecked) {
    record(3, 7, "Lunch");
    const auto line = prepareOne(statementLine(2, day(2026, 3, 5), -700, "Corner Market"));
    EXPECT_EQ(line.note, Note::PerhapsRecorded);
    EXPECT_EQ(line.noteText, "perhaps recorded on 3/3");
    EXPECT_TRUE(line.checked);
    EXPECT_EQ(line.recorded, CVTransactions{mBudget.transactionAt(0)});
}

TEST_F(CVPrepareImportTest, LooksForMoneyInWhereItGoes) {
    record(3, 4240, "Ashgrove", "Salary", "Income");
    const auto statement = statementLine(2, day(2026, 3, 3), 424000, "Ashgrove");
    EXPECT_EQ(prepareOne(statement).note, Note::RecordedAlready);
    mTargets.income = Income::SameSet;
    EXPECT_EQ(prepareOne(statement).note, Note::None);
    record(3, -4240, "Ashgrove", "Salary", "Checking");
    EXPECT_EQ(prepareOne(statement).note, Note::RecordedAlready);
}

TEST_F(CVPrepareImportTest, FindsARefundThatWasMovedToTheMoneyOut) {
    record(3, -12.5, "Shoes");
    const auto refund = prepareOne(statementLine(2, day(2026, 3, 4), 1250, "Shoes"));
    EXPECT_EQ(refund.noteText, "recorded on 3/3 already");
    EXPECT_FALSE(refund.checked);
    EXPECT_EQ(refund.hundredths, 1250);
    record(3, -30, "Ashgrove", "Salary", "Income");
    EXPECT_EQ(prepareOne(statementLine(2, day(2026, 3, 4), -3000, "Ashgrove")).note, Note::RecordedAlready);
}

TEST_F(CVPrepareImportTest, FindsALineThatWasSplit) {
    record(3, 60, "Market");
    record(3, 40, "Market", "Salary");
    const auto line = prepareOne(statementLine(2, day(2026, 3, 4), -10000, "MARKET 12"));
    EXPECT_EQ(line.note, Note::RecordedAlready);
    EXPECT_EQ(line.noteText, "recorded in parts on 3/3 already");
    EXPECT_FALSE(line.checked);
    EXPECT_EQ(line.recorded.size(), 2U);
}

TEST_F(CVPrepareImportTest, FindsAgainWhatIsRecordedAfterALineWasEdited) {
    record(3, 7, "Market");
    record(9, -8, "Market");
    auto lines =
        prepare({statementLine(2, day(2026, 3, 3), -700, "Market"), statementLine(3, day(2026, 3, 9), -850, "Market"),
                 statementLine(4, day(2026, 3, 25), -700, "Market")});
    lines[0].hundredths = 750;
    lines[1].hundredths = -800;
    lines[2].day = day(2026, 3, 3);
    lines[2].category = "Salary";
    CVPrepareImport(mBudget.document(), mNotes).findRecorded(lines, mTargets);
    EXPECT_EQ(lines[0].note, Note::None);
    EXPECT_TRUE(lines[0].checked);
    EXPECT_TRUE(lines[0].recorded.empty());
    EXPECT_EQ(lines[1].noteText, "recorded on 3/9 already");
    EXPECT_FALSE(lines[1].checked);
    EXPECT_EQ(lines[2].noteText, "recorded on 3/3 already");
    EXPECT_EQ(lines[2].category, "Salary");
}

TEST_F(CVPrepareImportTest, FindsNothingInASetThatIsOnlyToBeMade) {
    record(3, 7, "Corner Market");
    mTargets.newSet = "Savings";
    EXPECT_TRUE(prepareOne(statementLine(2, day(2026, 3, 3), -700, "Corner Market")).checked);
    mTargets.newSet = "Checking";
    EXPECT_FALSE(prepareOne(statementLine(2, day(2026, 3, 3), -700, "Corner Market")).checked);
}

TEST_F(CVPrepareImportTest, LeavesOutWhatWasLeftOutBefore) {
    CVImportLine transfer = importLine(day(2026, 2, 1), 30000, "Transfer to savings 0815", "");
    transfer.checked = false;
    mNotes.noteLines({1, "Checking"}, mTargets, std::span(&transfer, 1));
    const auto line = prepareOne(statementLine(2, day(2026, 3, 1), -20000, "TRANSFER TO SAVINGS 4711"));
    EXPECT_EQ(line.note, Note::LeftOutBefore);
    EXPECT_EQ(line.noteText, "left out before");
    EXPECT_FALSE(line.checked);
}

TEST_F(CVPrepareImportTest, SaysLeftOutBeforeRatherThanPerhapsRecorded) {
    CVImportLine transfer = importLine(day(2026, 2, 1), 30000, "Savings", "");
    transfer.checked = false;
    mNotes.noteLines({1, "Checking"}, mTargets, std::span(&transfer, 1));
    record(1, 200, "Corner Market");
    const auto line = prepareOne(statementLine(2, day(2026, 3, 1), -20000, "SAVINGS"));
    EXPECT_EQ(line.note, Note::LeftOutBefore);
    EXPECT_FALSE(line.checked);
}

TEST_F(CVPrepareImportTest, TakesAPayeeAsItWasCorrected) {
    CVImportLine corrected = importLine(day(2026, 2, 1), 1000, "Amber Books", "Food");
    corrected.payeeInStatement = "AMB MKTPLC 12";
    mNotes.noteLines({1, "Checking"}, mTargets, std::span(&corrected, 1));
    record(1, 10, "Amber Books");
    const auto line = prepareOne(statementLine(2, day(2026, 3, 1), -1000, "AMB MKTPLC 99"));
    EXPECT_EQ(line.payee, "Amber Books");
    EXPECT_EQ(line.payeeInStatement, "AMB MKTPLC 99");
    EXPECT_EQ(line.category, "Food");
    EXPECT_EQ(line.note, Note::RecordedAlready);
}

class CVPrepareImportNumbersTest : public CVPrepareImportTest {
protected:
    CVPrepareImportNumbersTest() {
        CVImportLine imported = importLine(day(2026, 3, 1), 700, "Corner Market", "Food");
        imported.bankID = "N-1";
        mNotes.noteLines({1, "Checking"}, mTargets, std::span(&imported, 1));
    }

    [[nodiscard]] static CVStatementLine numbered(int dayOfMonth, qint64 hundredths, const QString& payee) {
        auto line = statementLine(2, day(2026, 3, dayOfMonth), hundredths, payee);
        line.bankID = "N-1";
        return line;
    }
};

TEST_F(CVPrepareImportNumbersTest, KnowALineWhateverItSaysNow) {
    const auto line = prepareOne(numbered(1, -700, "Other name"));
    EXPECT_EQ(line.note, Note::RecordedAlready);
    EXPECT_EQ(line.noteText, "imported before");
    EXPECT_FALSE(line.checked);
}

TEST_F(CVPrepareImportNumbersTest, NameTheTransactionThatIsThere) {
    record(2, 7, "Corner market");
    const auto line = prepareOne(numbered(1, -700, "Corner Market"));
    EXPECT_EQ(line.note, Note::RecordedAlready);
    EXPECT_EQ(line.noteText, "recorded on 3/2 already");
    EXPECT_EQ(line.recorded, CVTransactions{mBudget.transactionAt(0)});
}

TEST_F(CVPrepareImportNumbersTest, KnowALineWhoseDayWasEdited) {
    auto lines = prepare({numbered(1, -700, "Other name")});
    lines[0].day = day(2026, 2, 1);
    CVPrepareImport(mBudget.document(), mNotes).findRecorded(lines, mTargets);
    EXPECT_EQ(lines[0].noteText, "imported before");
}

TEST_F(CVPrepareImportNumbersTest, TakeNoTransactionOfAnotherPayee) {
    record(1, 7, "Landlord");
    const auto lines = prepare({numbered(1, -700, "Vet"), statementLine(3, day(2026, 3, 1), -700, "Landlord")});
    EXPECT_EQ(lines[0].noteText, "imported before");
    EXPECT_TRUE(lines[0].recorded.empty());
    EXPECT_EQ(lines[1].recorded, CVTransactions{mBudget.transactionAt(0)});
}

TEST_F(CVPrepareImportNumbersTest, OfAContractSayNothingAboutAnotherDay) {
    EXPECT_EQ(prepareOne(numbered(28, -700, "Corner Market")).note, Note::NoCategory);
}

TEST_F(CVPrepareImportNumbersTest, ThatSeveralLinesHaveSayNothing) {
    const auto lines = prepare({numbered(1, -700, "Corner Market"), numbered(1, -300, "Corner Market")});
    EXPECT_TRUE(lines[0].checked);
    EXPECT_TRUE(lines[1].checked);
}

TEST_F(CVPrepareImportNumbersTest, CountForOneAccount) {
    mBudget.set("Cash", 7);
    mTargets.set = 7;
    EXPECT_TRUE(prepareOne(numbered(1, -700, "Corner Market")).checked);
}

TEST_F(CVPrepareImportTest, StopsWhenAsked) {
    const std::vector<CVStatementLine> many(250, statementLine(2, day(2026, 3, 1), -100, "Bus"));
    std::vector<int> asked;
    const auto lines = CVPrepareImport(mBudget.document(), {}).lines(many, mTargets, [&asked](int permille) {
        asked.push_back(permille);
        return asked.size() == 2;
    });
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(asked, std::vector({0, 400}));
}

TEST_F(CVPrepareImportTest, TurnsARefundIntoMoneyOutAndBack) {
    auto line = prepareOne(statementLine(2, day(2026, 3, 4), 1999, "Shoes"));
    CVChangeSide(line, mTargets);
    EXPECT_FALSE(line.isIncome);
    EXPECT_EQ(line.hundredths, -1999);
    CVChangeSide(line, mTargets);
    EXPECT_TRUE(line.isIncome);
    EXPECT_EQ(line.hundredths, 1999);
    mTargets.income = Income::SameSet;
    CVChangeSide(line, mTargets);
    EXPECT_EQ(line.hundredths, 1999);
}

} // namespace
