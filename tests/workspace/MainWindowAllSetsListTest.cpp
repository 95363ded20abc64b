#include "base/CVDefaultsKeys.h"
#include "workspace/AllSetsFixture.h"
#include "workspace/transactions/CVTransactionColumnLayout.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QClipboard>
#include <QFile>
#include <QTemporaryDir>

namespace {

class MainWindowAllSetsListTest : public AllSetsFixture {};

TEST_F(MainWindowAllSetsListTest, TheColumnSetIsThereWhileAllSetsAreAndIsCopiedAndNotEdited) {
    const QAbstractItemModelTester tester(table().model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(table().model()->columnCount(), Column::ColumnCount);
    pickAllSets();
    ASSERT_EQ(table().model()->columnCount(), Column::CountWithSet);
    EXPECT_EQ(table().model()->headerData(Column::Set, Qt::Horizontal), "Set");
    EXPECT_EQ(column(Column::Set), (QStringList{"Household", "Savings", "Savings", "Household"}));
    select("Bank");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "3/5/14\t$3.00\tBank\t\tFees\tNo\tNo\tSavings\n");
    const QModelIndex cell = table().model()->index(1, Column::Set);
    EXPECT_FALSE(cell.flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(table().model()->setData(cell, "Household"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&table())->tableInterface()->columnDescription(Column::Set), "Set");
    select("Bank");
    pickFirstSet();
    EXPECT_EQ(table().model()->columnCount(), Column::ColumnCount);
    select("Butcher");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "3/3/14\t$40.00\tButcher\t\tFood\tNo\tNo\n");
}

TEST_F(MainWindowAllSetsListTest, TheListIsSortedBySetFromItsHeaderAndItsMenuAndSearchedForIt) {
    EXPECT_FALSE(sortMenu().contains("Set"));
    pickAllSets();
    EXPECT_EQ(sortMenu().last(), "Set");
    clickHeader(Column::Set);
    EXPECT_EQ(payees(), (QStringList{"Market", "Butcher", "Bank", "Baker"}));
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), Column::Set);
    clickHeader(Column::Set);
    EXPECT_EQ(payees(), (QStringList{"Bank", "Baker", "Market", "Butcher"}));
    table().setFocus();
    type("hou");
    EXPECT_EQ(table().currentIndex().row(), 2) << "typed letters look in the column that the list is sorted by";
    type("mSearchField103", "saving");
    EXPECT_EQ(payees(), (QStringList{"Bank", "Baker"}));
    pickFirstSet();
    EXPECT_FALSE(sortMenu().contains("Set"));
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), Column::Date) << "the order of before is back";
    EXPECT_EQ(mBudget.userDefaults().stringForKey(CVDefaultsKeys::kTransactionSortColumn), "date");
}

TEST_F(MainWindowAllSetsListTest, AStoredOrderBySetMeansNothingForOneSet) {
    mBudget.userDefaults().setString(CVDefaultsKeys::kTransactionSortColumn, "set");
    open();
    EXPECT_EQ(payees(), (QStringList{"Market", "Butcher"}));
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), -1);
    table().setFocus();
    type("3/3");
    EXPECT_EQ(table().currentIndex().row(), 1) << "typed letters look for a date";
}

TEST_F(MainWindowAllSetsListTest, TheExportAsTextHasTheLinesOfAllSetsInItsOwnSixFields) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.txt");
    pickAllSets();
    mPanels.answer(path);
    mController->exportTransactions();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "3/6/14\t$10.00\t\tMarket\t\tFood\n"
                              "3/5/14\t$3.00\t\tBank\t\tFees\n"
                              "3/4/14\t$20.00\t\tBaker\t\tFood\n"
                              "3/3/14\t$40.00\t\tButcher\t\tFood\n");
}

