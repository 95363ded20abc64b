#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "kit/DefaultLocale.h"
#include "kit/NotificationCounter.h"
#include "workspace/CVDocumentWindows.h"
#include "workspace/CVMainMenu.h"
#include "workspace/MainWindowFixture.h"

#include <QFile>
#include <QMenu>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>

namespace {

/// Records the windows that it is asked to show.
class RecordingWindows final : public CVDocumentWindows {
public:
    void createCategoryEditController() override { ++mCategoryEditors; }
    void createTransactionSetController() override { ++mSetEditors; }
    void createTransactionController(const CVTransactions& transactions) override { mCells.push_back(transactions); }
    void createPreferenceController() override { ++mPreferences; }
    [[nodiscard]] const std::vector<CVTransactions>& cells() const { return mCells; }
    [[nodiscard]] int categoryEditors() const { return mCategoryEditors; }
    [[nodiscard]] int setEditors() const { return mSetEditors; }
    [[nodiscard]] int preferences() const { return mPreferences; }

private:
    std::vector<CVTransactions> mCells;
    int mCategoryEditors = 0;
    int mSetEditors = 0;
    int mPreferences = 0;
};

class MainWindowCommandsTest : public MainWindowFixture {
protected:
    MainWindowCommandsTest() {
        mBudget.category("Food", 1, CVExpenseFrequency::kMonthly, 50).category("Fuel", 2);
        for (const int dayOfMonth : {5, 5, 4})
            mBudget.transaction({.date = day(2014, 3, dayOfMonth),
                                 .amount = 12.5,
                                 .payTo = "Market",
                                 .category = "Food",
                                 .taxFlag = true});
        mBudget.inOrder();
    }

    [[nodiscard]] QAction& command(const QString& text) const {
        for (QAction* const action : window().findChildren<QAction*>()) {
            if (action->text().remove('&') == text && action->associatedObjects().size() > 0)
                return *action;
        }
        ADD_FAILURE() << text.toStdString();
        return *window().findChildren<QAction*>().constFirst();
    }

    [[nodiscard]] QTabWidget& tabs() const { return *find<QTabWidget>("mMainTabView"); }
    [[nodiscard]] int stored(const char* key) { return mBudget.userDefaults().integerForKey(key); }
};

TEST_F(MainWindowCommandsTest, WithoutSavedStateItOpensOnTheFirstOfEverything) {
    open();
    EXPECT_EQ(tabs().currentIndex(), 0);
    EXPECT_EQ(find<QTabWidget>("mReportTabView")->currentIndex(), 0);
    EXPECT_EQ(textOf("mExpensePeriod"), "Daily");
    EXPECT_EQ(textOf("mSetTransactionDateRange"), "All");
    EXPECT_EQ(textOf("mSetReportDateRange"), "All");
}

TEST_F(MainWindowCommandsTest, ViewStateIsRestoredAndRestoringWritesNothing) {
    QBUserDefaults& defaults = mBudget.userDefaults();
    defaults.setInteger(CVDefaultsKeys::kPeriodType, 3);
    defaults.setInteger(CVDefaultsKeys::kDisplayTab, 2);
    defaults.setInteger(CVDefaultsKeys::kReportTab, 1);
    defaults.setInteger(CVDefaultsKeys::kTransactionPeriod, 5);
    defaults.setInteger(CVDefaultsKeys::kReportPeriod, 3);
    open();
    EXPECT_EQ(tabs().currentIndex(), 2);
    EXPECT_EQ(find<QTabWidget>("mReportTabView")->currentIndex(), 1);
    EXPECT_EQ(textOf("mExpensePeriod"), "Monthly");
    EXPECT_EQ(textOf("mSetTransactionDateRange"), "This Month");
    EXPECT_EQ(textOf("mSetReportDateRange"), "This Year");
    EXPECT_EQ(find<QTableView>("mTotalTable")->model()->rowCount(), 1) << "the shown tab is filled";
    EXPECT_EQ(stored(CVDefaultsKeys::kDisplayTab), 2);
}

TEST_F(MainWindowCommandsTest, StateThatNoWindowHasCountsAsTheFirst) {
    mBudget.userDefaults().setInteger(CVDefaultsKeys::kDisplayTab, 77);
    mBudget.userDefaults().setInteger(CVDefaultsKeys::kReportTab, -1);
    mBudget.userDefaults().setInteger(CVDefaultsKeys::kPeriodType, 9);
    mBudget.userDefaults().setInteger(CVDefaultsKeys::kTransactionPeriod, 99);
    open();
    EXPECT_EQ(tabs().currentIndex(), 0);
    EXPECT_EQ(find<QTabWidget>("mReportTabView")->currentIndex(), 0);
    EXPECT_EQ(textOf("mExpensePeriod"), "Daily");
    EXPECT_EQ(textOf("mSetTransactionDateRange"), "All");
}

TEST_F(MainWindowCommandsTest, ChoosingATabIsRemembered) {
    open();
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(tabs().currentIndex(), 1);
    EXPECT_EQ(stored(CVDefaultsKeys::kDisplayTab), 1);
    press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(stored(CVDefaultsKeys::kDisplayTab), 2);
    find<QTabWidget>("mReportTabView")->setCurrentIndex(3);
    EXPECT_EQ(stored(CVDefaultsKeys::kReportTab), 3);
    press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(stored(CVDefaultsKeys::kDisplayTab), 0);
}

TEST_F(MainWindowCommandsTest, TheBudgetMenuLeadsToThePlanFromAnyTab) {
    open();
    for (const int tab : {0, 1, 2}) {
        tabs().setCurrentIndex(tab);
        find<QTabWidget>("mReportTabView")->setCurrentIndex(3);
        press(Qt::Key_B, Qt::AltModifier);
        QWidget* const menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, Qt::Key_P);
        EXPECT_EQ(tabs().currentIndex(), 2);
        EXPECT_EQ(stored(CVDefaultsKeys::kDisplayTab), 2);
        EXPECT_EQ(stored(CVDefaultsKeys::kReportTab), 1);
        EXPECT_EQ(QApplication::focusWidget(), find<QTableView>("mTotalTable"));
        EXPECT_EQ(find<QTableView>("mTotalTable")->model()->rowCount(), 1);
    }
}

