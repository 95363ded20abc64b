#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "kit/NotificationCounter.h"
#include "workspace/MainWindowFixture.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QPushButton>

namespace {

class MainWindowRecordTest : public MainWindowFixture {
protected:
    MainWindowRecordTest() {
        mBudget.category("Car", 1).category("Groceries", 2).category("Growth", 3).lastID(3);
        mBudget.userDefaults().setInteger(CVDefaultsKeys::kNumberOfItems, 10);
    }

    void SetUp() override { open(); }

    [[nodiscard]] const CVTransactions& recorded() { return document().transactions(); }

    void expectRefusal(const char* message, const char* title = "Input Error") {
        ASSERT_EQ(mAlerts.shown().size(), 1);
        EXPECT_EQ(mAlerts.shown()[0].title, title);
        EXPECT_EQ(mAlerts.shown()[0].message, message);
        EXPECT_EQ(mAlerts.shown()[0].defaultButton, "OK");
        EXPECT_EQ(mAlerts.shown()[0].alternateButton, "");
        EXPECT_TRUE(recorded().empty());
        EXPECT_EQ(mSaver.count(), 0);
    }
};

TEST_F(MainWindowRecordTest, TheTabKeyLeadsThroughTheFieldsInOrder) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mExpenseDate");
    QStringList names;
    for (int i = 0; i < 7; ++i) {
        names.append(QApplication::focusWidget()->objectName());
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(names, QStringList({"mExpenseDate", "mExpenseAmountField", "mExpenseToFromComboBox", "mForField",
                                  "mExpenseCategoryComboBox", "mTaxCheckbox", "mRecordButton"}));
    for (const char* const name : {"qt_tabwidget_tabbar", "mSetTransactionDateRange", "mTransactionStartDate",
                                   "mTransactionEndDate", "mSearchField103", "mTransactionTable"}) {
        EXPECT_EQ(QApplication::focusWidget()->objectName(), name);
        press(Qt::Key_Tab);
    }
}

TEST_F(MainWindowRecordTest, RecordsWhatWasTypedWithoutTheMouse) {
    NotificationCounter notifications(mBudget.notificationCenter());
    type("5");
    press(Qt::Key_Tab);
    type("12.5");
    press(Qt::Key_Tab);
    type("Market");
    press(Qt::Key_Tab);
    type("bread");
    press(Qt::Key_Tab);
    type("gro");
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    press(Qt::Key_Return);

    ASSERT_EQ(recorded().size(), 1U);
    const CVTransaction& transaction = *recorded().front();
    EXPECT_EQ(transaction.effectiveDate(), day(2014, 3, 5));
    EXPECT_EQ(transaction.amount(), 12.5);
    EXPECT_EQ(transaction.payTo(), "Market");
    EXPECT_EQ(transaction.xfor(), "bread");
    EXPECT_EQ(transaction.categoryID(), 2U) << "the first category that begins with \"gro\"";
    EXPECT_TRUE(transaction.taxFlag());
    EXPECT_FALSE(transaction.userFlag());
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(notifications.count(CVNotifications::kCategoryAddedRemoved), 0);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    EXPECT_EQ(column(Column::ToFrom), QStringList({"Market"}));
}

TEST_F(MainWindowRecordTest, ReturnInAnyFieldRecordsOnce) {
    std::size_t expected = 0;
    for (const char* const field : {"mExpenseDate", "mExpenseAmountField", "mExpenseToFromComboBox", "mForField",
                                    "mExpenseCategoryComboBox", "mTaxCheckbox", "mRecordButton"}) {
        for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
            fillIn("1", "Market", "Car");
            focus(field);
            press(key);
            EXPECT_EQ(recorded().size(), ++expected) << field;
        }
    }
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(MainWindowRecordTest, TheButtonAndTheShortcutRecordFromAnywhere) {
    fillIn("1", "Market", "Car");
    QTest::mouseClick(find<QPushButton>("mRecordButton"), Qt::LeftButton);
    EXPECT_EQ(recorded().size(), 1U);
    fillIn("2", "Market", "Car");
    table().setFocus();
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(recorded().size(), 2U);
    fillIn("3", "Market", "Car");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(recorded().size(), 3U);
}

TEST_F(MainWindowRecordTest, ADoubleClickOnTheButtonRecordsOnce) {
    fillIn("5", "Market", "Groceries");
    auto* const button = find<QPushButton>("mRecordButton");
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseDClick(button, Qt::LeftButton);
    QTest::mouseRelease(button, Qt::LeftButton);
    EXPECT_EQ(recorded().size(), 1U);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mExpenseAmountField") << "as after one click";
    fillIn("6", "Market", "Groceries");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(recorded().size(), 2U);
}

TEST_F(MainWindowRecordTest, ChoosingFromTheListOfABoxDoesNotRecord) {
    fillIn("1", "Market", "");
    auto* const box = find<QComboBox>("mExpenseCategoryComboBox");
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_GE(box->currentIndex(), 0);
    EXPECT_TRUE(recorded().empty());
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(MainWindowRecordTest, ATextOfAnyLengthIsRecordedWhole) {
    const QString text = QString(40'000, 'x') + "end";
    type("mExpenseAmountField", "5");
    QGuiApplication::clipboard()->setText(text);
    for (const char* const name : {"mExpenseToFromComboBox", "mForField", "mExpenseCategoryComboBox"}) {
        focus(name);
        press(Qt::Key_V, Qt::ControlModifier);
    }
    press(Qt::Key_Return);
    ASSERT_EQ(recorded().size(), 1U);
    EXPECT_EQ(recorded()[0]->payTo(), text);
    EXPECT_EQ(recorded()[0]->xfor(), text);
    EXPECT_EQ(recorded()[0]->categoryName(), text);
}

TEST_F(MainWindowRecordTest, RefusesAnAmountThatIsTooSmallFirst) {
    for (const char* const amount : {"0.009", "-5", "0", ""}) {
        mAlerts = ScriptedAlerts();
        fillIn(amount, "", "");
        press(Qt::Key_Return);
        expectRefusal("Transaction amounts must be greater than 0.00");
    }
    fillIn("0.01", "Market", "Car");
    press(Qt::Key_Return);
    EXPECT_EQ(recorded().size(), 1U);
}

TEST_F(MainWindowRecordTest, RefusesAnEntryWithoutRecipientAndLeavesTheFieldsAsTheyAre) {
    fillIn("3", "", "Car");
    press(Qt::Key_Return);
    expectRefusal("You must specify the recipient");
    EXPECT_EQ(textOf("mExpenseAmountField"), "$3.00");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Car");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mExpenseToFromComboBox");
}

TEST_F(MainWindowRecordTest, RefusesAnEntryWithoutCategory) {
    fillIn("3", "Market", "");
    press(Qt::Key_Return);
    expectRefusal("You must select a category");
}

TEST_F(MainWindowRecordTest, RefusesADateThatCannotBeReadBeforeAnythingElse) {
    fillIn("0", "", "");
    type("mExpenseDate", "7x");
    press(Qt::Key_Return);
    expectRefusal("“7x” in the field “Date” is not a date. Type a date like 3/7/14, with “/” between its parts.",
                  "The date cannot be read");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mExpenseDate");
    EXPECT_EQ(textOf("mExpenseDate"), "7x");
}

TEST_F(MainWindowRecordTest, RefusesABlankDate) {
    fillIn("1", "Market", "Car");
    type("mExpenseDate", "");
    press(Qt::Key_Return);
    expectRefusal("The field “Date” is blank. Type a date like 3/7/14, with “/” between its parts.",
                  "The date is missing");
}

TEST_F(MainWindowRecordTest, SaysOnceThatADateCannotBeReadWhenItIsLeft) {
    type("mExpenseDate", "13/45");
    press(Qt::Key_Tab);
    QCoreApplication::processEvents();
    expectRefusal("“13/45” in the field “Date” is not a date. Type a date like 3/7/14, with “/” between its parts.",
                  "The date cannot be read");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mExpenseDate");
}

TEST_F(MainWindowRecordTest, NeverTakesAnUnreadableAmountForANumber) {
    fillIn("12", "Market", "Car");
    type("mExpenseAmountField", "12x");
    press(Qt::Key_Return);
    expectRefusal("“12x” in the field “Amount” is not an amount. Type an amount like $1,234.50.");
}

TEST_F(MainWindowRecordTest, ACategoryThatDiffersByABlankIsANewOne) {
    fillIn("1", "Market", "Groceries ");
    press(Qt::Key_Return);
    ASSERT_EQ(recorded().size(), 1U);
    EXPECT_EQ(recorded()[0]->categoryName(), "Groceries ");
    EXPECT_EQ(document().countOfCategories(), 4U);
    EXPECT_EQ(find<QComboBox>("mExpenseCategoryComboBox")->count(), 4);
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Groceries ");
}

TEST_F(MainWindowRecordTest, EverythingButTheAmountStays) {
    fillIn("1", "Market", "Car");
    type("mForField", "tyres");
    find<QCheckBox>("mTaxCheckbox")->setChecked(true);
    type("mExpenseDate", "3/1");
    press(Qt::Key_Return);
    EXPECT_EQ(textOf("mExpenseAmountField"), "$0.00");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Market");
    EXPECT_EQ(textOf("mForField"), "tyres");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Car");
    EXPECT_TRUE(find<QCheckBox>("mTaxCheckbox")->isChecked());
    EXPECT_EQ(textOf("mExpenseDate"), "3/1/14");
}

TEST_F(MainWindowRecordTest, ClearsAllButTheDateWhenTheUserPrefersThat) {
    mBudget.userDefaults().setBool(CVDefaultsKeys::kClearFields, true);
    fillIn("1", "Market", "Car");
    type("mForField", "tyres");
    find<QCheckBox>("mTaxCheckbox")->setChecked(true);
    type("mExpenseDate", "3/1");
    press(Qt::Key_Return);
    ASSERT_EQ(recorded().size(), 1U);
    EXPECT_EQ(textOf("mExpenseAmountField"), "$0.00");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "");
    EXPECT_EQ(textOf("mForField"), "");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "");
    EXPECT_FALSE(find<QCheckBox>("mTaxCheckbox")->isChecked());
    EXPECT_EQ(textOf("mExpenseDate"), "3/1/14");
}

