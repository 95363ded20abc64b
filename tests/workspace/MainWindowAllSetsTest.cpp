#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "workspace/AllSetsFixture.h"
#include "workspace/controls/CVEntryStrip.h"

#include <QAccessible>

namespace {

class MainWindowAllSetsTest : public AllSetsFixture {};

TEST_F(MainWindowAllSetsTest, TheLastEntryOfThePopUpBehindASeparatorShowsTheLinesOfAllSets) {
    ASSERT_EQ(picker().count(), 4);
    EXPECT_EQ(picker().itemText(3), "All Sets");
    EXPECT_EQ(picker().itemData(2, Qt::AccessibleDescriptionRole), "separator");
    EXPECT_EQ(payees(), (QStringList{"Market", "Butcher"}));
    picker().setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(picker().currentText(), "Savings");
    press(Qt::Key_Down);
    EXPECT_EQ(picker().currentText(), "All Sets") << "the keys pass over the separator";
    EXPECT_EQ(payees(), (QStringList{"Market", "Bank", "Baker", "Butcher"}));
    EXPECT_EQ(textOf("mTotalNumberOfTransactionsField1"), "4");
    EXPECT_EQ(textOf("mTotalAmountField"), "$73.00");
    press(Qt::Key_Home);
    EXPECT_EQ(payees(), (QStringList{"Market", "Butcher"}));
}

TEST_F(MainWindowAllSetsTest, NothingIsStoredAndTheNextStartShowsTheLastRealSet) {
    pickAllSets();
    EXPECT_EQ(document().currentTransactionSet(), kHousehold);
    EXPECT_EQ(mSaver.count(), 0);
    window().close();
    mController.reset();
    open();
    EXPECT_EQ(picker().currentText(), "Household");
    EXPECT_EQ(payees(), (QStringList{"Market", "Butcher"}));
    EXPECT_EQ(table().model()->columnCount(), Column::ColumnCount);
}

TEST_F(MainWindowAllSetsTest, TheWindowSaysSoAndTheStripNamesTheSetOfTheEntry) {
    EXPECT_FALSE(note().isVisible());
    pickAllSets();
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window (All Sets)");
    EXPECT_TRUE(note().isVisible());
    EXPECT_EQ(note().text(), "Recording into “Household”");
    EXPECT_TRUE(window().findChild<CVEntryStrip*>()->isAncestorOf(&note()));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(find<QWidget>("mRecordButton"))->text(QAccessible::Description),
              "Recording into “Household”");
    mBudget.setNamed("Household")->setTransactionSetName("House");
    mBudget.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet));
    EXPECT_EQ(note().text(), "Recording into “House”");
    EXPECT_EQ(column(Column::Set), (QStringList{"House", "Savings", "Savings", "House"}));
    pickFirstSet();
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window");
    EXPECT_FALSE(note().isVisible());
    EXPECT_EQ(find<QWidget>("mRecordButton")->accessibleDescription(), "");
}

TEST_F(MainWindowAllSetsTest, TheNoteNamesTheSetThatStandsInForACurrentOneThatIsGone) {
    document().setCurrentTransactionSet(77);
    mController->getStarted();
    pickAllSets();
    EXPECT_EQ(note().text(), "Recording into “Savings”");
    fillIn("5", "Kiosk", "Food");
    press(Qt::Key_Return);
    EXPECT_EQ(setOf("Kiosk"), kSavings);
}

TEST_F(MainWindowAllSetsTest, AnEntryGoesIntoTheSetThatWasLastChosen) {
    picker().setFocus();
    press(Qt::Key_Down);
    pickAllSets();
    EXPECT_EQ(note().text(), "Recording into “Savings”");
    fillIn("5", "Kiosk", "Food");
    press(Qt::Key_Return);
    EXPECT_EQ(setOf("Kiosk"), kSavings);
    EXPECT_EQ(payees(), (QStringList{"Kiosk", "Market", "Bank", "Baker", "Butcher"})) << "all sets stay shown";
    select("Market");
    press(Qt::Key_D, Qt::ControlModifier);
    press(Qt::Key_Return);
    ASSERT_EQ(document().transactions().size(), 6U);
    EXPECT_EQ(column(Column::Set).count("Savings"), 4) << "what is recorded again is an entry";
    EXPECT_EQ(column(Column::Set).count("Household"), 2) << "and the line stays in its own set";
}