TEST_F(MainWindowAllSetsListTest, ChangesOfALineLeaveItInItsSet) {
    pickAllSets();
    QAbstractItemModel& model = *table().model();
    ASSERT_TRUE(model.setData(model.index(1, Column::Amount), 4.5));
    ASSERT_TRUE(model.setData(model.index(1, Column::Category), "Food"));
    ASSERT_TRUE(model.setData(model.index(1, Column::ToFrom), "Credit Union"));
    ASSERT_TRUE(model.setData(model.index(0, Column::Date), QVariant::fromValue(std::optional(day(2014, 3, 1)))));
    EXPECT_EQ(setOf("Credit Union"), kSavings);
    EXPECT_EQ(setOf("Market"), kHousehold);
    EXPECT_EQ(payees(), (QStringList{"Credit Union", "Baker", "Butcher", "Market"}));
    EXPECT_EQ(column(Column::Category)[0], "Food");
    EXPECT_EQ(textOf("mTotalAmountField"), "$74.50");
}

TEST_F(MainWindowAllSetsListTest, LinesOfSeveralSetsAreRemovedTogether) {
    pickAllSets();
    table().setFocus();
    table().selectRow(0);
    press(Qt::Key_Down, Qt::ShiftModifier);
    mAlerts.answer({CVAlert::kDefault});
    mController->removeTransaction();
    EXPECT_EQ(payees(), (QStringList{"Baker", "Butcher"}));
    EXPECT_EQ(picker().currentText(), "All Sets");
}

TEST_F(MainWindowAllSetsListTest, DoubleEntriesAreLookedForInEachSet) {
    for (const char* const set : {"Savings", "Household", "Savings"})
        mBudget.transaction({.date = day(2014, 3, 1), .amount = 7, .payTo = "Fair", .category = "Food", .set = set});
    mBudget.inOrder();
    mController->getStarted();
    pickAllSets();
    mController->detectDuplicates();
    ASSERT_EQ(table().selectedTransactions().size(), 1U);
    EXPECT_EQ(table().selectedTransactions().front(), document().transactions().back());
    EXPECT_EQ(table().selectedTransactions().front()->transactionSetID(), kSavings);
}

TEST_F(MainWindowAllSetsListTest, EachOfBothListsHasItsOwnColumnsWhichTheNextStartRemembers) {
    const auto width = [this](Column column) { return table().columnWidth(column); };
    const int usual = width(Column::Amount);
    pickAllSets();
    EXPECT_EQ(width(Column::Amount), usual) << "nothing was changed";
    const auto fits = [this] { return table().horizontalHeader()->length() <= table().viewport()->width(); };
    EXPECT_TRUE(fits()) << "the column of the sets takes its room from the other names";
    table().horizontalHeader()->moveSection(Column::Set, 0);
    table().setColumnWidth(Column::Amount, 201);
    pickFirstSet();
    EXPECT_EQ(width(Column::Amount), usual);
    EXPECT_TRUE(fits());
    EXPECT_EQ(table().horizontalHeader()->visualIndex(Column::Date), 0);
    table().setColumnWidth(Column::Amount, 152);
    window().close();
    mController.reset();
    open();
    EXPECT_EQ(width(Column::Amount), 152);
    pickAllSets();
    EXPECT_EQ(width(Column::Amount), 201);
    EXPECT_EQ(table().horizontalHeader()->visualIndex(Column::Set), 0);
    pickFirstSet();
    EXPECT_EQ(width(Column::Amount), 152);
}

TEST_F(MainWindowAllSetsListTest, TheListOfAllSetsHasTheColumnsOfOneSetUntilItsOwnAreChanged) {
    table().setColumnWidth(Column::Amount, 152);
    table().horizontalHeader()->moveSection(Column::Amount, 0);
    pickAllSets();
    EXPECT_EQ(table().columnWidth(Column::Amount), 152);
    EXPECT_EQ(table().horizontalHeader()->visualIndex(Column::Amount), 0);
    EXPECT_EQ(table().horizontalHeader()->visualIndex(Column::Set), Column::Set);
    pickFirstSet();
    table().setColumnWidth(Column::Amount, 160);
    pickAllSets();
    EXPECT_EQ(table().columnWidth(Column::Amount), 160);
    EXPECT_TRUE(table().columnLayout().save(CVShownSets::All).isEmpty());
    EXPECT_FALSE(table().columnLayout().save(CVShownSets::Current).isEmpty());
}

} // namespace
