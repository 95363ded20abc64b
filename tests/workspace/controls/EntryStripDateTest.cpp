#include "workspace/controls/EntryStripFixture.h"

#include <QMessageBox>
#include <QTimer>

#include <functional>
#include <utility>

namespace {

const char* const kBadDate = "“7x” in the field “Date” is not a date. Type a date like 3/12/14, with “/” between its "
                             "parts.";
const char* const kBlankDate = "The field “Date” is blank. Type a date like 3/12/14, with “/” between its parts.";

using EntryStripDateTest = EntryStripFixture;

TEST_F(EntryStripDateTest, LeavingABadOrBlankDateIsRefusedOnceAndLeadsBackToIt) {
    struct {
        const char* typed;
        const char* title;
        const char* message;
    } const rows[] = {{"7x", "The date cannot be read", kBadDate}, {"", "The date is missing", kBlankDate}};
    for (const auto& row : rows) {
        mProblems.clear();
        mTitles.clear();
        typeDate(row.typed);
        press(Qt::Key_Tab);
        settle();
        EXPECT_EQ(mProblems, QStringList({row.message}));
        EXPECT_EQ(mTitles, QStringList({row.title}));
        EXPECT_EQ(focused(), "mExpenseDate");
        EXPECT_EQ(date().text(), row.typed);
        EXPECT_EQ(date().selectedText(), row.typed);
        EXPECT_EQ(mRecorded, 0);
    }
}

TEST_F(EntryStripDateTest, LeavingABadDateWithTheMouseIsRefusedToo) {
    typeDate("7x");
    QTest::mouseClick(mOther, Qt::LeftButton);
    settle();
    EXPECT_EQ(mProblems, QStringList({kBadDate}));
    EXPECT_EQ(focused(), "mExpenseDate");
}

TEST_F(EntryStripDateTest, RecordingWithABadDateIsRefusedOnceHoweverItIsAsked) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Return", [] { press(Qt::Key_Return); }},
        {"the button", [this] { QTest::mouseClick(&recordButton(), Qt::LeftButton); }},
        {"a slow click",
         [this] {
             QTest::mousePress(&recordButton(), Qt::LeftButton);
             settle();
             QTest::mouseRelease(&recordButton(), Qt::LeftButton);
         }},
        {"the button's letter", [] { press(Qt::Key_R, Qt::AltModifier); }},
    };
    for (const auto& [name, way] : ways) {
        mProblems.clear();
        mRecorded = 0;
        typeDate("7x");
        way();
        settle();
        EXPECT_EQ(mRecorded, 1) << name;
        EXPECT_EQ(mProblems, QStringList({kBadDate})) << name;
        EXPECT_EQ(focused(), "mExpenseDate") << name;
    }
}

TEST_F(EntryStripDateTest, AnAlertThatLetsOtherEventsRunIsFollowedByNoSecondOne) {
    mShowAlert = [this] {
        QMessageBox alert(&mWindow);
        QTimer::singleShot(200, &alert, &QDialog::reject);
        alert.exec();
        // The tests activate the window, as a window manager would.
        mWindow.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mWindow));
    };
    const std::function<void()> ways[] = {[] { press(Qt::Key_Tab); }, [] { press(Qt::Key_Return); },
                                          [this] { QTest::mouseClick(&recordButton(), Qt::LeftButton); }};
    for (const auto& way : ways) {
        mProblems.clear();
        typeDate("7x");
        way();
        QTest::qWait(500);
        EXPECT_EQ(mProblems, QStringList({kBadDate}));
        EXPECT_EQ(focused(), "mExpenseDate");
        EXPECT_EQ(date().selectedText(), "7x");
    }
}

TEST_F(EntryStripDateTest, AClickOnTheButtonThatIsTakenBackLeavesTheDateRefused) {
    typeDate("7x");
    QTest::mousePress(&recordButton(), Qt::LeftButton);
    settle();
    EXPECT_EQ(mProblems, QStringList()) << "in the middle of a click";
    QTest::mouseRelease(&recordButton(), Qt::LeftButton, {}, QPoint(-50, -50));
    settle();
    EXPECT_EQ(mRecorded, 0);
    EXPECT_EQ(mProblems, QStringList({kBadDate}));
}

TEST_F(EntryStripDateTest, ADateThatWasPutRightIsNotRefused) {
    typeDate("7x");
    press(Qt::Key_Tab);
    settle();
    mProblems.clear();
    QTest::keyClicks(QApplication::focusWidget(), "7");
    press(Qt::Key_Tab);
    settle();
    EXPECT_EQ(mProblems, QStringList());
    EXPECT_EQ(focused(), "mExpenseAmountField");
    EXPECT_EQ(mStrip->entry().date, day(2014, 3, 7));
}

TEST_F(EntryStripDateTest, AnotherWindowAMenuAndTheEndOfTheWindowAreReachedWithABadDate) {
    typeDate("7x");
    QWidget elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
    settle();
    EXPECT_EQ(mProblems, QStringList()) << "another window";

    mWindow.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&mWindow));
    ASSERT_EQ(focused(), "mExpenseDate");
    mMenuBar->setActiveAction(mMenuBar->actions().constFirst());
    settle();
    EXPECT_EQ(mProblems, QStringList()) << "a menu";
    QTest::keyClick(mMenuBar->actions().constFirst()->menu(), Qt::Key_Escape);

    mStrip->focusField(CVEntryField::Date);
    EXPECT_TRUE(mWindow.close());
    settle();
    EXPECT_EQ(mProblems, QStringList()) << "the window is closed";
    EXPECT_EQ(mRecorded, 0);
}

TEST_F(EntryStripDateTest, AWindowThatClosesWhileTheRefusalIsOnItsWayClosesInPeace) {
    typeDate("7x");
    press(Qt::Key_Tab);
    mWindow.close();
    settle();
    EXPECT_EQ(mProblems, QStringList());
}

} // namespace
