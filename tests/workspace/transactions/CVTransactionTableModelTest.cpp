#include "workspace/transactions/CVTransactionTableModel.h"

#include "contents/CVTransactionList.h"
#include "kit/BudgetBuilder.h"
#include "kit/RandomBudget.h"

#include <QAbstractItemModelTester>
#include <QFont>

#include <gtest/gtest.h>

namespace {

using Model = CVTransactionTableModel;

/// A model that is checked for consistency; a violation ends the test program.
class CVTransactionTableModelTest : public testing::Test {
protected:
    void rebuild() {
        mList.collectTransactions();
        mList.setRangeFromPreset(day(2014, 3, 7));
        mList.getTransactions();
        mList.filterTransactions();
        mList.doUserSort();
        mModel.reload();
    }

    [[nodiscard]] QVariant cell(int column, int role = Qt::DisplayRole) const {
        return mModel.index(0, column).data(role);
    }

    BudgetBuilder mBudget;
    CVTransactionList mList{mBudget.document()};
    Model mModel{mList};
    QAbstractItemModelTester mTester{&mModel, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(CVTransactionTableModelTest, ShowsDateAndMoneyFormattedAndTextsAsTheyAre) {
    mBudget.category("Food", 7).transaction({.date = day(2014, 3, 7),
                                             .amount = -1234.5,
                                             .payTo = "Market",
                                             .xfor = "bread",
                                             .category = "Food",
                                             .taxFlag = true});
    rebuild();
    ASSERT_EQ(mModel.rowCount(), 1);
    EXPECT_EQ(cell(Model::Date), "3/7/14");
    EXPECT_EQ(cell(Model::Amount), "-$1,234.50");
    EXPECT_EQ(cell(Model::ToFrom), "Market");
    EXPECT_EQ(cell(Model::For), "bread");
    EXPECT_EQ(cell(Model::Category), "Food");
    EXPECT_FALSE(cell(Model::Tax, Qt::DecorationRole).isNull());
    EXPECT_EQ(cell(Model::UserFlag, Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_EQ(cell(Model::Tax, Qt::AccessibleTextRole), "Yes");
    EXPECT_EQ(cell(Model::UserFlag, Qt::AccessibleTextRole), "No");
}

TEST_F(CVTransactionTableModelTest, TheEditRoleHoldsValues) {
    mBudget.category("Food", 7).transaction(
        {.date = day(2014, 3, 7), .amount = 1.239, .payTo = "Market", .category = "Food", .userFlag = true});
    rebuild();
    EXPECT_EQ(cell(Model::Date, Qt::EditRole).value<std::optional<QBDate>>(), day(2014, 3, 7));
    EXPECT_EQ(cell(Model::Amount, Qt::EditRole), 1.239);
    EXPECT_EQ(cell(Model::ToFrom, Qt::EditRole), "Market");
    EXPECT_EQ(cell(Model::Category, Qt::EditRole), "Food");
    EXPECT_EQ(cell(Model::Tax, Qt::EditRole), false);
    EXPECT_EQ(cell(Model::UserFlag, Qt::EditRole), true);
}

TEST_F(CVTransactionTableModelTest, WhatIsMissingIsEmpty) {
    mBudget.transaction({.payTo = QString(), .xfor = QString(), .categoryID = 99});
    rebuild();
    for (const int column : {Model::Date, Model::ToFrom, Model::For, Model::Category})
        EXPECT_EQ(cell(column).toString(), "") << column;
}

TEST_F(CVTransactionTableModelTest, NumbersAreAlignedRight) {
    mBudget.transaction({});
    rebuild();
    for (const int column : {Model::Date, Model::Amount}) {
        EXPECT_TRUE(cell(column, Qt::TextAlignmentRole).value<Qt::Alignment>().testFlag(Qt::AlignRight));
        EXPECT_TRUE(mModel.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole)
                        .value<Qt::Alignment>()
                        .testFlag(Qt::AlignRight));
    }
}

TEST_F(CVTransactionTableModelTest, NamesItsColumns) {
    const QStringList identifiers{"date", "amount", "tofrom", "for", "category", "tax", "userflag"};
    const QStringList titles{"Date", "Amount", "Paid To/From", "For", "Category", "Tax", "Flag"};
    ASSERT_EQ(mModel.columnCount(), identifiers.size());
    for (int column = 0; column < Model::ColumnCount; ++column) {
        EXPECT_EQ(CVTransactionColumns::identifier(column), identifiers[column]);
        EXPECT_EQ(CVTransactionColumns::columnOfIdentifier(identifiers[column]), column);
        EXPECT_EQ(mModel.headerData(column, Qt::Horizontal), titles[column]);
    }
    EXPECT_EQ(CVTransactionColumns::columnOfIdentifier("nothing"), -1);
}

TEST_F(CVTransactionTableModelTest, TheSortColumnIsHighlighted) {
    rebuild();
    const auto isBold = [this](int column) {
        return mModel.headerData(column, Qt::Horizontal, Qt::FontRole).value<QFont>().bold();
    };
    EXPECT_TRUE(isBold(Model::Date));
    EXPECT_FALSE(isBold(Model::Amount));
    mList.chooseSortColumn("amount");
    rebuild();
    EXPECT_FALSE(isBold(Model::Date));
    EXPECT_TRUE(isBold(Model::Amount));
}

TEST_F(CVTransactionTableModelTest, AnnouncesWhatIsSetAndChangesNothingItself) {
    mBudget.transaction({.amount = 5, .payTo = "Market"});
    rebuild();
    QStringList edits;
    QObject::connect(&mModel, &Model::edited, &mModel, [&edits](int row, int column, const QVariant& value) {
        edits.append(QStringLiteral("%1 %2 %3").arg(row).arg(column).arg(value.toString()));
    });
    EXPECT_TRUE(mModel.setData(mModel.index(0, Model::ToFrom), "Baker"));
    EXPECT_TRUE(mModel.setData(mModel.index(0, Model::Tax), {}, Qt::CheckStateRole));
    EXPECT_FALSE(mModel.setData(mModel.index(0, Model::Tax), true)) << "a flag is turned round, not edited";
    EXPECT_FALSE(mModel.setData(mModel.index(0, Model::ToFrom), "Baker", Qt::DisplayRole));
    EXPECT_FALSE(mModel.setData({}, "Baker"));
    EXPECT_EQ(edits, (QStringList{"0 2 Baker", "0 5 "}));
    EXPECT_EQ(cell(Model::ToFrom), "Market");
    EXPECT_TRUE(mModel.index(0, Model::Date).flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(mModel.index(0, Model::UserFlag).flags().testFlag(Qt::ItemIsEditable));
}

TEST_F(CVTransactionTableModelTest, ShowsTheListAsOfTheLastReload) {
    mBudget.transaction({.amount = 1});
    rebuild();
    mBudget.transaction({.amount = 2});
    mList.collectTransactions();
    EXPECT_EQ(mModel.rowCount(), 1);
    rebuild();
    EXPECT_EQ(mModel.rowCount(), 2);
}

TEST(CVTransactionTableModel, EveryCellOfAnyBudgetCanBeShown) {
    for (quint32 seed = 1; seed <= 30; ++seed) {
        RandomBudget budget(seed);
        CVTransactionList list(budget.document());
        Model model(list);
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        list.collectTransactions();
        list.getTransactions();
        list.filterTransactions();
        list.doUserSort();
        model.reload();
        for (int row = 0; row < model.rowCount(); ++row) {
            EXPECT_FALSE(model.index(row, Model::Amount).data().toString().isEmpty());
            for (int column = 0; column < Model::ColumnCount; ++column)
                EXPECT_EQ(model.index(row, column).data(Qt::AccessibleTextRole).typeId(), QMetaType::QString);
        }
    }
}

} // namespace
