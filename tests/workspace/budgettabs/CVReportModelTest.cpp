#include "workspace/budgettabs/CVReportModel.h"

#include "contents/CVReportContents.h"
#include "kit/BudgetBuilder.h"
#include "kit/DefaultLocale.h"
#include "kit/RandomBudget.h"
#include "storage/LogCapture.h"
#include "widgets/CVAttentionColourOn.h"

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QFont>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTextDocumentFragment>

#include <gtest/gtest.h>

#include <limits>

namespace {

using Table = CVReportTable;
constexpr auto kFailAtOnce = QAbstractItemModelTester::FailureReportingMode::Fatal;

/// The models of the four tables over the first quarter of 2014, checked for consistency.
class CVReportModelTest : public testing::Test {
public:
    CVReportModelTest() {
        mBudget.category("Car", 2, CVExpenseFrequency::kQuarterly, 0)
            .category("Food", 1, CVExpenseFrequency::kMonthly, 25.255);
        mContents.setRange({day(2014, 1, 1), day(2014, 3, 31)});
    }

    CVReportModelTest& spend(const QBDate& date, double amount, const char* category, bool taxFlag = false) {
        mBudget.transaction({.date = date, .amount = amount, .category = category, .taxFlag = taxFlag});
        return *this;
    }

    void reload() {
        mContents.reload(mBudget.document().transactions(), mBudget.document().categories());
        for (CVReportModel* const model : {&mAverages, &mTotals, &mPercent, &mTax})
            model->reload();
    }

    [[nodiscard]] static QStringList row(const CVReportModel& model, int row) {
        QStringList texts;
        for (int column = 0; column < model.columnCount(); ++column)
            texts.append(model.index(row, column).data().toString());
        return texts;
    }

    [[nodiscard]] QModelIndex cell(const CVReportModel& model, const char* identifier, int row = 0) const {
        for (int column = 0; column < model.columnCount(); ++column) {
            if (model.column(column).identifier == QLatin1StringView(identifier))
                return model.index(row, column);
        }
        ADD_FAILURE() << identifier;
        return {};
    }

