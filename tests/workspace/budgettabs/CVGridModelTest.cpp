#include "workspace/budgettabs/CVGridModel.h"

#include "contents/CVBudgetRows.h"
#include "kit/BudgetBuilder.h"
#include "kit/RandomBudget.h"
#include "widgets/CVAttentionColourOn.h"

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QFont>
#include <QGuiApplication>
#include <QTextDocumentFragment>

#include <gtest/gtest.h>

namespace {

using Part = CVGridModel::Part;
constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

/// The models of the four tables on Wednesday 12 March 2014, checked for consistency.
class CVGridModelTest : public testing::Test {
public:
    CVGridModelTest() {
        mBudget.category("Car", 2, CVExpenseFrequency::kAnnually, 520).category("Food", 1).category("Unused", 3);
    }

    CVGridModelTest& spend(const QBDate& date, double amount, const char* category) {
        mBudget.transaction({.date = date, .amount = amount, .category = category});
        return *this;
    }

    void show(int periodType, CVShowUnused unused = CVShowUnused::No, CVDisplayPeriods::Placement placement = {}) {
        mContents.periods().setTimePeriod(periodType, placement);
        mContents.reload(mBudget.document().transactions(), buildCategoryArray(mBudget.document(), unused));
        for (CVGridModel* const model : {&mCategories, &mPeriods, &mPeriodTotals, &mCategoryTotals})
            model->reload();
    }

    [[nodiscard]] static QStringList texts(const CVGridModel& model) {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column)
                texts.append(model.index(row, column).data().toString());
        }
        return texts;
    }

    [[nodiscard]] QVariant header(int column, int role = Qt::DisplayRole) const {
        return mPeriods.headerData(column, Qt::Horizontal, role);
    }

    /// The column whose header has every mark of today; -1 for none or several.
    [[nodiscard]] int columnOfToday() const {
        int today = -1;
        for (int column = 0; column < mPeriods.columnCount(); ++column) {
            const bool stands = header(column, Qt::ForegroundRole).value<QBrush>().color() ==
                                    CVAttentionColourOn(QGuiApplication::palette(), QPalette::Button) &&
                                header(column, Qt::FontRole).value<QFont>().bold() &&
                                header(column, Qt::TextAlignmentRole).value<Qt::Alignment>() == Qt::AlignCenter &&
                                header(column, Qt::ToolTipRole) == "Today" &&
                                header(column, Qt::AccessibleTextRole).toString().endsWith("(today)");
            const bool isPlain = !header(column, Qt::ForegroundRole).isValid() &&
                                 !header(column, Qt::FontRole).isValid() && !header(column, Qt::ToolTipRole).isValid();
            EXPECT_NE(stands, isPlain) << column;
            if (stands)
                today = today == -1 ? column : -2;
        }
        return today < 0 ? -1 : today;
    }

    [[nodiscard]] static QString toolTip(const CVGridModel& model, int row, int column) {
        return QTextDocumentFragment::fromHtml(model.index(row, column).data(Qt::ToolTipRole).toString())
            .toPlainText()
            .simplified();
    }

    BudgetBuilder mBudget;
    CVGridContents mContents{day(2014, 3, 12), CVDisplayPeriods::Week, {}};
    CVGridModel mCategories{mContents, Part::Categories};
    CVGridModel mPeriods{mContents, Part::Periods};
    CVGridModel mPeriodTotals{mContents, Part::PeriodTotals};
    CVGridModel mCategoryTotals{mContents, Part::CategoryTotals};
    QAbstractItemModelTester mCategoriesTester{&mCategories, kFatal};
    QAbstractItemModelTester mPeriodsTester{&mPeriods, kFatal};
    QAbstractItemModelTester mPeriodTotalsTester{&mPeriodTotals, kFatal};
    QAbstractItemModelTester mCategoryTotalsTester{&mCategoryTotals, kFatal};
};

TEST_F(CVGridModelTest, ShowsEachCategorysSpendingPeriodByPeriodAndTheTotals) {
    spend(day(2014, 3, 9), 1234.5, "Food").spend(day(2014, 3, 16), 2, "Food").spend(day(2014, 3, 16), -3, "Car");
    show(CVDisplayPeriods::Week);
    EXPECT_EQ(texts(mCategories), QStringList({"Car", "Food"}));
    EXPECT_EQ(texts(mPeriods), QStringList({"", "-$3.00", "", "", "$1,234.50", "$2.00", "", ""}));
    EXPECT_EQ(texts(mCategoryTotals), QStringList({"-$3.00", "$1,236.50"}));
    EXPECT_EQ(texts(mPeriodTotals), QStringList({"$1,234.50", "-$1.00", "", ""}));
    EXPECT_EQ(mPeriods.index(1, 0).data(Qt::EditRole), 1234.5);
    EXPECT_FALSE(mPeriods.index(0, 0).data(Qt::EditRole).isValid());
}