TEST_F(MainWindowRecordTest, TheNextEntryBeginsAtTheSelectedAmount) {
    fillIn("1", "Market", "Car");
    press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mExpenseAmountField");
    type("2");
    press(Qt::Key_Return);
    ASSERT_EQ(recorded().size(), 2U);
    EXPECT_EQ(recorded()[0]->amount() + recorded()[1]->amount(), 3.0);
}

TEST_F(MainWindowRecordTest, RecordedPayeesAreOfferedForCompletion) {
    fillIn("1", "Market", "Car");
    press(Qt::Key_Return);
    type("mExpenseToFromComboBox", "ma");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Market");
}

TEST_F(MainWindowRecordTest, ATransactionGoesIntoTheCurrentSet) {
    mBudget.set("Checking", 8).set("Savings", 9).currentSet(9);
    fillIn("1", "Market", "Car");
    press(Qt::Key_Return);
    ASSERT_EQ(recorded().size(), 1U);
    EXPECT_EQ(recorded()[0]->transactionSetID(), 9U);
    EXPECT_EQ(column(Column::ToFrom), QStringList({"Market"}));
}

TEST_F(MainWindowRecordTest, TheNewRowIsVisibleInALongListAndTintedForAMoment) {
    for (int i = 0; i < 500; ++i)
        mBudget.transaction({.date = day(2013, 1, 1), .payTo = "Old"});
    mBudget.inOrder();
    mController->getStarted();
    type("mExpenseDate", "1/1/12");
    fillIn("1", "Market", "Car");
    press(Qt::Key_Return);
    const int row = static_cast<int>(column(Column::ToFrom).indexOf("Market"));
    ASSERT_EQ(row, 500);
    const QRect cell = table().visualRect(table().model()->index(row, Column::For));
    EXPECT_TRUE(table().viewport()->rect().contains(cell));

    const auto colour = [&] {
        return table().viewport()->grab(QRect(cell.center(), QSize(1, 1))).toImage().pixel(0, 0);
    };
    const QRgb tinted = colour();
    EXPECT_TRUE(QTest::qWaitFor([&] { return colour() != tinted; }, 4000)) << "the tint was not there or stays";
}

} // namespace
