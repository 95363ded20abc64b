#include "base/CVNotifications.h"
#include "kit/NotificationCounter.h"
#include "workspace/MainWindowFixture.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QLabel>
#include <QPushButton>

namespace {

/// Changes the budget while an alert is shown.
class MeddlingAlerts final : public CVAlerts {
public:
    explicit MeddlingAlerts(std::function<void()> meddle) : mMeddle(std::move(meddle)) {}
    CVAlert::Answer run(QWidget* /*window*/, const CVAlert& /*alert*/) override {
        mMeddle();
        return CVAlert::kDefault;
    }

private:
    std::function<void()> mMeddle;
};

class MainWindowRemoveTest : public MainWindowFixture {
protected:
    void SetUp() override {
        for (int i = 1; i <= 4; ++i)
            mBudget.transaction({.date = day(2014, 3, i), .amount = i * 1.0, .payTo = QString::number(i)});
        mBudget.inOrder();
        open();
    }

    void selectRows(int first, int count) const {
        table().setFocus();
        table().selectRow(first);
        for (int i = 1; i < count; ++i)
            press(Qt::Key_Down, Qt::ShiftModifier);
    }

    [[nodiscard]] QPushButton& removeButton() const { return *find<QPushButton>("mRemoveTransactionButton"); }
};

TEST_F(MainWindowRemoveTest, AsksBeforeItRemovesAndKeepsEverythingOnCancel) {
    mAlerts.answer({CVAlert::kAlternate});
    selectRows(1, 2);
    press(Qt::Key_Delete);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "Are you sure you want to delete the selected transaction(s)?");
    EXPECT_EQ(mAlerts.shown()[0].message, "This action is not reversible.");
    EXPECT_EQ(mAlerts.shown()[0].defaultButton, "Delete");
    EXPECT_EQ(mAlerts.shown()[0].alternateButton, "Cancel");
    EXPECT_EQ(mAlerts.shown()[0].otherButton, "");
    EXPECT_EQ(document().transactions().size(), 4U);
    EXPECT_EQ(mSaver.count(), 0);
    EXPECT_EQ(table().selectedTransactions().size(), 2U);
}

TEST_F(MainWindowRemoveTest, RemovesTheSelectedTransactionsAtOnceAndSaves) {
    NotificationCounter notifications(mBudget.notificationCenter());
    selectRows(1, 2);
    press(Qt::Key_Delete);
    EXPECT_EQ(column(Column::ToFrom), QStringList({"4", "1"}));
    EXPECT_EQ(document().transactions().size(), 2U);
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(textOf("mNumberOfTransactionsField1"), "2");
    EXPECT_EQ(textOf("mTotalAmountField"), "$5.00");
    EXPECT_TRUE(table().selectedTransactions().empty());
    EXPECT_FALSE(removeButton().isEnabled());
}

TEST_F(MainWindowRemoveTest, SaysHowManyWereRemovedUntilSomethingElseIsSaid) {
    const auto* const remark = find<QLabel>("mRemark");
    EXPECT_FALSE(remark->isVisible());
    selectRows(1, 3);
    press(Qt::Key_Delete);
    EXPECT_TRUE(remark->isVisible());
    EXPECT_EQ(remark->text(), "3 transactions removed");
    mController->saveStatus().setSaving();
    mController->saveStatus().setSaved();
    EXPECT_TRUE(remark->isVisible());
    selectRows(0, 1);
    press(Qt::Key_Delete);
    EXPECT_EQ(remark->text(), "1 transaction removed");
    mController->saveStatus().setFailed("the disk is full.");
    EXPECT_FALSE(remark->isVisible());
}

TEST_F(MainWindowRemoveTest, TheNumberOfTheRemovedIsWrittenAsTheLocaleDoes) {
    for (int i = 0; i < 1200; ++i)
        mBudget.transaction({.date = day(2014, 3, 1), .amount = 1, .payTo = "Market"});
    mBudget.inOrder();
    mController->getStarted();
    table().setFocus();
    table().selectAll();
    press(Qt::Key_Delete);
    EXPECT_EQ(find<QLabel>("mRemark")->text(), "1,204 transactions removed");
}

TEST_F(MainWindowRemoveTest, TheArrowKeysGoOnWhereTheRemovedRowWas) {
    selectRows(1, 1);
    press(Qt::Key_Delete);
    EXPECT_EQ(table().currentIndex().row(), 1);
    press(Qt::Key_Down);
    EXPECT_EQ(table().currentIndex().row(), 2);
}

TEST_F(MainWindowRemoveTest, TheButtonIsEnabledWhileSomethingIsSelected) {
    EXPECT_FALSE(removeButton().isEnabled());
    selectRows(0, 1);
    EXPECT_TRUE(removeButton().isEnabled());
    QTest::mouseClick(&removeButton(), Qt::LeftButton);
    EXPECT_EQ(document().transactions().size(), 3U);
    EXPECT_FALSE(removeButton().isEnabled());
}

TEST_F(MainWindowRemoveTest, WithoutASelectionNothingIsAsked) {
    table().setFocus();
    press(Qt::Key_Delete);
    mController->removeTransaction();
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    EXPECT_EQ(document().transactions().size(), 4U);
}

TEST_F(MainWindowRemoveTest, DeleteKeepsItsMeaningInATextField) {
    table().selectAll();
    type("mForField", "x");
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    EXPECT_EQ(textOf("mForField"), "");
    press(Qt::Key_Delete);
    focus("mTaxCheckbox");
    press(Qt::Key_Delete);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    EXPECT_EQ(document().transactions().size(), 4U);
}

TEST_F(MainWindowRemoveTest, RemovesWhatWasSelectedWhenAskedWhateverHappensMeanwhile) {
    MeddlingAlerts alerts([this] {
        document().removeTransaction(mBudget.transactionAt(3));
        mController->getStarted();
        table().selectRow(2);
    });
    mController = std::make_unique<CVMainWindowController>(document(), alerts, mPanels);
    mController->showWindow();
    table().selectRow(0);
    mController->removeTransaction();
    EXPECT_EQ(column(Column::ToFrom), QStringList({"3", "2"}));
}

TEST_F(MainWindowRemoveTest, RemovingTheLastTransactionLeavesAnEmptyList) {
    table().selectAll();
    mController->removeTransaction();
    EXPECT_TRUE(document().transactions().empty());
    EXPECT_EQ(table().model()->rowCount(), 0);
    EXPECT_EQ(textOf("mTotalAmountField"), "$0.00");
}

} // namespace