TEST_F(CVGridModelTest, ACellThatNetsToZeroIsEmpty) {
    spend(day(2014, 3, 9), 10, "Food").spend(day(2014, 3, 10), -10, "Food").show(CVDisplayPeriods::Week);
    EXPECT_EQ(texts(mPeriods), QStringList({"", "", "", ""}));
    EXPECT_EQ(texts(mCategoryTotals), QStringList({""}));
    EXPECT_EQ(texts(mPeriodTotals), QStringList({"", "", "", ""}));
}

TEST_F(CVGridModelTest, UnusedCategoriesAreListedWithEmptyCellsWhenWanted) {
    spend(day(2014, 3, 9), 10, "Food").show(CVDisplayPeriods::Week);
    EXPECT_EQ(texts(mCategories), QStringList({"Food"}));
    show(CVDisplayPeriods::Week, CVShowUnused::Yes);
    EXPECT_EQ(texts(mCategories), QStringList({"Car", "Food", "Unused"}));
    EXPECT_EQ(texts(mPeriods), QStringList({"", "", "", "", "$10.00", "", "", "", "", "", "", ""}));
    EXPECT_EQ(texts(mCategoryTotals), QStringList({"", "$10.00", ""}));
}

TEST_F(CVGridModelTest, WithoutCategoriesThereIsNoRowOfTotals) {
    show(CVDisplayPeriods::Week);
    for (const CVGridModel* const model : {&mCategories, &mPeriods, &mPeriodTotals, &mCategoryTotals})
        EXPECT_EQ(model->rowCount(), 0);
    EXPECT_EQ(mPeriodTotals.columnCount(), 4);
}

TEST_F(CVGridModelTest, AWeekHoldsItsLastDayAndTheNextDoesNot) {
    spend(day(2014, 3, 15), 10, "Food").show(CVDisplayPeriods::Week);
    EXPECT_EQ(texts(mPeriods), QStringList({"$10.00", "", "", ""}));
}

TEST_F(CVGridModelTest, ThereAreSevenDaysAndFourOfEverythingElse) {
    for (const auto& [type, columns] : {std::pair{0, 7}, {1, 4}, {2, 4}, {3, 4}, {0, 7}}) {
        show(type);
        EXPECT_EQ(mPeriods.columnCount(), columns) << type;
        EXPECT_EQ(mPeriodTotals.columnCount(), columns) << type;
        EXPECT_EQ(mCategories.columnCount(), 1);
        EXPECT_EQ(mCategoryTotals.columnCount(), 1);
    }
}

TEST_F(CVGridModelTest, TheHeaderOfTodayStandsOutInEveryView) {
    struct Row {
        int periodType = 0;
        CVDisplayPeriods::Placement placement;
        int column = 0;
        const char* text = nullptr;
    };
    for (const Row& row :
         {Row{CVDisplayPeriods::Day, {1, 0}, 2, "Wednesday"}, Row{CVDisplayPeriods::Day, {4, 0}, 6, "Wednesday"},
          Row{CVDisplayPeriods::Week, {0, 0}, 0, "3/9 - 3/15"}, Row{CVDisplayPeriods::Week, {0, 2}, 2, "3/9 - 3/15"},
          Row{CVDisplayPeriods::TwoWeeks, {0, 0}, 0, "3/2 - 3/15"},
          Row{CVDisplayPeriods::Month, {0, 1}, 1, "March 2014"}}) {
        show(row.periodType, CVShowUnused::No, row.placement);
        EXPECT_EQ(columnOfToday(), row.column) << row.text;
        EXPECT_EQ(header(row.column), row.text);
    }
}

TEST_F(CVGridModelTest, NoHeaderStandsOutWhenTodayIsNotShown) {
    for (int type = 0; type < CVDisplayPeriods::kTypes; ++type) {
        mContents.periods().setTimePeriod(type, {});
        for (int page = 0; page < 4; ++page)
            mContents.periods().next();
        mContents.reload(mBudget.document().transactions(), {});
        mPeriods.reload();
        EXPECT_EQ(columnOfToday(), -1) << type;
    }
}

TEST_F(CVGridModelTest, MonthsAreNamedWithTheirYear) {
    show(CVDisplayPeriods::Month, CVShowUnused::No, {0, 1});
    const QStringList months{"February 2014", "March 2014", "April 2014", "May 2014"};
    for (int column = 0; column < months.size(); ++column)
        EXPECT_EQ(header(column), months[column]);
}

