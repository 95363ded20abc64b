#include "base/CVNotifications.h"
#include "workspace/MainWindowFixture.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>

namespace {

class MainWindowStateTest : public MainWindowFixture {
protected:
    [[nodiscard]] QComboBox& picker() const { return *find<QComboBox>("mTransactionSet"); }

    void twoSets() {
        mBudget.set("Checking", 4).set("Savings", 5).currentSet(4);
        mBudget.transaction({.payTo = "from checking", .set = "Checking"})
            .transaction({.payTo = "from savings", .set = "Savings"});
    }

    void reopen() {
        window().close();
        mController.reset();
        open();
    }
};

TEST_F(MainWindowStateTest, TheTitleIsAlwaysTheSame) {
    open();
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window");
}

TEST_F(MainWindowStateTest, StartsAtTheDateOfTodayWithNothingEntered) {
    open();
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mExpenseDate");
    EXPECT_EQ(textOf("mExpenseDate"), "3/7/14");
    EXPECT_EQ(textOf("mExpenseAmountField"), "$0.00");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "");
}

TEST_F(MainWindowStateTest, EveryControlSaysItsNameToAScreenReader) {
    open();
    const std::pair<const char*, const char*> names[] = {
        {"mExpenseDate", "Date"},
        {"mExpenseAmountField", "Amount"},
        {"mExpenseToFromComboBox", "Paid To/From"},
        {"mForField", "For"},
        {"mExpenseCategoryComboBox", "Category"},
        {"mTaxCheckbox", "Tax"},
        {"mRecordButton", "Record"},
        {"mTransactionSet", "Transaction Set"},
        {"mTransactionTable", "Transactions"},
        {"mRemoveTransactionButton", "Remove"},
        {"mNumberOfTransactionsField1", "Transactions Shown"},
        {"mTotalNumberOfTransactionsField1", "Transactions Total"},
        {"mTotalAmountShownField", "Amount Shown"},
        {"mTotalAmountField", "Amount Total"},
    };
    for (const auto& [object, name] : names)
        EXPECT_EQ(find<QWidget>(object)->accessibleName(), name);
}

TEST_F(MainWindowStateTest, ThePopUpOfSetsIsThereWhileThereIsAChoice) {
    mBudget.set("Checking", 4);
    open();
    EXPECT_FALSE(picker().isVisible());
    mBudget.set("Savings", 5);
    mBudget.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet));
    EXPECT_TRUE(picker().isVisible());
    EXPECT_EQ(picker().count(), 4) << "with a separator and all sets";
    document().transactionSets().pop_back();
    mController->getStarted();
    EXPECT_FALSE(picker().isVisible());
}

TEST_F(MainWindowStateTest, PickingASetMakesItTheCurrentOneSavesAndListsIt) {
    twoSets();
    open();
    EXPECT_EQ(picker().currentText(), "Checking");
    EXPECT_EQ(column(Column::ToFrom), QStringList({"from checking"}));
    EXPECT_EQ(mSaver.count(), 0);
    picker().setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(document().currentTransactionSet(), 5U);
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(picker().currentText(), "Savings");
    EXPECT_EQ(column(Column::ToFrom), QStringList({"from savings"}));
}

TEST_F(MainWindowStateTest, AChangeOfTheCategoriesShowsInTheBoxAndTheList) {
    mBudget.category("Food", 1).transaction({.categoryID = 1});
    open();
    EXPECT_EQ(find<QComboBox>("mExpenseCategoryComboBox")->count(), 1);
    mBudget.categoryNamed("Food")->setCategoryName("Groceries");
    EXPECT_EQ(find<QComboBox>("mExpenseCategoryComboBox")->itemText(0), "Groceries");
    EXPECT_EQ(column(Column::Category), QStringList({"Groceries"}));
    document().removeCategory(mBudget.categoryNamed("Groceries"));
    EXPECT_EQ(find<QComboBox>("mExpenseCategoryComboBox")->count(), 0);
    EXPECT_EQ(column(Column::Category), QStringList({""}));
}

