#include "workspace/CVPrintProgress.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct PrintProgress : testing::Test {
    /// Paints pages of 30 ms until the panel appears or there are no more.
    [[nodiscard]] int paintUntilVisible(int pages) {
        for (int page = 1; page <= pages; ++page) {
            QTest::qSleep(30);
            if (!progress.pagesDone(page))
                return page;
            if (progress.isVisible())
                return page;
        }
        return 0;
    }

    QWidget window;
    CVPrintProgress progress{window, 1000};
};

TEST_F(PrintProgress, AppearsAfterHalfASecond) {
    EXPECT_GE(paintUntilVisible(100), 500 / 31);
    EXPECT_TRUE(progress.isVisible());
    EXPECT_TRUE(progress.labelText().contains(" of 1,000"));
    EXPECT_TRUE(progress.isModal());
}

TEST_F(PrintProgress, NeverAppearsForWhatIsQuick) {
    EXPECT_TRUE(progress.pagesDone(1));
    EXPECT_TRUE(progress.pagesDone(1000));
    EXPECT_FALSE(progress.isVisible());
}

TEST_F(PrintProgress, EndsWithItsButtonOrByBeingClosed) {
    ASSERT_GT(paintUntilVisible(100), 0);
    auto* const cancel = progress.findChild<QPushButton*>();
    ASSERT_NE(cancel, nullptr);
    EXPECT_EQ(cancel->text(), "Cancel");
    cancel->click();
    EXPECT_FALSE(progress.pagesDone(101));
    EXPECT_FALSE(progress.pagesDone(102)) << "it stays so";

    CVPrintProgress other(window, 1000);
    for (int page = 1; !other.isVisible(); ++page) {
        QTest::qSleep(30);
        ASSERT_TRUE(other.pagesDone(page));
    }
    other.reject();
    EXPECT_FALSE(other.pagesDone(500));
}

} // namespace
