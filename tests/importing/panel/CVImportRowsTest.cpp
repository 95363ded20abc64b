#include "importing/panel/CVImportRows.h"

#include "kit/Day.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

using Kind = CVImportRows::Kind;
using Income = CVImportTargets::Income;

CVImportLine line(int number, qint64 hundredths, const QString& payee, const QString& category = {}) {
    CVImportLine line;
    line.number = number;
    line.day = day(2014, 3, number);
    line.hundredths = hundredths;
    line.payee = payee;
    line.category = category;
    return line;
}

CVImportTargets targets(Income income) {
    CVImportTargets targets;
    targets.set = 1;
    targets.income = income;
    targets.incomeSet = 2;
    return targets;
}

/// A market, a salary, a line that cannot be read.
CVImportLines statement(Income income) {
    CVImportLines lines{line(1, 1250, "Market", "Food"), line(2, income == Income::SameSet ? -200000 : 200000, "Work"),
                        line(3, 0, {})};
    lines[1].isIncome = true;
    lines[2].day.reset();
    lines[2].checked = false;
    lines[2].note = CVImportLine::Note::Unreadable;
    return lines;
}

CVImportRows rowsOf(const CVImportLines& lines, Income income = Income::OwnSet) {
    CVImportRows rows;
    rows.take(lines, targets(income));
    return rows;
}

TEST(CVImportRowsTest, CountsEachKindOfLine) {
    CVImportLines lines = statement(Income::OwnSet);
    lines.push_back(line(4, 500, "Baker", "Food"));
    lines.back().sure = CVSureness::Likely;
    lines.back().note = CVImportLine::Note::PerhapsRecorded;
    lines.push_back(line(5, 500, "Baker", "Food"));
    lines.back().note = CVImportLine::Note::RecordedAlready;
    lines.back().checked = false;
    lines.push_back(line(6, 100, "Savings"));
    lines.back().note = CVImportLine::Note::LeftOutBefore;
    lines.back().checked = false;
    const CVImportRows rows = rowsOf(lines);
    EXPECT_EQ(rows.count(Kind::All), 6);
    EXPECT_EQ(rows.count(Kind::ToImport), 3);
    EXPECT_EQ(rows.count(Kind::WithoutCategory), 1);
    EXPECT_EQ(rows.count(Kind::Guessed), 1);
    EXPECT_EQ(rows.count(Kind::PerhapsRecorded), 1);
    EXPECT_EQ(rows.count(Kind::RecordedAlready), 1);
    EXPECT_EQ(rows.count(Kind::LeftOut), 1);
    EXPECT_EQ(rows.count(Kind::Unreadable), 1);
}

TEST(CVImportRowsTest, ACategoryThatTheUserGaveIsNoGuessAnyMore) {
    CVImportLines lines{line(1, 500, "Baker", "Food")};
    lines[0].sure = CVSureness::Likely;
    CVImportRows rows = rowsOf(lines);
    EXPECT_FALSE(rows.hasChanges());
    rows.setCategory(0, "Food");
    EXPECT_EQ(rows.count(Kind::Guessed), 0);
    EXPECT_TRUE(rows.hasChanges());
}

TEST(CVImportRowsTest, WhatTheUserChangedStaysWhenTheLinesArePreparedAnew) {
    CVImportRows rows = rowsOf(statement(Income::OwnSet));
    rows.setCategory(0, "Garden");
    rows.setPayee(0, "Garden Market");
    rows.setChecked(1, false);
    CVImportLines anew = statement(Income::OwnSet);
    anew[0].xfor = "seeds";
    anew[0].note = CVImportLine::Note::PerhapsRecorded;
    rows.take(anew, targets(Income::OwnSet));
    EXPECT_EQ(rows.at(0).category, "Garden");
    EXPECT_EQ(rows.at(0).payee, "Garden Market");
    EXPECT_EQ(rows.at(0).xfor, "seeds") << "what the user did not change is as prepared";
    EXPECT_EQ(rows.at(0).note, CVImportLine::Note::PerhapsRecorded);
    EXPECT_FALSE(rows.at(1).checked);
}

