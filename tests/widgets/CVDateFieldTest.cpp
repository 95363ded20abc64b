#include "widgets/fields/CVDateField.h"

#include "kit/Day.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"
#include "widgets/CVPositionOfPopup.h"
#include "widgets/fields/CVFieldNote.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class CVDateFieldTest : public testing::Test {
protected:
    CVDateFieldTest() {
        QObject::connect(&mField, &CVDateField::dateEntered, &mField,
                         [this](const QBDate& date) { mEntered.append(date); });
        mField.show();
        mField.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mField));
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
    /// The days that the field has announced.
    QList<QBDate> mEntered;
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

TEST_F(CVDateFieldTest, AnnouncesADayThatWasTypedWhenEditingEnds) {
    mField.selectAll();
    QTest::keyClicks(&mField, "3/7");
    EXPECT_EQ(mEntered, QList<QBDate>());
    QTest::keyClick(&mField, Qt::Key_Return);
    EXPECT_EQ(mEntered, QList({day(2014, 3, 7)}));
    mField.endEditing();
    EXPECT_EQ(mEntered, QList({day(2014, 3, 7)})) << "nothing was typed since";
}

TEST_F(CVDateFieldTest, AnnouncesEveryStepOnce) {
    QTest::keyClick(&mField, Qt::Key_Up);
    QTest::keyClick(&mField, Qt::Key_Up);
    mField.selectAll();
    QTest::keyClicks(&mField, "1");
    QTest::keyClick(&mField, Qt::Key_Down);
    EXPECT_EQ(mEntered, QList({day(2014, 3, 13), day(2014, 3, 14), day(2014, 2, 28)}));
}

TEST_F(CVDateFieldTest, TheCalendarLiesOnTheScreenAndBeginsWhereTheFieldBegins) {
    const QRect screen = mField.screen()->availableGeometry();
    mField.setWindowFlag(Qt::FramelessWindowHint);
    mField.resize(90, mField.sizeHint().height());
    const int middle = screen.center().x();
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        mField.setLayoutDirection(direction);
        for (const int x : {screen.left(), middle, screen.right() - 89}) {
            for (const int y : {screen.top(), screen.bottom() - mField.height()}) {
                mField.move(x, y);
                mField.show();
                ASSERT_TRUE(QTest::qWaitForWindowExposed(&mField));
                mField.showCalendar();
                // The platform may shift the popup by the width of a frame.
                const QSize size = calendar()->window()->size();
                const QRect place(CVPositionOfPopup(mField, size), size);
                EXPECT_LT((place.topLeft() - calendar()->window()->pos()).manhattanLength(), 6);
                EXPECT_TRUE(screen.contains(place)) << direction << ' ' << x << ' ' << y;
                const QRect field(mField.mapToGlobal(QPoint()), mField.size());
                const bool mirrored = direction == Qt::RightToLeft;
                if (x == middle) {
                    EXPECT_EQ(mirrored ? place.right() : place.left(), mirrored ? field.right() : field.left());
                }
                delete calendar()->window();
            }
        }
    }
}

TEST_F(CVDateFieldTest, AnnouncesADayChosenFromTheCalendar) {
    mField.showCalendar();
    ASSERT_NE(calendar(), nullptr);
    emit calendar()->clicked(QDate(2014, 5, 1));
    EXPECT_EQ(mEntered, QList({day(2014, 5, 1)}));
    EXPECT_EQ(mField.text(), "5/1/14");
}

TEST_F(CVDateFieldTest, DoesNotAnnounceWhatTheUserDidNotEnter) {
    mField.setQBDateValue(day(2014, 1, 1));
    mField.endEditing();
    type("7x");
    type("");
    EXPECT_EQ(mEntered, QList<QBDate>());
    mField.setQBDateValue(day(2014, 2, 2));
    EXPECT_EQ(mEntered, QList<QBDate>());
}

TEST_F(CVDateFieldTest, AnnouncesTheSameDayWhenItWasTypedAgain) {
    mField.setQBDateValue(day(2014, 1, 1));
    type("1/1");
    EXPECT_EQ(mEntered, QList({day(2014, 1, 1)}));
    QTest::keyClick(&mField, Qt::Key_Return);
    mField.clearFocus();
    EXPECT_EQ(mEntered.size(), 1) << "once for what was typed once";
}