TEST_F(MainWindowCommandsTest, CommandsThatCannotActAreGreyedOut) {
    open();
    EXPECT_FALSE(command("Next Period").isEnabled());
    EXPECT_FALSE(command("Remove Transactions").isEnabled());
    EXPECT_TRUE(command("Export Transactions…").isEnabled());
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_TRUE(command("Next Period").isEnabled());
    type("mSearchField103", "nothing like it");
    EXPECT_FALSE(command("Export Transactions…").isEnabled());
}

TEST_F(MainWindowCommandsTest, PeriodsAreTurnedFromTheKeyboardAndComeBackToToday) {
    open();
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(textOf("mExpenseDisplayRangeField"), "3/2/14 thru 3/8/14");
    tabs().setFocus();
    press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(textOf("mExpenseDisplayRangeField"), "3/9/14 thru 3/15/14");
    press(Qt::Key_Left, Qt::ControlModifier);
    press(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(textOf("mExpenseDisplayRangeField"), "2/23/14 thru 3/1/14");
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(textOf("mExpenseDisplayRangeField"), "3/2/14 thru 3/8/14");
}

TEST_F(MainWindowCommandsTest, ACellOfTheGridOpensTheTransactionsBehindItAndAnEmptyOneNothing) {
    open();
    RecordingWindows windows;
    mController->setDocumentWindows(&windows);
    press(Qt::Key_2, Qt::ControlModifier);
    auto* const grid = find<QTableView>("mExpensePeriodTable");
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(0, 3));
    press(Qt::Key_Return);
    ASSERT_EQ(windows.cells().size(), 1U);
    EXPECT_EQ(windows.cells()[0].size(), 2U);
    grid->setCurrentIndex(grid->model()->index(0, 0));
    press(Qt::Key_Return);
    EXPECT_EQ(windows.cells().size(), 1U);
}

TEST_F(MainWindowCommandsTest, TheEditorsOpenFromTheMenuAndItsShortcuts) {
    open();
    EXPECT_FALSE(command("Edit Categories…").isEnabled()) << "nobody is there to open it";
    EXPECT_FALSE(command("Transaction Sets…").isEnabled());
    RecordingWindows windows;
    mController->setDocumentWindows(&windows);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(windows.categoryEditors(), 1);
    EXPECT_EQ(windows.setEditors(), 0);
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(windows.setEditors(), 1);
    command("Edit Categories…").trigger();
    EXPECT_EQ(windows.categoryEditors(), 2);
}

TEST_F(MainWindowCommandsTest, APlanIsConvertedToItsNewFrequencyAndSaved) {
    open();
    press(Qt::Key_3, Qt::ControlModifier);
    find<QTabWidget>("mReportTabView")->setCurrentIndex(1);
    auto* const totals = find<QTableView>("mTotalTable");
    QAbstractItemModel& model = *totals->model();
    ASSERT_EQ(model.rowCount(), 1);
    ASSERT_TRUE(model.setData(model.index(0, 1), int(CVExpenseFrequency::kAnnually)));
    EXPECT_EQ(mBudget.categoryNamed("Food")->expenseFrequency(), CVExpenseFrequency::kAnnually);
    EXPECT_EQ(mBudget.categoryNamed("Food")->expenseTarget(), 600.0);
    ASSERT_TRUE(model.setData(model.index(0, 2), 700.0));
    EXPECT_EQ(mBudget.categoryNamed("Food")->expenseTarget(), 700.0);
    EXPECT_EQ(mSaver.count(), 2);
}

