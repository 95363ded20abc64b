#include "workspace/MainWindowFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QTabWidget>

namespace {

/// Counts the letters that reach what it watches.
class KeyCounter final : public QObject {
public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() != Qt::Key_Control)
            ++mKeys;
        return false;
    }
    [[nodiscard]] int keys() const { return mKeys; }

private:
    int mKeys = 0;
};

class MainWindowRecordAgainTest : public MainWindowFixture {
protected:
    MainWindowRecordAgainTest() {
        mBudget.category("Car", 1).category("Groceries", 2).lastID(2);
        mBudget
            .transaction({.date = day(2014, 2, 2),
                          .amount = 12.5,
                          .payTo = "Market",
                          .xfor = "bread",
                          .category = "Groceries",
                          .taxFlag = true,
                          .userFlag = true})
            .transaction({.date = day(2014, 1, 1), .amount = 40, .payTo = "Garage", .category = "Car"})
            .inOrder();
    }

    void SetUp() override {
        open();
        table().setFocus();
        table().selectRow(0);
    }

    /// Selects that row alone.
    void select(int row) const {
        table().clearSelection();
        table().selectRow(row);
    }

    static void recordAgain() { press(Qt::Key_D, Qt::ControlModifier); }

    [[nodiscard]] QAction& action() const {
        for (QAction* const action : window().findChildren<QAction*>()) {
            if (action->text().remove('&') == "Record Again")
                return *action;
        }
        ADD_FAILURE();
        return *window().findChildren<QAction*>().constFirst();
    }
};

TEST_F(MainWindowRecordAgainTest, PutsTheSelectedLineIntoTheStripWithTodaysDate) {
    recordAgain();
    EXPECT_EQ(textOf("mExpenseDate"), "3/7/14");
    EXPECT_EQ(textOf("mExpenseAmountField"), "$12.50");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Market");
    EXPECT_EQ(textOf("mForField"), "bread");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Groceries");
    EXPECT_TRUE(find<QCheckBox>("mTaxCheckbox")->isChecked());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mExpenseAmountField");
    EXPECT_EQ(find<QLineEdit>("mExpenseAmountField")->selectedText(), "$12.50");
    EXPECT_EQ(document().transactions().size(), 2U) << "nothing is recorded yet";
    EXPECT_EQ(mSaver.count(), 0);
    press(Qt::Key_Return);
    ASSERT_EQ(document().transactions().size(), 3U);
    const CVTransaction& recorded = *document().transactions().front();
    EXPECT_EQ(recorded.effectiveDate(), day(2014, 3, 7));
    EXPECT_EQ(recorded.amount(), 12.5);
    EXPECT_TRUE(recorded.taxFlag());
    EXPECT_FALSE(recorded.userFlag());
}

TEST_F(MainWindowRecordAgainTest, WhatIsEnteredAndNotRecordedIsReplacedOnlyIfTheUserSaysSo) {
    fillIn("3", "Kiosk", "Car");
    mAlerts.answer({CVAlert::kAlternate, CVAlert::kDefault});
    recordAgain();
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "Replace what you have entered?");
    EXPECT_EQ(mAlerts.shown()[0].defaultButton, "Replace");
    EXPECT_EQ(mAlerts.shown()[0].alternateButton, "Cancel");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Kiosk");
    EXPECT_EQ(textOf("mExpenseAmountField"), "$3.00");
    recordAgain();
    EXPECT_EQ(mAlerts.shown().size(), 2);
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Market");
}

TEST_F(MainWindowRecordAgainTest, WhatRecordingLeftInTheStripIsReplacedWithoutAQuestion) {
    fillIn("3", "Kiosk", "Car");
    press(Qt::Key_Return);
    select(2);
    recordAgain();
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Garage");
    select(1);
    recordAgain();
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Market") << "nothing was entered in between";
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(MainWindowRecordAgainTest, NeedsExactlyOneSelectedLineOfTheShownList) {
    EXPECT_TRUE(action().isEnabled());
    table().selectAll();
    EXPECT_FALSE(action().isEnabled());
    table().clearSelection();
    EXPECT_FALSE(action().isEnabled());
    table().selectRow(1);
    EXPECT_TRUE(action().isEnabled());
    find<QTabWidget>("mMainTabView")->setCurrentIndex(1);
    EXPECT_FALSE(action().isEnabled());
}

TEST_F(MainWindowRecordAgainTest, WhileItIsDisabledItsKeyReachesNoFieldWhereItWouldDelete) {
    table().clearSelection();
    focus("mForField");
    KeyCounter counter;
    find<QWidget>("mForField")->installEventFilter(&counter);
    recordAgain();
    EXPECT_EQ(counter.keys(), 0);
    press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(counter.keys(), 1) << "a key of no command";
}

TEST_F(MainWindowRecordAgainTest, IsDisabledInABudgetThatIsOnlyLookedAt) {
    mSaver.setReadOnly();
    mController->reloadAllTables();
    EXPECT_FALSE(action().isEnabled());
}

TEST_F(MainWindowRecordAgainTest, ALineWithoutCategoryLeavesThatFieldEmpty) {
    document().removeCategory(mBudget.categoryNamed("Groceries"));
    recordAgain();
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Market");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "");
}

} // namespace