    BudgetBuilder mBudget;
    CVReportContents mContents{day(2014, 6, 10)};
    CVReportModel mAverages{mContents, Table::Averages};
    CVReportModel mTotals{mContents, Table::Totals};
    CVReportModel mPercent{mContents, Table::Percent};
    CVReportModel mTax{mContents, Table::Tax};
    QAbstractItemModelTester mAveragesTester{&mAverages, kFailAtOnce};
    QAbstractItemModelTester mTotalsTester{&mTotals, kFailAtOnce};
    QAbstractItemModelTester mPercentTester{&mPercent, kFailAtOnce};
    QAbstractItemModelTester mTaxTester{&mTax, kFailAtOnce};
};

TEST_F(CVReportModelTest, EachTableHasItsColumns) {
    struct Row {
        const CVReportModel& model;
        QStringList identifiers;
        QStringList titles;
    };
    for (const Row& row : {Row{mAverages,
                               {"category", "total", "pattern", "numtrans", "weekly", "biweekly", "monthly"},
                               {"Category", "Total", "Pattern", "Transactions", "Weekly", "Bi-Weekly", "Monthly"}},
                           Row{mTotals,
                               {"category", "freq", "target", "average", "diff"},
                               {"Category", "Frequency", "Target", "Average", "Difference"}},
                           Row{mPercent, {"category", "total", "percent"}, {"Category", "Total", "Percent"}},
                           Row{mTax, {"category", "amount", "number"}, {"Category", "Amount", "Transactions"}}}) {
        ASSERT_EQ(row.model.columnCount(), row.identifiers.size());
        for (int column = 0; column < row.model.columnCount(); ++column) {
            EXPECT_EQ(QString(row.model.column(column).identifier), row.identifiers[column]);
            EXPECT_EQ(row.model.headerData(column, Qt::Horizontal), row.titles[column]);
        }
    }
}

TEST_F(CVReportModelTest, ShowsTheFiguresOfEachCategory) {
    spend(day(2014, 1, 1), 60, "Food", true).spend(day(2014, 1, 31), 30, "Food").spend(day(2014, 2, 1), 270, "Car");
    reload();
    EXPECT_EQ(row(mAverages, 1), QStringList({"Food", "$90.00", "Monthly", "2", "$6.93", "$13.85", "$30.00"}));
    EXPECT_EQ(row(mTotals, 0), QStringList({"Car", "Quarterly", "$0.00", "$270.00", "-$270.00"}));
    EXPECT_EQ(row(mTotals, 1), QStringList({"Food", "Monthly", "$25.26", "$30.00", "-$4.75"}));
    EXPECT_EQ(row(mPercent, 1), QStringList({"Food", "$90.00", "25.00%"}));
    EXPECT_EQ(row(mTax, 0), QStringList({"Car", "$0.00", "0"}));
    EXPECT_EQ(row(mTax, 1), QStringList({"Food", "$60.00", "1"}));
}

TEST_F(CVReportModelTest, TheEditRoleHoldsUnroundedValues) {
    spend(day(2014, 1, 1), 10, "Food").spend(day(2014, 2, 1), 20, "Car");
    reload();
    EXPECT_EQ(cell(mTotals, "target", 1).data(Qt::EditRole), 25.255);
    EXPECT_EQ(cell(mTotals, "freq").data(Qt::EditRole), CVExpenseFrequency::kQuarterly);
    EXPECT_EQ(cell(mPercent, "percent", 1).data(Qt::EditRole), 10.0 / 30 * 100);
    EXPECT_EQ(cell(mPercent, "percent", 1).data(), "33.33%");
}

TEST_F(CVReportModelTest, ARangeWithoutSpendingShowsMonthlyZeros) {
    reload();
    EXPECT_EQ(row(mAverages, 1), QStringList({"Food", "$0.00", "Monthly", "0", "$0.00", "$0.00", "$0.00"}));
    EXPECT_EQ(row(mPercent, 1), QStringList({"Food", "$0.00", "0.00%"}));
}

TEST_F(CVReportModelTest, TheDifferenceIsRedFromTheFirstCentThatIsMissing) {
    spend(day(2014, 1, 1), 60, "Food").spend(day(2014, 1, 31), 30, "Food").reload();
    const auto food = mBudget.categoryNamed("Food");
    ASSERT_EQ(food->monthly(), 30);
    const auto isRed = [this] {
        const QModelIndex diff = cell(mTotals, "diff", 1);
        const bool isColoured = diff.data(Qt::ForegroundRole).value<QBrush>().color() ==
                                CVAttentionColourOn(QGuiApplication::palette(), QPalette::Base);
        EXPECT_EQ(diff.data(Qt::FontRole).value<QFont>().bold(), isColoured) << "never by colour alone";
        EXPECT_EQ(diff.data(Qt::ToolTipRole).toString().contains("too low"), isColoured);
        EXPECT_EQ(diff.data(Qt::ForegroundRole).isValid(), isColoured);
        return isColoured;
    };
    for (const auto& [target, red] : {std::pair{30.0, false}, {30.01, false}, {29.99, true}, {-1.0, true}}) {
        food->setExpenseTarget(target);
        EXPECT_EQ(isRed(), red) << target;
    }
    food->setExpenseTarget(29.99);
    EXPECT_TRUE(cell(mTotals, "diff", 1)
                    .data(Qt::ToolTipRole)
                    .toString()
                    .endsWith("<p>The target is too low: $30.00 a month were spent on average.</p>"));
    for (const char* const plain : {"category", "freq", "target", "average"})
        EXPECT_FALSE(cell(mTotals, plain, 1).data(Qt::ForegroundRole).isValid()) << plain;
}

TEST_F(CVReportModelTest, AFigureTellsWhatItComesFrom) {
    spend(day(2014, 1, 1), 60, "Food").spend(day(2014, 1, 31), 30, "Food").reload();
    const QString toolTip = cell(mPercent, "percent", 1).data(Qt::ToolTipRole).toString();
    EXPECT_EQ(QTextDocumentFragment::fromHtml(toolTip).toPlainText().simplified(),
              "Food 1/1/14 - 3/31/14 Transactions: 2 Spent: $90.00 Average a month: $30.00 Target, Monthly: $25.26");
    EXPECT_EQ(cell(mTotals, "target", 1).data(Qt::ToolTipRole), toolTip);
    EXPECT_FALSE(cell(mPercent, "category", 1).data(Qt::ToolTipRole).isValid()) << "shown whole where it is cut";
}

TEST_F(CVReportModelTest, AnUnknownFrequencyHasNoLabel) {
    mBudget.categoryNamed("Food")->setExpenseFrequency(CVExpenseFrequency::kUnknown);
    reload();
    EXPECT_EQ(cell(mTotals, "freq", 1).data(), "");
}

TEST_F(CVReportModelTest, FrequencyAndTargetAloneCanBeEdited) {
    reload();
    for (const CVReportModel* const model : {&mAverages, &mTotals, &mPercent, &mTax}) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QString identifier = model->column(column).identifier;
            EXPECT_EQ(model->index(0, column).flags().testFlag(Qt::ItemIsEditable),
                      model == &mTotals && (identifier == "freq" || identifier == "target"))
                << identifier.toStdString();
        }
    }
}