TEST_F(CVGridModelTest, NumbersAndTheirHeadersAreAlignedRightAndNamesLeft) {
    spend(day(2014, 3, 9), 10, "Food").show(CVDisplayPeriods::Week);
    const auto isRight = [](const QVariant& alignment) {
        return alignment.value<Qt::Alignment>().testFlag(Qt::AlignRight);
    };
    for (const CVGridModel* const model : {&mPeriods, &mPeriodTotals, &mCategoryTotals})
        EXPECT_TRUE(isRight(model->index(0, 0).data(Qt::TextAlignmentRole)));
    EXPECT_TRUE(isRight(header(1, Qt::TextAlignmentRole)));
    EXPECT_TRUE(isRight(mCategoryTotals.headerData(0, Qt::Horizontal, Qt::TextAlignmentRole)));
    EXPECT_FALSE(isRight(mCategories.index(0, 0).data(Qt::TextAlignmentRole)));
    EXPECT_EQ(mCategories.headerData(0, Qt::Horizontal), "Category");
    EXPECT_EQ(mCategoryTotals.headerData(0, Qt::Horizontal), "Total");
}

TEST_F(CVGridModelTest, AToolTipSaysWhereASumComesFrom) {
    spend(day(2014, 3, 9), 10, "Food").spend(day(2014, 3, 10), 2, "Food").spend(day(2014, 3, 16), 4, "Food");
    spend(day(2014, 3, 9), 12, "Car");
    show(CVDisplayPeriods::Week);
    EXPECT_EQ(toolTip(mPeriods, 1, 0), "Food 3/9/14 - 3/15/14 Transactions: 2 Spent: $12.00");
    EXPECT_EQ(toolTip(mPeriods, 1, 3), "Food 3/30/14 - 4/5/14 Transactions: 0 Spent: $0.00");
    EXPECT_EQ(toolTip(mCategoryTotals, 1, 0), "Food 3/9/14 thru 4/5/14 Transactions: 3 Spent: $16.00");
    EXPECT_EQ(toolTip(mPeriodTotals, 0, 0), "All Categories 3/9/14 - 3/15/14 Transactions: 3 Spent: $24.00");
    EXPECT_FALSE(mCategories.index(0, 0).data(Qt::ToolTipRole).isValid());
}

TEST_F(CVGridModelTest, AToolTipComparesWithThePlanForThatPeriod) {
    spend(day(2014, 3, 12), 12, "Car");
    const std::array plans{
        "Car Wednesday, 3/12/14 Transactions: 1 Spent: $12.00 Planned for the day: $1.43 Difference: -$10.57",
        "Car 3/9/14 - 3/15/14 Transactions: 1 Spent: $12.00 Planned for the week: $10.00 Difference: -$2.00",
        "Car 3/2/14 - 3/15/14 Transactions: 1 Spent: $12.00 Planned for the two weeks: $20.00 Difference: $8.00",
        "Car March 2014 Transactions: 1 Spent: $12.00 Planned for the month: $43.33 Difference: $31.33"};
    for (int type = 0; type < CVDisplayPeriods::kTypes; ++type) {
        show(type, CVShowUnused::No, {3, 0});
        EXPECT_EQ(toolTip(mPeriods, 0, 0), plans[static_cast<std::size_t>(type)]);
    }
}

TEST_F(CVGridModelTest, ANameWithMarkupIsShownAsItIs) {
    mBudget.category("<b>A & B</b>", 9);
    spend(day(2014, 3, 9), 10, "<b>A & B</b>").show(CVDisplayPeriods::Week);
    EXPECT_EQ(toolTip(mPeriods, 0, 0), "<b>A & B</b> 3/9/14 - 3/15/14 Transactions: 1 Spent: $10.00");
}

TEST_F(CVGridModelTest, ShowsRowsAndHeadersAsOfTheLastReload) {
    spend(day(2014, 3, 9), 10, "Food").show(CVDisplayPeriods::Week);
    mContents.periods().setTimePeriod(CVDisplayPeriods::Day, {});
    mContents.reload(mBudget.document().transactions(), {});
    EXPECT_EQ(mPeriods.rowCount(), 1);
    EXPECT_EQ(mPeriods.columnCount(), 4);
    EXPECT_EQ(header(0), "3/9 - 3/15");
    EXPECT_EQ(texts(mCategories), QStringList({"Food"}));
}

TEST(CVGridModel, EveryCellOfAnyBudgetCanBeShown) {
    for (quint32 seed = 1; seed <= 30; ++seed) {
        RandomBudget budget(seed);
        CVGridContents contents(day(2014, 3, 12), static_cast<int>(seed % 4), {});
        contents.reload(budget.document().transactions(), budget.document().categories());
        for (const Part part : {Part::Categories, Part::Periods, Part::PeriodTotals, Part::CategoryTotals}) {
            CVGridModel model(contents, part);
            const QAbstractItemModelTester tester(&model, kFatal);
            model.reload();
            for (int row = 0; row < model.rowCount(); ++row) {
                for (int column = 0; column < model.columnCount(); ++column) {
                    const QModelIndex cell = model.index(row, column);
                    EXPECT_EQ(part != Part::Categories && !cell.data().toString().isEmpty(),
                              cell.data(Qt::EditRole).isValid());
                    EXPECT_EQ(cell.data(Qt::ToolTipRole).toString().isEmpty(), part == Part::Categories);
                }
            }
        }
    }
}

} // namespace
