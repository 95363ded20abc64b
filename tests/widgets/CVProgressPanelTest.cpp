#include "widgets/CVProgressPanel.h"

#include "kit/ProgressDelay.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct ProgressPanel : testing::Test {
    const ProgressDelay delay = ProgressDelay::none();
    QWidget window;
    CVProgressPanel progress{"Printing", 1000, &window};
};

TEST_F(ProgressPanel, AppearsWithTheFirstStepBehindItsDelay) {
    EXPECT_FALSE(progress.isVisible());
    EXPECT_TRUE(progress.stepsDone(1, "At work…"));
    EXPECT_TRUE(progress.isVisible());
    EXPECT_EQ(progress.labelText(), "At work…");
    EXPECT_EQ(progress.value(), 1);
    EXPECT_TRUE(progress.isModal());
}

TEST(ProgressPanelOfQuickWork, NeverAppears) {
    const ProgressDelay delay = ProgressDelay::forEver();
    QWidget window;
    CVProgressPanel progress("Printing", 1000, &window);
    EXPECT_TRUE(progress.stepsDone(1, "At work…"));
    EXPECT_TRUE(progress.stepsDone(1000, "At work…"));
    EXPECT_FALSE(progress.isVisible());
}

/// A busy machine can delay the panel, but never make it appear earlier.
TEST(ProgressPanelOfLongWork, AppearsAfterHalfASecond) {
    EXPECT_EQ(kCVProgressDelay, 500);
    QWidget window;
    CVProgressPanel progress("Printing", 1000, &window);
    QTest::qSleep(kCVProgressDelay + 1);
    EXPECT_TRUE(progress.stepsDone(1, "At work…"));
    EXPECT_TRUE(progress.isVisible());
}

TEST_F(ProgressPanel, IsNotCancelledByAKeyMeantForSomethingElse) {
    ASSERT_TRUE(progress.stepsDone(100, "At work…"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&progress));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space})
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &progress, key);
    EXPECT_TRUE(progress.stepsDone(101, "At work…"));
}

TEST_F(ProgressPanel, EndsWithEscape) {
    ASSERT_TRUE(progress.stepsDone(100, "At work…"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&progress));
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &progress, Qt::Key_Escape);
    EXPECT_FALSE(progress.stepsDone(101, "At work…"));
}

TEST_F(ProgressPanel, EndsWithItsButtonOrByBeingClosed) {
    ASSERT_TRUE(progress.stepsDone(100, "At work…"));
    auto* const cancel = progress.findChild<QPushButton*>();
    ASSERT_NE(cancel, nullptr);
    EXPECT_EQ(cancel->text(), "Cancel");
    cancel->click();
    EXPECT_FALSE(progress.stepsDone(101, "At work…"));
    EXPECT_FALSE(progress.stepsDone(102, "At work…")) << "it stays so";

    CVProgressPanel other("Printing", 1000, &window);
    ASSERT_TRUE(other.stepsDone(1, "At work…"));
    other.reject();
    EXPECT_FALSE(other.stepsDone(500, "At work…"));
}

} // namespace