TEST_F(CVReportModelTest, AnEditIsAnnouncedAndChangesNothingItself) {
    reload();
    QSignalSpy frequencies(&mTotals, &CVReportModel::frequencyPicked);
    QSignalSpy targets(&mTotals, &CVReportModel::targetEntered);
    EXPECT_TRUE(mTotals.setData(cell(mTotals, "freq", 1), 7));
    EXPECT_TRUE(mTotals.setData(cell(mTotals, "target", 1), 12.345));
    EXPECT_EQ(frequencies, QList<QVariantList>({{1, 7}}));
    EXPECT_EQ(targets, QList<QVariantList>({{1, 12.345}}));
    EXPECT_EQ(mBudget.categoryNamed("Food")->expenseFrequency(), CVExpenseFrequency::kMonthly);
    EXPECT_EQ(mBudget.categoryNamed("Food")->expenseTarget(), 25.255);
}

TEST_F(CVReportModelTest, AnEditToTheSameValueOrOfAnotherColumnIsNone) {
    reload();
    QSignalSpy frequencies(&mTotals, &CVReportModel::frequencyPicked);
    QSignalSpy targets(&mTotals, &CVReportModel::targetEntered);
    EXPECT_FALSE(mTotals.setData(cell(mTotals, "freq", 1), 3));
    EXPECT_FALSE(mTotals.setData(cell(mTotals, "target", 1), 25.255));
    EXPECT_FALSE(mTotals.setData(cell(mTotals, "average", 1), 1.0));
    EXPECT_FALSE(mTotals.setData(cell(mTotals, "target", 1), 1.0, Qt::DisplayRole));
    EXPECT_FALSE(mTotals.setData({}, 1.0));
    EXPECT_TRUE(frequencies.isEmpty());
    EXPECT_TRUE(targets.isEmpty());
}

TEST_F(CVReportModelTest, NoCellIsAskedAboutWithoutARemark) {
    reload();
    const LogCapture log;
    EXPECT_FALSE(mTotals.data({}).isValid());
    EXPECT_FALSE(mTotals.setData({}, 1.0));
    EXPECT_EQ(LogCapture::messages(), QStringList());
}

TEST_F(CVReportModelTest, NumbersReadAsTheUsersLocaleWritesThem) {
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    spend(day(2014, 1, 1), 1000, "Food").spend(day(2014, 2, 1), 2000, "Car");
    reload();
    EXPECT_EQ(row(mPercent, 1), QStringList({"Food", "€1.000,00", "33,33%"}));
}

TEST_F(CVReportModelTest, WhatIsNoNumberCanBeShown) {
    for (const double amount : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity(), 1e308}) {
        spend(day(2014, 1, 1), amount, "Food", true).spend(day(2014, 1, 2), amount, "Food", true);
        mBudget.categoryNamed("Food")->setExpenseTarget(amount);
        reload();
        for (const CVReportModel* const model : {&mAverages, &mTotals, &mPercent, &mTax})
            EXPECT_FALSE(row(*model, 1).contains(QString())) << amount;
    }
}

TEST_F(CVReportModelTest, APercentageThatShowsAsZeroHasNoSign) {
    spend(day(2014, 1, 1), -0.01, "Food").spend(day(2014, 1, 2), 1000, "Car").reload();
    EXPECT_EQ(cell(mPercent, "percent", 1).data(), "0.00%");
}

TEST(CVReportModel, EveryCellOfAnyBudgetCanBeShown) {
    for (quint32 seed = 1; seed <= 30; ++seed) {
        RandomBudget budget(seed);
        CVReportContents contents(day(2014, 6, 10));
        contents.setRangeFromPreset(day(2014, 6, 10), budget.document());
        contents.reload(budget.document().transactions(), budget.document().categories());
        for (const Table table : {Table::Averages, Table::Totals, Table::Percent, Table::Tax}) {
            CVReportModel model(contents, table);
            const QAbstractItemModelTester tester(&model, kFailAtOnce);
            model.reload();
            EXPECT_EQ(model.rowCount(), static_cast<int>(contents.rows().size()));
            for (int row = 0; row < model.rowCount(); ++row) {
                for (int column = 1; column < model.columnCount(); ++column)
                    EXPECT_TRUE(model.index(row, column).data(Qt::EditRole).isValid());
            }
        }
    }
}

} // namespace
