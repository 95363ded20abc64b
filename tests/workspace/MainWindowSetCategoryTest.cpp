#include "base/CVNotifications.h"
#include "kit/NotificationCounter.h"
#include "workspace/CVMainMenu.h"
#include "workspace/MainWindowFixture.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

namespace {

class MainWindowSetCategoryTest : public MainWindowFixture {
protected:
    MainWindowSetCategoryTest() {
        mBudget.category("Car", 1).category("Groceries", 2).lastID(2);
        for (int i = 1; i <= 4; ++i)
            mBudget.transaction({.date = day(2014, 3, i),
                                 .amount = i * 1.0,
                                 .payTo = QString::number(i),
                                 .category = i == 1 ? "Car" : "Groceries"});
        mBudget.inOrder();
    }

    void SetUp() override {
        open();
        table().setFocus();
    }

    void selectRows(int first, int count) const {
        table().setFocus();
        table().selectRow(first);
        for (int i = 1; i < count; ++i)
            press(Qt::Key_Down, Qt::ShiftModifier);
    }

    void choose() {
        ASSERT_TRUE(action().isEnabled());
        action().trigger();
        ASSERT_NE(dialog(), nullptr);
        activate(*dialog());
    }

    /// Gives a window the keyboard, which is the window manager's part.
    static void activate(QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }));
    }

    /// Presses the key that closes the window.
    void close(Qt::Key key) {
        press(key);
        EXPECT_EQ(dialog(), nullptr);
        activate(window());
    }

    [[nodiscard]] QAction& action() const {
        for (QAction* const action : window().findChildren<QAction*>()) {
            if (action->text().remove('&') == "Set Category…")
                return *action;
        }
        ADD_FAILURE();
        return *window().findChildren<QAction*>().constFirst();
    }

    [[nodiscard]] static QDialog* dialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

    void set(const QString& name) {
        choose();
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        type(name);
        close(Qt::Key_Return);
    }
};

TEST_F(MainWindowSetCategoryTest, GivesTheSelectedLinesOneCategoryWithOneSave) {
    NotificationCounter notifications(mBudget.notificationCenter());
    selectRows(0, 2);
    set("ca");
    EXPECT_EQ(column(Column::Category), QStringList({"Car", "Car", "Groceries", "Car"})) << "completed as in the strip";
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kCategoryAddedRemoved), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(find<QLabel>("mRemark")->text(), "2 transactions now have the category “Car”");
    EXPECT_EQ(table().selectedTransactions().size(), 2U);
    EXPECT_TRUE(table().hasFocus());
    selectRows(3, 1);
    set("Groceries");
    EXPECT_EQ(find<QLabel>("mRemark")->text(), "1 transaction now has the category “Groceries”");
}

TEST_F(MainWindowSetCategoryTest, AskedWithTheCategoryThatAllOfThemHave) {
    selectRows(0, 3);
    choose();
    auto* const box = dialog()->findChild<QComboBox*>();
    EXPECT_EQ(box->currentText(), "Groceries");
    EXPECT_EQ(box->lineEdit()->selectedText(), "Groceries");
    EXPECT_EQ(dialog()->windowTitle(), "Set Category");
    close(Qt::Key_Escape);
    selectRows(0, 4);
    choose();
    EXPECT_EQ(dialog()->findChild<QComboBox*>()->currentText(), "") << "they differ";
    press(Qt::Key_Return);
    EXPECT_NE(dialog(), nullptr) << "a category is needed";
    close(Qt::Key_Escape);
    EXPECT_EQ(mSaver.count(), 0);
    EXPECT_FALSE(find<QLabel>("mRemark")->isVisible());
}

TEST_F(MainWindowSetCategoryTest, ANewNameIsNotedAndMakesACategory) {
    selectRows(0, 1);
    choose();
    type("Boat");
    EXPECT_EQ(dialog()->findChild<QLabel*>("mNewCategoryNote")->text(), "new category");
    close(Qt::Key_Return);
    EXPECT_EQ(column(Column::Category).constFirst(), "Boat");
    EXPECT_EQ(document().countOfCategories(), 3U);
    EXPECT_GE(find<QComboBox>("mExpenseCategoryComboBox")->findText("Boat"), 0) << "the strip offers it at once";
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(MainWindowSetCategoryTest, LinesThatNoLongerMatchTheSearchStayInSightAsAfterAChangeOfACell) {
    type("mSearchField103", "Groceries");
    ASSERT_EQ(table().model()->rowCount(), 3);
    selectRows(0, 2);
    set("Car");
    EXPECT_EQ(column(Column::Category), QStringList({"Car", "Car", "Groceries"}));
}

TEST_F(MainWindowSetCategoryTest, TheListIsSortedAnewWhereItIsSortedByCategory) {
    clickHeader(Column::Category);
    const QStringList before = column(Column::Category);
    ASSERT_EQ(before, QStringList({"Car", "Groceries", "Groceries", "Groceries"}));
    selectRows(3, 1);
    set("Boat");
    EXPECT_EQ(column(Column::Category), QStringList({"Boat", "Car", "Groceries", "Groceries"}));
}

TEST_F(MainWindowSetCategoryTest, ACategoryThatAllHaveAlreadySavesNothing) {
    selectRows(0, 2);
    set("Groceries");
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(MainWindowSetCategoryTest, NeedsASelectionInABudgetThatCanBeChanged) {
    EXPECT_FALSE(action().isEnabled());
    selectRows(0, 1);
    EXPECT_TRUE(action().isEnabled());
    EXPECT_TRUE(table().actions().contains(&action())) << "also in the menu of the list";
    mSaver.setReadOnly();
    mController->reloadAllTables();
    EXPECT_FALSE(action().isEnabled());
}

} // namespace