TEST_F(MainWindowAllSetsTest, GridAndReportsAreOfAllSetsAndAPlanCountsOnce) {
    document().userDefaults().setInteger(CVDefaultsKeys::kPeriodType, 3);
    open();
    showTab(1);
    EXPECT_EQ(texts("mExpenseCategoryTable"), QStringList{"Food"});
    pickAllSets();
    EXPECT_EQ(texts("mExpenseCategoryTable"), (QStringList{"Fees", "Food"}));
    EXPECT_EQ(texts("mExpensePeriodTable").filter("$"), (QStringList{"$3.00", "$70.00"}));
    showTab(2);
    EXPECT_EQ(textOf("mNumberOfTransactionsField2"), "4");
    EXPECT_EQ(textOf("mTotalNumberOfTransactionsField2"), "4");
    EXPECT_EQ(texts("mAveragesTable").mid(7, 4), (QStringList{"Food", "$70.00", "Weekly", "3"}));
    find<QTabWidget>("mReportTabView")->setCurrentIndex(1);
    EXPECT_EQ(texts("mTotalTable").mid(5), (QStringList{"Food", "Monthly", "$100.00", "$0.00", "$100.00"}));
    pickFirstSet();
    EXPECT_EQ(textOf("mTotalNumberOfTransactionsField2"), "2");
}

TEST_F(MainWindowAllSetsTest, PaperSaysSoInItsHeading) {
    pickAllSets();
    mController->printTransactions(CVPrintWay::Print);
    mController->printSummary(CVPrintWay::Print);
    mController->printReport(CVPrintWay::Print);
    pickFirstSet();
    mController->printTransactions(CVPrintWay::Print);
    ASSERT_EQ(mPrintPanels.shown().size(), 4);
    const auto title = [this](int report) { return mPrintPanels.shown()[report].text.section('\n', 0, 0); };
    EXPECT_EQ(title(0), "Transaction Report for: 3/7/14  Total=$73.00 (All Sets)");
    EXPECT_EQ(title(1), "Summary Report for: 3/7/14 (All Sets)");
    EXPECT_EQ(title(2), "Category Averages Report for: 3/3/14 to 3/6/14 (All Sets)");
    EXPECT_EQ(title(3), "Transaction Report for: 3/7/14  Total=$50.00");
    EXPECT_TRUE(mPrintPanels.shown()[0].text.contains("Baker"));
    EXPECT_FALSE(mPrintPanels.shown()[3].text.contains("Baker"));
}

TEST_F(MainWindowAllSetsTest, WithoutTheSecondSetTheOneIsShownAgain) {
    pickAllSets();
    document().removeTransactionsForSet(kSavings);
    document().transactionSets().pop_back();
    mBudget.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet));
    EXPECT_FALSE(picker().isVisible());
    EXPECT_EQ(picker().count(), 1);
    EXPECT_EQ(payees(), (QStringList{"Market", "Butcher"}));
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window");
    EXPECT_FALSE(note().isVisible());
    EXPECT_EQ(table().model()->columnCount(), Column::ColumnCount);
    mBudget.set("Travel", 8);
    mController->getStarted();
    EXPECT_EQ(picker().currentText(), "Household") << "a later second set does not bring all sets back";
}

TEST_F(MainWindowAllSetsTest, ABudgetThatIsOnlyLookedAtShowsAllSetsToo) {
    mSaver.setReadOnly();
    open();
    pickAllSets();
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window (All Sets, Read-Only)");
    EXPECT_EQ(payees().size(), 4);
    EXPECT_FALSE(note().isVisible());
    pickFirstSet();
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window (Read-Only)");
}

} // namespace
