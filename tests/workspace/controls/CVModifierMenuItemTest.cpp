#include "workspace/controls/CVModifierMenuItem.h"

#include <QAction>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class CVModifierMenuItemTest : public testing::Test {
protected:
    CVModifierMenuItemTest() {
        mOption->setModifierReader([this] { return mHeld; });
    }

    /// Whether the item is visible after the timer has had time to read the key.
    [[nodiscard]] bool isShown() const {
        QTest::qWait(150);
        return mItem->isVisible();
    }

    void openMenu() {
        mMenu.popup(QPoint(10, 10));
        ASSERT_TRUE(mMenu.isVisible());
    }

    QMenu mMenu;
    QAction* mFirst = mMenu.addAction("Find");
    QAction* mItem = mMenu.addAction("Detect Duplicates");
    CVModifierMenuItem* mOption = new CVModifierMenuItem(mMenu, *mItem);
    Qt::KeyboardModifiers mHeld;
};

TEST_F(CVModifierMenuItemTest, AMenuThatIsOpenedWithTheKeyHeldShowsTheItemUntilTheKeyIsReleased) {
    mHeld = Qt::AltModifier;
    openMenu();
    EXPECT_TRUE(mItem->isVisible()) << "at once";
    const int height = mMenu.height();
    EXPECT_TRUE(isShown());
    mHeld = Qt::NoModifier;
    EXPECT_FALSE(isShown());
    EXPECT_LT(mMenu.height(), height) << "no gap is left";
    EXPECT_TRUE(mMenu.isVisible());
}

TEST_F(CVModifierMenuItemTest, AnOpenMenuShowsTheItemWhileTheKeyIsPressed) {
    openMenu();
    EXPECT_FALSE(mItem->isVisible());
    for (const Qt::KeyboardModifiers held :
         {Qt::KeyboardModifiers(Qt::AltModifier | Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
        mHeld = held;
        EXPECT_EQ(isShown(), held.testFlag(Qt::AltModifier));
    }
}

TEST_F(CVModifierMenuItemTest, PressingTheKeyLeavesTheMenuOpen) {
    openMenu();
    QTest::keyPress(&mMenu, Qt::Key_Alt, Qt::AltModifier);
    EXPECT_TRUE(mMenu.isVisible());
    QTest::keyRelease(&mMenu, Qt::Key_Alt);
    QTest::keyClick(&mMenu, Qt::Key_Escape);
    EXPECT_FALSE(mMenu.isVisible());
}

TEST_F(CVModifierMenuItemTest, WhileTheMenuIsClosedTheItemIsThereForItsShortcut) {
    EXPECT_TRUE(mItem->isVisible());
    openMenu();
    EXPECT_FALSE(mItem->isVisible());
    mMenu.close();
    EXPECT_TRUE(isShown()) << "nobody looks at the key any more";
}

} // namespace