TEST_F(MainWindowStateTest, TheWindowComesBackAsItWasLeft) {
    open();
    window().setGeometry(20, 30, 700, 420);
    table().setColumnWidth(Column::Amount, 201);
    reopen();
    EXPECT_EQ(window().geometry(), QRect(20, 30, 700, 420));
    EXPECT_EQ(table().columnWidth(Column::Amount), 201);
    EXPECT_EQ(table().columnWidth(Column::Date), table().horizontalHeader()->sectionSize(Column::Date));
    EXPECT_FALSE(mBudget.userDefaults().dataForKey("CVMainWindowController").isEmpty());
}

TEST_F(MainWindowStateTest, AWindowThatWasLeftOffTheScreenComesBackOntoIt) {
    open();
    window().move(20000, 20000);
    reopen();
    EXPECT_TRUE(window().screen()->availableGeometry().contains(window().geometry().center()));
}

TEST_F(MainWindowStateTest, DamagedWindowStateIsIgnored) {
    mBudget.userDefaults().setData("CVMainWindowController", "nonsense");
    mBudget.userDefaults().setData("CVMainWindowController Columns", "nonsense");
    open();
    EXPECT_GT(window().width(), 300);
    EXPECT_GT(table().columnWidth(Column::Amount), 30);
}

TEST_F(MainWindowStateTest, TheWindowStaysOpenWhenItMayNotClose) {
    open();
    bool mayClose = false;
    mController->setMayClose([&] { return mayClose; });
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(window().isVisible());
    mayClose = true;
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(MainWindowStateTest, TheStatusLineSaysWhatBecameOfSaving) {
    open();
    CVSaveStatus& status = mController->saveStatus();
    QSignalSpy tryAgain(&status, &CVSaveStatus::tryAgain);
    const auto* const text = find<QLabel>("mSaveStatusText");
    auto* const button = find<QPushButton>("mTryAgainButton");
    EXPECT_EQ(text->text(), "") << "there may be no file";
    EXPECT_FALSE(button->isVisible());
    status.setSaving();
    EXPECT_EQ(text->text(), "Saving…");
    status.setFailed("the disk is full. Your last saved file is whole.");
    EXPECT_EQ(text->text(), "Not saved: the disk is full. Your last saved file is whole.");
    EXPECT_TRUE(text->font().bold());
    EXPECT_TRUE(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(tryAgain.size(), 1);
    status.setSaving();
    EXPECT_EQ(text->text(), "Saving…");
    status.setFailed("the disk is full. Your last saved file is whole.");
    EXPECT_EQ(text->text(), "Saving…") << "the user sees that something was tried";
    ASSERT_TRUE(QTest::qWaitFor([&] { return text->text() != "Saving…"; }));
    EXPECT_EQ(text->text(), "Not saved: the disk is full. Your last saved file is whole.");
    EXPECT_TRUE(button->hasFocus()) << "the next attempt is one key away";
    status.setSaved();
    EXPECT_EQ(text->text(), "All changes saved");
    EXPECT_FALSE(text->font().bold());
    EXPECT_FALSE(button->isVisible());
}

TEST_F(MainWindowStateTest, AFailureOffersToMakeRoomWhereThatHelps) {
    open();
    CVSaveStatus& status = mController->saveStatus();
    QSignalSpy makeRoom(&status, &CVSaveStatus::makeRoom);
    auto* const button = find<QPushButton>("mMakeRoomButton");
    status.setFailed("the folder is read-only.");
    EXPECT_FALSE(button->isVisible());
    status.setFailed("the disk is full.", CVSaveStatus::MakeRoom::Yes);
    EXPECT_TRUE(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(makeRoom.size(), 1);
    status.setSaving();
    EXPECT_TRUE(button->isVisible()) << "the focus stays during the attempt";
    status.setSaved();
    EXPECT_FALSE(button->isVisible());
}

TEST_F(MainWindowStateTest, AnAttemptThatSucceedsIsShownAtOnceAndAFormerFailureDoesNotComeBack) {
    open();
    CVSaveStatus& status = mController->saveStatus();
    auto* const button = find<QPushButton>("mTryAgainButton");
    status.setFailed("the disk is full.");
    button->click();
    status.setFailed("the disk is full.");
    status.setSaved();
    EXPECT_EQ(find<QLabel>("mSaveStatusText")->text(), "All changes saved");
    QTimer& attempt = *status.findChild<QTimer*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !attempt.isActive(); }));
    EXPECT_EQ(find<QLabel>("mSaveStatusText")->text(), "All changes saved");
}

} // namespace