TEST_F(CVDateFieldTest, AReceiverMaySetAnotherDay) {
    QObject::connect(&mField, &CVDateField::dateEntered, &mField,
                     [this](const QBDate& date) { mField.setQBDateValue(date.dateByAddingYears(1, 0, 0)); });
    type("7");
    EXPECT_EQ(mEntered, QList({day(2014, 3, 7)}));
    EXPECT_EQ(mField.text(), "3/7/15");
}

TEST_F(CVDateFieldTest, RemarksAtOnceOnACharacterThatCanBeInNoDate) {
    const auto* const note = mField.findChild<CVFieldNote*>();
    mField.selectAll();
    QTest::keyClicks(&mField, "3/7-1. ,");
    EXPECT_FALSE(note->isVisible());
    QTest::keyClicks(&mField, "x");
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->text(), "Type a date like 3/12/14, with “/” between its parts.");
    EXPECT_EQ(mField.accessibleDescription(), note->text());
    EXPECT_EQ(mField.text(), "3/7-1. ,x") << "what was typed stays";
    QTest::keyClick(&mField, Qt::Key_Backspace);
    EXPECT_FALSE(note->isVisible());
    EXPECT_EQ(mField.accessibleDescription(), "");
}

TEST_F(CVDateFieldTest, ShowsTheSameDayInANewLocale) {
    type("3/7");
    mEntered.clear();
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    mField.localeChanged();
    EXPECT_EQ(mField.text(), "07.03.14");
    EXPECT_EQ(mField.QBDateValue(), day(2014, 3, 7));
    EXPECT_TRUE(mEntered.isEmpty());
    type("4.5.");
    EXPECT_EQ(mField.QBDateValue(), day(2014, 5, 4));
    type("x");
    EXPECT_EQ(mField.toolTip(), "Type a date like 12.03.14, with “.” between its parts.");
}

TEST_F(CVDateFieldTest, WhatWasTypedBeforeTheLocaleChangedIsReadInTheFormerOne) {
    mField.selectAll();
    QTest::keyClicks(&mField, "3/7");
    const DefaultLocale british(QLocale(QLocale::English, QLocale::UnitedKingdom));
    mField.localeChanged();
    EXPECT_EQ(mField.QBDateValue(), day(2014, 3, 7));
    EXPECT_EQ(mField.text(), "07/03/2014");
}

/// A date field whose focus can go to another field, another window or a menu.
class LeavingADateFieldTest : public testing::Test {
protected:
    LeavingADateFieldTest() {
        auto* const layout = new QHBoxLayout(&mWindow);
        layout->addWidget(mField);
        layout->addWidget(mOther);
        QObject::connect(mField, &CVDateField::leftUnreadable, mField, [this] { ++mLeft; });
        QObject::connect(mField, &CVDateField::dateEntered, mField,
                         [this](const QBDate& date) { mEntered.append(date); });
        mWindow.show();
        mWindow.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mWindow));
    }

    void type(const QString& text) {
        mField->setFocus();
        mField->selectAll();
        QTest::keyClick(mField, Qt::Key_Delete);
        QTest::keyClicks(mField, text);
    }

    FixedToday mToday{day(2014, 3, 12)};
    QWidget mWindow;
    CVDateField* mField = new CVDateField(&mWindow);
    QLineEdit* mOther = new QLineEdit(&mWindow);
    int mLeft = 0;
    QList<QBDate> mEntered;
};

TEST_F(LeavingADateFieldTest, AnnouncesADayThatWasTyped) {
    type("9");
    mOther->setFocus();
    EXPECT_EQ(mEntered, QList({day(2014, 3, 9)}));
    EXPECT_EQ(mLeft, 0);
}

TEST_F(LeavingADateFieldTest, TellsThatAnUnreadableTextWasLeftBehindHoweverTheUserWentOn) {
    for (const char* const text : {"7x", "", "2/30"}) {
        mLeft = 0;
        type(text);
        QTest::keyClick(mField, Qt::Key_Tab);
        EXPECT_EQ(mLeft, 1) << text;
        EXPECT_FALSE(mField->isReadable());
        mField->setFocus();
        QTest::mouseClick(mOther, Qt::LeftButton);
        EXPECT_EQ(mLeft, 2) << text << " is still there";
    }
}

TEST_F(LeavingADateFieldTest, SaysNothingWhenAnotherWindowOrAMenuGetsTheKeyboard) {
    type("7x");
    for (const Qt::FocusReason reason :
         {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::NoFocusReason}) {
        mField->setFocus();
        mOther->setFocus(reason);
        EXPECT_EQ(mLeft, 0) << reason;
    }
    mField->setFocus();
    mWindow.close();
    EXPECT_EQ(mLeft, 0);
}

} // namespace