TEST(CVImportRowsTest, WhatTheUserChangedStaysWhileTheLinesAreGone) {
    CVImportRows rows = rowsOf(statement(Income::OwnSet));
    rows.setCategory(1, "Pay");
    rows.take({}, targets(Income::OwnSet));
    EXPECT_TRUE(rows.hasChanges());
    CVImportLines unreadable = statement(Income::OwnSet);
    unreadable[1].note = CVImportLine::Note::Unreadable;
    rows.take(unreadable, targets(Income::OwnSet));
    EXPECT_EQ(rows.at(1).category, "");
    rows.take(statement(Income::OwnSet), targets(Income::OwnSet));
    EXPECT_EQ(rows.at(1).category, "Pay");
    rows.clear();
    EXPECT_FALSE(rows.hasChanges());
    rows.take(statement(Income::OwnSet), targets(Income::OwnSet));
    EXPECT_EQ(rows.at(1).category, "");
}

TEST(CVImportRowsTest, WhatIsFoundAgainChangesNoChoiceOfTheUser) {
    CVImportRows rows = rowsOf(statement(Income::OwnSet));
    EXPECT_FALSE(rows.areToBeFound());
    rows.setChecked(1, true);
    rows.setHundredths(0, 1300);
    EXPECT_TRUE(rows.areToBeFound());
    CVImportLines found = rows.linesToFind();
    EXPECT_EQ(found[0].hundredths, 1300);
    for (CVImportLine& line : found) {
        line.note = CVImportLine::Note::RecordedAlready;
        line.checked = false;
    }
    rows.takeFound(found);
    EXPECT_FALSE(rows.at(0).checked);
    EXPECT_TRUE(rows.at(1).checked);
    EXPECT_EQ(rows.at(1).note, CVImportLine::Note::RecordedAlready);
    rows.split(0, {{700, "Food"}, {600, "Garden"}});
    found = rows.linesToFind();
    ASSERT_EQ(found.size(), 4U);
    EXPECT_FALSE(found[0].day || found[1].day);
    found[0].note = CVImportLine::Note::None;
    rows.takeFound(found);
    EXPECT_EQ(rows.at(0).note, CVImportLine::Note::RecordedAlready) << "a part keeps what the line said";
}

TEST(CVImportRowsTest, MoneyInThatIsLeftOutCannotBeCheckedButMovedToMoneyOut) {
    CVImportRows rows = rowsOf(statement(Income::LeftOut), Income::LeftOut);
    EXPECT_FALSE(rows.canBeRecorded(1));
    EXPECT_FALSE(rows.lines()[1].checked);
    EXPECT_EQ(rows.count(Kind::LeftOut), 1);
    rows.setIncome(1, false);
    EXPECT_TRUE(rows.willBeRecorded(1));
    EXPECT_EQ(rows.at(1).hundredths, -200000);
}

struct SideRow {
    Income income;
    qint64 before;
    qint64 refund;
};

class CVImportRowsSide : public testing::TestWithParam<SideRow> {};

TEST_P(CVImportRowsSide, ARefundIsNegativeInItsCategoryAndGoesBackAsItCame) {
    CVImportRows rows = rowsOf(statement(GetParam().income), GetParam().income);
    ASSERT_EQ(rows.at(1).hundredths, GetParam().before);
    rows.setIncome(1, false);
    EXPECT_EQ(rows.at(1).hundredths, GetParam().refund);
    rows.setIncome(1, true);
    EXPECT_EQ(rows.at(1).hundredths, GetParam().before);
}

TEST_P(CVImportRowsSide, ARefundStaysTheSameWhenMoneyInGoesElsewhere) {
    for (const Income other : {Income::OwnSet, Income::SameSet, Income::LeftOut}) {
        CVImportRows rows = rowsOf(statement(GetParam().income), GetParam().income);
        rows.setIncome(1, false);
        rows.take(statement(other), targets(other));
        EXPECT_FALSE(rows.at(1).isIncome);
        EXPECT_EQ(rows.at(1).hundredths, -200000);
    }
}

TEST_P(CVImportRowsSide, AnAmountThatTheUserTypedKeepsItsMeaningWhenMoneyInGoesElsewhere) {
    CVImportRows rows = rowsOf(statement(GetParam().income), GetParam().income);
    rows.setHundredths(1, GetParam().before / 2);
    rows.setHundredths(0, 99);
    rows.take(statement(Income::SameSet), targets(Income::SameSet));
    EXPECT_EQ(rows.at(1).hundredths, -100000);
    rows.take(statement(Income::OwnSet), targets(Income::OwnSet));
    EXPECT_EQ(rows.at(1).hundredths, 100000);
    EXPECT_EQ(rows.at(0).hundredths, 99);
}

