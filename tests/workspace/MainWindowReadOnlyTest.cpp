#include "MainWindowFixture.h"
#include "workspace/budgettabs/CVReportsTab.h"
#include "workspace/controls/CVReadOnlyNotice.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>

namespace {

/// The window of a budget that is only looked at.
class MainWindowReadOnly : public MainWindowFixture {
protected:
    MainWindowReadOnly() {
        mSaver.setReadOnly();
        mBudget.category("Food", 1).lastID(2);
        mBudget.transaction({.date = day(2014, 3, 6), .amount = 12, .payTo = "Market", .categoryID = 1});
        mBudget.inOrder();
    }

    /// Every alert must have been given the window of its asker.
    void TearDown() override {
        EXPECT_EQ(mAlerts.owners(), QStringList(mAlerts.shown().size(), "Corvella Main Window (Read-Only)"));
    }

    void openWindow() {
        mController = std::make_unique<CVMainWindowController>(document(), mAlerts, mPanels);
        mController->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
        ASSERT_EQ(table().model()->rowCount(), 1);
    }
};

TEST_F(MainWindowReadOnly, ShowsWhyInPlaceOfTheEntryStripAndGivesTheListTheFocus) {
    openWindow();
    EXPECT_EQ(find<QLabel>("mReadOnlyText")->text(), "Read-only: this budget cannot be changed here.");
    mController->showReadOnly("Because.");
    EXPECT_EQ(find<QLabel>("mReadOnlyText")->text(), "Because.");
    EXPECT_TRUE(find<QLabel>("mReadOnlyText")->isVisible());
    EXPECT_FALSE(find<QWidget>("mRecordButton")->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &table());
}

TEST_F(MainWindowReadOnly, AskingToEditIsAnnounced) {
    openWindow();
    const QSignalSpy asked(mController.get(), &CVMainWindowController::editingRequested);
    QTest::mouseClick(find<QPushButton>("mEditAgainButton"), Qt::LeftButton);
    EXPECT_EQ(asked.size(), 1);
}

TEST_F(MainWindowReadOnly, NoCellTakesATextOrAClick) {
    openWindow();
    for (int column = 0; column < table().model()->columnCount(); ++column) {
        const QModelIndex cell = table().model()->index(0, column);
        EXPECT_FALSE(table().model()->setData(cell, "x", Qt::EditRole)) << column;
        EXPECT_FALSE(table().model()->setData(cell, {}, Qt::CheckStateRole)) << column;
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, table().visualRect(cell).center());
    }
    EXPECT_FALSE(mBudget.transactionAt(0)->taxFlag());
    EXPECT_FALSE(mBudget.transactionAt(0)->userFlag());
    EXPECT_EQ(mBudget.transactionAt(0)->payTo(), "Market");
    EXPECT_EQ(mSaver.count(), 0);
    EXPECT_FALSE(table().findChild<QLineEdit*>()) << "no editor is open";
}

TEST_F(MainWindowReadOnly, NoPlanTakesAText) {
    openWindow();
    find<QTabWidget>("mMainTabView")->setCurrentIndex(2);
    int cells = 0;
    for (const QTableView* const report : window().findChildren<QTableView*>()) {
        if (report == &table())
            continue;
        QAbstractItemModel& model = *report->model();
        for (int column = 0; model.rowCount() > 0 && column < model.columnCount(); ++column, ++cells) {
            EXPECT_FALSE(model.index(0, column).flags() & Qt::ItemIsEditable);
            EXPECT_FALSE(model.setData(model.index(0, column), 5));
        }
    }
    EXPECT_GT(cells, 0);
    EXPECT_EQ(document().categories().front()->expenseTarget(), 0);
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(MainWindowReadOnly, TheShortcutsOfWhatIsDisabledDoNothing) {
    openWindow();
    table().selectAll();
    press(Qt::Key_Delete);
    press(Qt::Key_Return, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    // With only disabled shortcuts for a key the toolkit waits for a second key, which the next test must not give.
    press(Qt::Key_Escape);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    EXPECT_EQ(document().transactions().size(), 1U);
}

} // namespace
