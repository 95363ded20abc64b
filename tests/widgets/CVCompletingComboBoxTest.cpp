#include "widgets/fields/CVCompletingComboBox.h"

#include "kit/Printers.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class CVCompletingComboBoxTest : public testing::Test {
protected:
    CVCompletingComboBoxTest() {
        mBox.setItems({"Car", "Growth", "Groceries", "Medical"});
        mBox.show();
        mBox.setFocus();
    }

    void type(const QString& text) { QTest::keyClicks(mBox.lineEdit(), text); }
    void press(Qt::Key key) { QTest::keyClick(mBox.lineEdit(), key); }
    [[nodiscard]] QString selected() const { return mBox.lineEdit()->selectedText(); }

    CVCompletingComboBox mBox;
};

TEST_F(CVCompletingComboBoxTest, ShowsTheRestSelectedWhileTyping) {
    type("g");
    EXPECT_EQ(mBox.currentText(), "Growth");
    EXPECT_EQ(selected(), "rowth");
    type("roc");
    EXPECT_EQ(mBox.currentText(), "Groceries");
    EXPECT_EQ(selected(), "eries");
}

TEST_F(CVCompletingComboBoxTest, BringsTheTypedLettersBackWhenNothingFitsAnyMore) {
    type("grow up");
    EXPECT_EQ(mBox.currentText(), "grow up");
    EXPECT_EQ(selected(), "");
}

TEST_F(CVCompletingComboBoxTest, BackspaceRefusesTheRest) {
    type("med");
    press(Qt::Key_Backspace);
    EXPECT_EQ(mBox.currentText(), "med");
    press(Qt::Key_Backspace);
    EXPECT_EQ(mBox.currentText(), "me");
    type("d");
    EXPECT_EQ(mBox.currentText(), "Medical");
}

TEST_F(CVCompletingComboBoxTest, TakesTheSpellingOfTheItemAlsoWhenAllOfItIsTyped) {
    type("medical");
    EXPECT_EQ(mBox.currentText(), "Medical");
    type(" ");
    EXPECT_EQ(mBox.currentText(), "medical ");
    press(Qt::Key_Backspace);
    EXPECT_EQ(mBox.currentText(), "medical");
}

TEST_F(CVCompletingComboBoxTest, DoesNotCompleteInTheMiddleOfAText) {
    type("xed");
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    type("m");
    EXPECT_EQ(mBox.currentText(), "med");
}

TEST_F(CVCompletingComboBoxTest, NewItemsLeaveTheTextAlone) {
    type("gro");
    mBox.setItems({"Other"});
    EXPECT_EQ(mBox.currentText(), "Growth");
    EXPECT_EQ(mBox.count(), 1);
    mBox.setItems({});
    EXPECT_EQ(mBox.currentText(), "Growth");
    EXPECT_EQ(mBox.count(), 0);
}

TEST_F(CVCompletingComboBoxTest, RecordedTextsAreNotAddedToTheList) {
    type("new");
    press(Qt::Key_Return);
    EXPECT_EQ(mBox.count(), 4);
    EXPECT_EQ(mBox.currentText(), "new");
}

TEST_F(CVCompletingComboBoxTest, DownChoosesFromTheList) {
    press(Qt::Key_Down);
    EXPECT_EQ(mBox.currentText(), "Car");
    press(Qt::Key_Down);
    EXPECT_EQ(mBox.currentText(), "Growth");
}

TEST_F(CVCompletingComboBoxTest, TabAndReturnAcceptTheRest) {
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter}) {
        mBox.lineEdit()->selectAll();
        type("gro");
        press(key);
        EXPECT_EQ(mBox.currentText(), "Growth") << key;
    }
}

TEST_F(CVCompletingComboBoxTest, TypingReplacesTheTextOfABoxThatTheProgramLedTo) {
    mBox.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&mBox));
    mBox.clearFocus();
    mBox.setEditText("Car");
    mBox.setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(selected(), "Car");
}

} // namespace
