#include "shared/widgets/CVDateField.h"

#include "kit/Day.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class CVDateFieldTest : public testing::Test {
protected:
    CVDateFieldTest() {
        mField.show();
        mField.setFocus();
    }

    void type(const QString& text) {
        mField.selectAll();
        QTest::keyClicks(&mField, text);
        QTest::keyClick(&mField, Qt::Key_Return);
    }

    [[nodiscard]] QCalendarWidget* calendar() const { return mField.findChild<QCalendarWidget*>(); }

    FixedToday mToday{day(2014, 3, 12)};
    CVDateField mField;
};

TEST_F(CVDateFieldTest, HoldsTodayAtFirst) {
    EXPECT_EQ(mField.QBDateValue(), day(2014, 3, 12));
    EXPECT_EQ(mField.text(), "3/12/14");
}

TEST_F(CVDateFieldTest, ReadsAShortDateAndShowsItInFull) {
    type("7");
    EXPECT_EQ(mField.QBDateValue(), day(2014, 3, 7));
    EXPECT_EQ(mField.text(), "3/7/14");
    type("4/1");
    EXPECT_EQ(mField.text(), "4/1/14");
}

TEST_F(CVDateFieldTest, UpAndDownStepADay) {
    QTest::keyClick(&mField, Qt::Key_Up);
    EXPECT_EQ(mField.text(), "3/13/14");
    type("1");
    QTest::keyClick(&mField, Qt::Key_Down);
    EXPECT_EQ(mField.QBDateValue(), day(2014, 2, 28));
}

TEST_F(CVDateFieldTest, MarksATextItCannotReadAndKeepsTheLastDay) {
    type("7x");
    EXPECT_FALSE(mField.isReadable());
    EXPECT_FALSE(mField.isBlank());
    EXPECT_EQ(mField.text(), "7x");
    EXPECT_EQ(mField.QBDateValue(), day(2014, 3, 12));
    EXPECT_EQ(mField.toolTip(), "Type a date like 3/12/14, with “/” between its parts.");
    EXPECT_EQ(mField.accessibleDescription(), mField.toolTip());
    type("7");
    EXPECT_TRUE(mField.isReadable());
    EXPECT_EQ(mField.toolTip(), "");
}

TEST_F(CVDateFieldTest, AnEmptyTextIsBlankAndNoDate) {
    mField.selectAll();
    QTest::keyClick(&mField, Qt::Key_Backspace);
    mField.endEditing();
    EXPECT_TRUE(mField.isBlank());
    EXPECT_FALSE(mField.isReadable());
}

TEST_F(CVDateFieldTest, ShowingADayNeverChangesIt) {
    for (const QBDate& date : {day(1850, 1, 2), day(12014, 3, 7), day(-44, 3, 15)}) {
        mField.setQBDateValue(date);
        mField.endEditing();
        EXPECT_EQ(mField.QBDateValue(), date);
        EXPECT_TRUE(mField.isReadable());
    }
}

TEST_F(CVDateFieldTest, ADayIsChosenFromTheCalendarWithoutTheMouse) {
    QTest::keyClick(&mField, Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(calendar(), nullptr);
    EXPECT_EQ(calendar()->selectedDate(), QDate(2014, 3, 12));
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : calendar(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : calendar(), Qt::Key_Return);
    EXPECT_EQ(mField.QBDateValue(), day(2014, 3, 13));
    EXPECT_TRUE(QTest::qWaitFor([this] { return calendar() == nullptr; })) << "the calendar stays open";
}

TEST_F(CVDateFieldTest, TheCalendarOpensFromItsButton) {
    mField.actions().constLast()->trigger();
    EXPECT_NE(calendar(), nullptr);
}

} // namespace