INSTANTIATE_TEST_SUITE_P(Targets, CVImportRowsSide,
                         testing::Values(SideRow{Income::OwnSet, 200000, -200000},
                                         SideRow{Income::SameSet, -200000, -200000},
                                         SideRow{Income::LeftOut, 200000, -200000}));

TEST(CVImportRowsTest, ACategoryIsForTheOtherLinesOfThePayeeThatTheUserHasNotGivenOne) {
    CVImportRows rows = rowsOf({line(1, 1, "Market 12"), line(2, 1, "MARKET 13", "Food"), line(3, 1, "Baker"),
                                line(4, 1, "Market 14"), line(5, 1, "Market 15")});
    rows.setCategory(3, "Garden");
    rows.setCategory(0, "Household");
    EXPECT_EQ(rows.othersOfPayee(0), (std::vector<std::size_t>{1, 4}));
    rows.giveCategory(rows.othersOfPayee(0), "Household");
    EXPECT_EQ(rows.at(4).category, "Household");
    EXPECT_EQ(rows.at(3).category, "Garden");
    EXPECT_TRUE(rows.othersOfPayee(0).empty());
}

TEST(CVImportRowsTest, OneStepGivesACategoryToAllThatWillBeRecordedWithoutOne) {
    CVImportRows rows = rowsOf({line(1, 1, "A"), line(2, 1, "B", "Food"), line(3, 1, "C"), line(4, 1, "D")});
    rows.setChecked(2, false);
    rows.giveToAllWithout("Other");
    EXPECT_EQ(rows.at(0).category, "Other");
    EXPECT_EQ(rows.at(1).category, "Food");
    EXPECT_EQ(rows.at(2).category, "") << "it is not recorded";
    EXPECT_EQ(rows.at(3).category, "Other");
}

TEST(CVImportRowsTest, ASplitLineHasItsPartsInItsPlaceUntilItIsPutTogether) {
    CVImportRows rows = rowsOf({line(1, 100, "A"), line(2, 1000, "Market", "Food"), line(3, 100, "C")});
    rows.setPayee(1, "Corner Market");
    rows.split(1, {{700, "Food"}, {300, "Garden"}});
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_TRUE(rows.isPart(1) && rows.isPart(2));
    EXPECT_FALSE(rows.isPart(3));
    EXPECT_EQ(rows.at(2).hundredths, 300);
    EXPECT_EQ(rows.at(2).category, "Garden");
    EXPECT_EQ(rows.at(2).payee, "Corner Market");
    rows.join(2);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows.at(1).hundredths, 1000);
    EXPECT_EQ(rows.at(1).payee, "Corner Market");
    EXPECT_EQ(rows.at(2).number, 3);
}

TEST(CVImportRowsTest, PartsStayWhenTheLinesArePreparedAnewButNotOfAnotherAmount) {
    CVImportRows rows = rowsOf({line(1, 100, "A"), line(2, 1000, "Market", "Food")});
    rows.split(1, {{700, "Food"}, {300, "Garden"}});
    rows.take({line(1, 100, "A"), line(2, 1000, "Market", "Food")}, targets(Income::SameSet));
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows.at(2).hundredths, 300);
    rows.take({line(1, 100, "A"), line(2, 100000, "Market", "Food")}, targets(Income::SameSet));
    ASSERT_EQ(rows.size(), 2U) << "the decimal mark was another one";
    EXPECT_EQ(rows.at(1).hundredths, 100000);
}

TEST(CVImportRowsTest, PartsOfMoneyInTurnWithIt) {
    CVImportLines lines = statement(Income::OwnSet);
    CVImportRows rows = rowsOf(lines);
    rows.split(1, {{150000, "Pay"}, {50000, "Bonus"}});
    rows.take(statement(Income::SameSet), targets(Income::SameSet));
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows.at(1).hundredths, -150000);
    EXPECT_EQ(rows.at(2).hundredths, -50000);
    rows.join(1);
    EXPECT_EQ(rows.at(1).hundredths, -200000);
}

} // namespace
