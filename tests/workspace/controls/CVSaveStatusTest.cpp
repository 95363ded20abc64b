#include "workspace/controls/CVSaveStatus.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace {

class CVSaveStatusTest : public testing::Test {
protected:
    CVSaveStatusTest() {
        mStatus.setSaved();
        mStatus.setVisible(true);
    }

    [[nodiscard]] QLabel& label(const char* name) const { return *mStatus.findChild<QLabel*>(name); }

    /// What the mouse over the remark shows.
    [[nodiscard]] QString tip() const {
        QLabel& remark = label("mRemark");
        const QPoint middle = remark.rect().center();
        QHelpEvent event(QEvent::ToolTip, middle, remark.mapToGlobal(middle));
        QApplication::sendEvent(&remark, &event);
        return QToolTip::text();
    }

    const QString mLong = "An earlier version could not be kept in “/home/" + QString("folder/").repeated(60) + "”.";
    CVSaveStatus mStatus;
};

TEST_F(CVSaveStatusTest, ALongRemarkMakesTheWindowNoWider) {
    const int usual = mStatus.minimumSizeHint().width();
    mStatus.remark(mLong);
    EXPECT_LT(mStatus.minimumSizeHint().width(), usual + 200);
    mStatus.resize(600, mStatus.sizeHint().height());
    QTest::qWait(0);
    EXPECT_EQ(label("mRemark").text(), mLong) << "a screen reader reads all of it";
    EXPECT_EQ(tip(), mLong);
    const QLabel& saved = label("mSaveStatusText");
    EXPECT_GE(saved.width(), saved.sizeHint().width()) << "the remark gives way";
}

TEST_F(CVSaveStatusTest, TheWayBackStaysBesideOtherRemarksUntilThereIsNone) {
    const auto& button = *mStatus.findChild<QPushButton*>("mTakeBackButton");
    EXPECT_FALSE(button.isVisible());
    mStatus.remark("148 transactions imported", CVSaveStatus::Offer::TakeBack);
    mStatus.setCanTakeBack(true);
    EXPECT_EQ(button.text(), "Ta&ke Back");
    mStatus.remark("3 transactions removed", CVSaveStatus::Offer::Versions);
    EXPECT_TRUE(button.isVisible());
    EXPECT_EQ(button.text(), "Ta&ke Back Import");
    mStatus.setFailed("the disk is full");
    EXPECT_FALSE(button.isVisible());
    mStatus.setSaving();
    mStatus.setSaved();
    EXPECT_TRUE(button.isVisible());
    mStatus.setCanTakeBack(false);
    EXPECT_FALSE(button.isVisible());
}

TEST_F(CVSaveStatusTest, AShortRemarkIsShownWholeWithoutATip) {
    mStatus.remark("3 transactions removed");
    mStatus.resize(600, mStatus.sizeHint().height());
    QTest::qWait(0);
    EXPECT_GE(label("mRemark").width(), label("mRemark").sizeHint().width());
    EXPECT_EQ(tip(), "");
}

} // namespace
