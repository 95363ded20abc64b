#include "shared/widgets/CVMoneyField.h"

#include "kit/Printers.h"

#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

class CVMoneyFieldTest : public testing::Test {
protected:
    CVMoneyFieldTest() {
        auto* const layout = new QVBoxLayout(&mWindow);
        layout->addWidget(mOther);
        layout->addWidget(mField);
        mWindow.show();
        mWindow.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mWindow));
        mOther->setFocus();
    }

    void type(const QString& text) {
        mField->selectAll();
        QTest::keyClicks(mField, text);
        QTest::keyClick(mField, Qt::Key_Return);
    }

    QWidget mWindow;
    QLineEdit* mOther = new QLineEdit(&mWindow);
    CVMoneyField* mField = new CVMoneyField(&mWindow);
};

TEST_F(CVMoneyFieldTest, HoldsZeroAtFirst) {
    EXPECT_EQ(mField->doubleValue(), 0.0);
    EXPECT_EQ(mField->text(), "$0.00");
}

TEST_F(CVMoneyFieldTest, SelectsItselfWhenItGetsTheFocus) {
    QTest::keyClick(mOther, Qt::Key_Tab);
    ASSERT_TRUE(mField->hasFocus());
    EXPECT_EQ(mField->selectedText(), "$0.00");
    mOther->setFocus();
    mField->deselect();
    QTest::mouseClick(mField, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(mField->selectedText(), "$0.00");
}

TEST_F(CVMoneyFieldTest, ShowsWhatWasTypedAsMoneyAndKeepsItExactly) {
    type("1234.5");
    EXPECT_EQ(mField->text(), "$1,234.50");
    type("0.009");
    EXPECT_EQ(mField->text(), "$0.01");
    EXPECT_EQ(mField->doubleValue(), 0.009);
    mField->endEditing();
    EXPECT_EQ(mField->doubleValue(), 0.009);
}

TEST_F(CVMoneyFieldTest, ATextThatIsNoAmountIsMarkedAndNeverTakenForZero) {
    type("12");
    type("12x");
    EXPECT_FALSE(mField->isReadable());
    EXPECT_EQ(mField->text(), "12x");
    EXPECT_EQ(mField->doubleValue(), 12.0);
    EXPECT_EQ(mField->toolTip(), "Type an amount like $1,234.50.");
    mField->setDoubleValue(5);
    EXPECT_TRUE(mField->isReadable());
}

TEST_F(CVMoneyFieldTest, AnEmptyTextIsZero) {
    type("12");
    mField->selectAll();
    QTest::keyClick(mField, Qt::Key_Delete);
    mField->endEditing();
    EXPECT_TRUE(mField->isReadable());
    EXPECT_EQ(mField->doubleValue(), 0.0);
    mField->setDoubleValue(3);
    mField->clearValue();
    EXPECT_EQ(mField->text(), "");
    EXPECT_EQ(mField->doubleValue(), 0.0);
}

} // namespace
