#include "widgets/CVProgressPanel.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct ProgressPanel : testing::Test {
    /// Paints pages of 30 ms until the panel appears or there are no more.
    [[nodiscard]] int paintUntilVisible(int pages) {
        for (int page = 1; page <= pages; ++page) {
            QTest::qSleep(30);
            if (!progress.stepsDone(page, "At work…"))
                return page;
            if (progress.isVisible())
                return page;
        }
        return 0;
    }

    QWidget window;
    CVProgressPanel progress{"Printing", 1000, &window};
};

TEST_F(ProgressPanel, AppearsAfterHalfASecond) {
    EXPECT_GE(paintUntilVisible(100), 500 / 31);
    EXPECT_TRUE(progress.isVisible());
    EXPECT_EQ(progress.labelText(), "At work…");
    EXPECT_TRUE(progress.isModal());
}

TEST_F(ProgressPanel, NeverAppearsForWhatIsQuick) {
    EXPECT_TRUE(progress.stepsDone(1, "At work…"));
    EXPECT_TRUE(progress.stepsDone(1000, "At work…"));
    EXPECT_FALSE(progress.isVisible());
}

TEST_F(ProgressPanel, IsNotCancelledByAKeyMeantForSomethingElse) {
    ASSERT_GT(paintUntilVisible(100), 0);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&progress));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space})
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &progress, key);
    EXPECT_TRUE(progress.stepsDone(101, "At work…"));
}

TEST_F(ProgressPanel, EndsWithEscape) {
    ASSERT_GT(paintUntilVisible(100), 0);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&progress));
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &progress, Qt::Key_Escape);
    EXPECT_FALSE(progress.stepsDone(101, "At work…"));
}

TEST_F(ProgressPanel, EndsWithItsButtonOrByBeingClosed) {
    ASSERT_GT(paintUntilVisible(100), 0);
    auto* const cancel = progress.findChild<QPushButton*>();
    ASSERT_NE(cancel, nullptr);
    EXPECT_EQ(cancel->text(), "Cancel");
    cancel->click();
    EXPECT_FALSE(progress.stepsDone(101, "At work…"));
    EXPECT_FALSE(progress.stepsDone(102, "At work…")) << "it stays so";

    CVProgressPanel other("Printing", 1000, &window);
    for (int page = 1; !other.isVisible(); ++page) {
        QTest::qSleep(30);
        ASSERT_TRUE(other.stepsDone(page, "At work…"));
    }
    other.reject();
    EXPECT_FALSE(other.stepsDone(500, "At work…"));
}

} // namespace
