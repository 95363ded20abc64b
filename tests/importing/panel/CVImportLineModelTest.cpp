#include "importing/panel/CVImportLineModel.h"

#include "kit/BudgetBuilder.h"
#include "kit/Day.h"
#include "kit/Printers.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

class CVImportLineModelTest : public testing::Test {
protected:
    CVImportLineModelTest() {
        mModel.setNamesOfSets("Checking", "Income");
        CVImportLines lines(4);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            lines[i].number = static_cast<int>(i) + 2;
            lines[i].day = day(2014, 3, 4 - static_cast<int>(i));
        }
        lines[0].hundredths = 1250;
        lines[0].payee = "Market";
        lines[0].category = "Food";
        lines[0].sure = CVSureness::Likely;
        lines[1].hundredths = 200000;
        lines[1].payee = "Work";
        lines[1].isIncome = true;
        lines[2].hundredths = 990;
        lines[2].payee = "bakery";
        lines[2].category = "Food";
        lines[2].checked = false;
        lines[2].note = CVImportLine::Note::RecordedAlready;
        lines[2].noteText = "recorded on 3/2/14 already";
        lines[3].checked = false;
        lines[3].day.reset();
        lines[3].note = CVImportLine::Note::Unreadable;
        lines[3].noteText = "cannot be read: no amount";
        mModel.take(lines, {});
    }

    [[nodiscard]] QString cell(int row, int column, int role = Qt::DisplayRole) const {
        return mModel.index(row, column).data(role).toString();
    }
    [[nodiscard]] QStringList column(int column) const {
        QStringList texts;
        for (int row = 0; row < mModel.rowCount(); ++row)
            texts.append(cell(row, column));
        return texts;
    }

    CVImportLineModel mModel;
    QAbstractItemModelTester mTester{&mModel, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(CVImportLineModelTest, ShowsTheLinesAsTheyWillBeRecorded) {
    EXPECT_EQ(column(CVImportColumns::Date), (QStringList{"3/4/14", "3/3/14", "3/2/14", ""}));
    EXPECT_EQ(column(CVImportColumns::Amount), (QStringList{"$12.50", "$2,000.00", "$9.90", ""}));
    EXPECT_EQ(column(CVImportColumns::ToFrom), (QStringList{"Market", "Work", "bakery", ""}));
    EXPECT_EQ(column(CVImportColumns::Into), (QStringList{"Checking", "Income", "Checking", ""}));
    EXPECT_EQ(column(CVImportColumns::Note), (QStringList{"category guessed", "no category yet",
                                                          "recorded on 3/2/14 already", "cannot be read: no amount"}));
    EXPECT_EQ(cell(0, CVImportColumns::Checked, Qt::AccessibleTextRole), "to import");
    EXPECT_EQ(cell(2, CVImportColumns::Checked, Qt::AccessibleTextRole), "left out");
}

TEST_F(CVImportLineModelTest, TheTooltipOfAProposedCategoryNamesItsTransactions) {
    BudgetBuilder budget;
    budget.category("Food", 1).transaction(
        {.date = day(2014, 2, 1), .amount = 10, .payTo = "<b>Market</b>", .categoryID = 1});
    CVImportLines lines(1);
    lines[0].category = "Food";
    lines[0].sure = CVSureness::Sure;
    lines[0].from = budget.document().transactions();
    mModel.take(lines, {});
    const QString tip = cell(0, CVImportColumns::Category, Qt::ToolTipRole);
    EXPECT_TRUE(tip.contains("“Food”, as recorded before:")) << tip.toStdString();
    EXPECT_TRUE(tip.contains("2/1/14")) << tip.toStdString();
    EXPECT_TRUE(tip.contains("&lt;b&gt;Market")) << tip.toStdString();
    mModel.setData(mModel.index(0, CVImportColumns::Category), "Garden");
    EXPECT_EQ(cell(0, CVImportColumns::Category, Qt::ToolTipRole), "");
}

TEST_F(CVImportLineModelTest, TheTooltipOfTheStatementsOwnCategorySaysWhereItComesFrom) {
    CVImportLines lines(1);
    lines[0].category = "Food";
    lines[0].sure = CVSureness::Likely;
    mModel.take(lines, {});
    const QString tip = cell(0, CVImportColumns::Category, Qt::ToolTipRole);
    EXPECT_TRUE(tip.contains("Perhaps “Food”, as the statement says")) << tip.toStdString();
}

TEST_F(CVImportLineModelTest, ALineWithoutACategorySaysThatItIsPerhapsRecordedToo) {
    CVImportLines lines(1);
    lines[0].note = CVImportLine::Note::PerhapsRecorded;
    lines[0].noteText = "perhaps recorded on 3/7";
    mModel.take(lines, {});
    EXPECT_EQ(cell(0, CVImportColumns::Note), "perhaps recorded on 3/7; no category yet");
    mModel.setData(mModel.index(0, CVImportColumns::Category), "Food");
    EXPECT_EQ(cell(0, CVImportColumns::Note), "perhaps recorded on 3/7");
}

TEST_F(CVImportLineModelTest, CellsOfReadableLinesCanBeEdited) {
    const auto set = [this](int column, const QVariant& value) {
        return mModel.setData(mModel.index(0, column), value);
    };
    QSignalSpy given(&mModel, &CVImportLineModel::categoryGiven);
    EXPECT_TRUE(set(CVImportColumns::Date, QVariant::fromValue(std::optional(day(2014, 3, 7)))));
    EXPECT_TRUE(set(CVImportColumns::Amount, 19.999));
    EXPECT_TRUE(set(CVImportColumns::ToFrom, "Corner Market"));
    EXPECT_TRUE(set(CVImportColumns::For, "bread"));
    EXPECT_EQ(given.count(), 0);
    EXPECT_TRUE(set(CVImportColumns::Category, "Household"));
    EXPECT_EQ(given.count(), 1);
    EXPECT_TRUE(set(CVImportColumns::Into, true));
    const CVImportLine& line = mModel.lines().at(0);
    EXPECT_EQ(line.day, day(2014, 3, 7));
    EXPECT_EQ(line.payee, "Corner Market");
    EXPECT_EQ(line.xfor, "bread");
    EXPECT_EQ(line.category, "Household");
    EXPECT_TRUE(line.isIncome);
    EXPECT_EQ(line.hundredths, -2000) << "money out in the set of the income";
    EXPECT_FALSE(set(CVImportColumns::Amount, 1e300)) << "it has no hundredths";
    EXPECT_FALSE(set(CVImportColumns::Note, "x"));
    EXPECT_FALSE(mModel.setData(mModel.index(3, CVImportColumns::Category), "Food")) << "it cannot be read";
    EXPECT_FALSE(mModel.setData(mModel.index(3, CVImportColumns::Checked), {}, Qt::CheckStateRole));
}

TEST_F(CVImportLineModelTest, ABoxTogglesAndCountsOnlyWhatCanBeRecorded) {
    EXPECT_TRUE(mModel.setData(mModel.index(2, CVImportColumns::Checked), {}, Qt::CheckStateRole));
    EXPECT_EQ(mModel.lines().count(CVImportRows::Kind::ToImport), 3);
    mModel.setChecked({0, 1, 2, 3}, false);
    EXPECT_EQ(mModel.lines().count(CVImportRows::Kind::ToImport), 0);
    mModel.setChecked({0, 1, 2, 3}, true);
    EXPECT_EQ(mModel.lines().count(CVImportRows::Kind::ToImport), 3);
}

TEST_F(CVImportLineModelTest, SortsByEachColumnAndBackToTheOrderOfTheStatement) {
    mModel.sort(CVImportColumns::ToFrom, Qt::AscendingOrder);
    EXPECT_EQ(column(CVImportColumns::ToFrom), (QStringList{"", "bakery", "Market", "Work"}));
    mModel.sort(CVImportColumns::Amount, Qt::DescendingOrder);
    EXPECT_EQ(column(CVImportColumns::Amount), (QStringList{"$2,000.00", "$12.50", "$9.90", ""}));
    mModel.sort(CVImportColumns::Date, Qt::AscendingOrder);
    EXPECT_EQ(column(CVImportColumns::Date), (QStringList{"", "3/2/14", "3/3/14", "3/4/14"}));
    mModel.sort(-1, Qt::AscendingOrder);
    EXPECT_EQ(column(CVImportColumns::ToFrom), (QStringList{"Market", "Work", "bakery", ""}));
}

struct SearchRow {
    const char* text;
    QStringList payees;
};

TEST_F(CVImportLineModelTest, TheSearchLooksAtTextsAmountsDatesAndNotes) {
    const std::vector<SearchRow> rows{{"MARK", {"Market"}},
                                      {" food ", {"Market", "bakery"}},
                                      {"2,000", {"Work"}},
                                      {"3/2/", {"bakery"}},
                                      {"already", {"bakery"}},
                                      {"nothing", {}},
                                      {"", {"Market", "Work", "bakery", ""}}};
    for (const SearchRow& row : rows) {
        mModel.setSearchText(row.text);
        EXPECT_EQ(column(CVImportColumns::ToFrom), row.payees) << row.text;
    }
}

TEST_F(CVImportLineModelTest, ALineOfTheChosenKindStaysWhileItIsChanged) {
    mModel.setKind(CVImportRows::Kind::WithoutCategory);
    EXPECT_EQ(column(CVImportColumns::ToFrom), QStringList{"Work"});
    mModel.setData(mModel.index(0, CVImportColumns::Category), "Pay");
    EXPECT_EQ(column(CVImportColumns::Category), QStringList{"Pay"});
    mModel.setKind(CVImportRows::Kind::WithoutCategory);
    EXPECT_EQ(mModel.rowCount(), 0);
}

} // namespace