TEST_F(MainWindowCommandsTest, TheReportsFollowARecordedTransactionAtOnce) {
    open();
    press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(textOf("mNumberOfTransactionsField2"), "3");
    document().insertTransaction(makeTransaction({.date = day(2014, 3, 6), .amount = 1, .categoryID = 1}));
    mController->getStarted();
    EXPECT_EQ(textOf("mNumberOfTransactionsField2"), "4");
    EXPECT_EQ(textOf("mTotalNumberOfTransactionsField2"), "4");
}

TEST_F(MainWindowCommandsTest, DuplicatesAreSelectedAndNothingElse) {
    open();
    press(Qt::Key_2, Qt::ControlModifier);
    press(Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(tabs().currentIndex(), 0);
    ASSERT_EQ(table().selectedTransactions().size(), 1U);
    EXPECT_EQ(table().selectedTransactions()[0], mBudget.transactionAt(1));
    EXPECT_TRUE(table().hasFocus());
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(MainWindowCommandsTest, WithoutAVisibleDuplicateAnAlertSaysSo) {
    open();
    type("mSearchField103", "nothing like it");
    press(Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "No duplicate transactions found");
    EXPECT_EQ(mAlerts.shown()[0].message, "");
    EXPECT_EQ(mAlerts.shown()[0].defaultButton, "OK");
    EXPECT_EQ(mAlerts.shown()[0].alternateButton, "");
}

TEST_F(MainWindowCommandsTest, TheListIsExportedAsItIsShown) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.txt");
    open();
    mPanels.answer(path);
    press(Qt::Key_E, Qt::ControlModifier);
    ASSERT_EQ(mPanels.asked().size(), 1);
    EXPECT_EQ(mPanels.asked()[0].prompt, "Export");
    EXPECT_EQ(mPanels.asked()[0].proposedName, "Corvella Data Export");
    EXPECT_EQ(mPanels.asked()[0].kinds[0].suffix, "txt");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "3/5/14\t$12.50\tX\tMarket\t\tFood\n3/5/14\t$12.50\tX\tMarket\t\tFood\n"
                              "3/4/14\t$12.50\tX\tMarket\t\tFood\n");
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(MainWindowCommandsTest, AnExportThatFailsSaysSoAndACancelledOneDoesNothing) {
    open();
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    mPanels.answer("/nonexistent/out.txt");
    press(Qt::Key_E, Qt::ControlModifier);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_TRUE(mAlerts.shown()[0].message.contains("/nonexistent/out.txt"));
}

TEST_F(MainWindowCommandsTest, AnotherLocaleShowsAtOnceAndIsAnnounced) {
    open();
    NotificationCounter notifications(mBudget.notificationCenter());
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    QEvent change(QEvent::LocaleChange);
    QCoreApplication::sendEvent(qApp, &change);
    EXPECT_EQ(notifications.count(CVNotifications::kMoneyFormatterChanged), 1);
    EXPECT_EQ(column(Column::Date).constFirst(), "05.03.14");
    EXPECT_TRUE(column(Column::Amount).constFirst().contains("12,50"));
    EXPECT_TRUE(textOf("mTotalAmountField").contains("37,50"));
    EXPECT_TRUE(textOf("mExpenseAmountField").contains("0,00"));
}

TEST_F(MainWindowCommandsTest, DetectingDuplicatesIsOfferedByTheMenuWithAltAloneAndByItsShortcutAlways) {
    open();
    auto& menu = static_cast<QMenu&>(*command("Find").associatedObjects().constFirst());
    menu.popup(QPoint());
    EXPECT_FALSE(command("Detect Duplicates").isVisible());
    menu.close();
    press(Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(table().selectedTransactions().size(), 1U);
}

TEST_F(MainWindowCommandsTest, PreferencesOpenWhereThereAreSome) {
    open();
    EXPECT_FALSE(command("Preferences…").isEnabled());
    RecordingWindows windows;
    mController->setDocumentWindows(&windows);
    press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(windows.preferences(), 1);
}

TEST_F(MainWindowCommandsTest, WhatConcernsTheApplicationIsPassedOnToIt) {
    open();
    QList<CVCommand> chosen;
    QObject::connect(mController.get(), &CVMainWindowController::applicationCommandChosen, &window(),
                     [&chosen](CVCommand command) { chosen.append(command); });
    for (const char* const text : {"Contact Support", "Web Site", "Support Forums", "Check for New Version…"})
        command(text).trigger();
    EXPECT_EQ(chosen, (QList{CVCommand::ContactSupport, CVCommand::WebSite, CVCommand::SupportForums,
                             CVCommand::CheckForNewVersion}));
}

} // namespace
