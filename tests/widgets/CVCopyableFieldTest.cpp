#include "widgets/fields/CVCopyableField.h"

#include <QHBoxLayout>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class CVCopyableFieldTest : public testing::Test {
protected:
    CVCopyableFieldTest() : mField(CVCopyableField::addTo(mLayout, "mField", "Shown:", "Amount Shown", &mWindow)) {
        mField->setText("$1,234.50");
        mWindow.resize(400, 60);
        mWindow.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&mWindow));
    }

    /// Whether showing a text lays out the window again.
    bool isLaidOutFor(const QString& text) {
        const int before = mField->width();
        mField->setText(text);
        QCoreApplication::processEvents();
        return mField->width() != before;
    }

    QWidget mWindow;
    QHBoxLayout mLayout{&mWindow};
    CVCopyableField* mField;
};

TEST_F(CVCopyableFieldTest, LiesAtTheEndOfTheReadingDirectionAlsoWhenThatChanges) {
    EXPECT_EQ(mField->alignment(), Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
    mWindow.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(mField->alignment(), Qt::AlignLeft | Qt::AlignVCenter | Qt::AlignAbsolute);
}

TEST_F(CVCopyableFieldTest, GrowsWithItsTextAndDoesNotShrink) {
    EXPECT_FALSE(isLaidOutFor("$9.10"));
    EXPECT_FALSE(isLaidOutFor(""));
    EXPECT_FALSE(isLaidOutFor("$1,234.50"));
    EXPECT_TRUE(isLaidOutFor("$123,456,789.00"));
    EXPECT_GE(mField->width(), mField->fontMetrics().horizontalAdvance(mField->text()));
    EXPECT_FALSE(isLaidOutFor("$1.00"));
}

TEST_F(CVCopyableFieldTest, FitsItsTextAnewInAnotherFont) {
    isLaidOutFor("$123,456,789.00");
    mField->setText("$1.00");
    QFont font = mField->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    mField->setFont(font);
    EXPECT_GE(mField->sizeHint().width(), mField->fontMetrics().horizontalAdvance("$1.00"));
    EXPECT_LT(mField->sizeHint().width(), mField->fontMetrics().horizontalAdvance("$123,456,789.00"));
}

TEST_F(CVCopyableFieldTest, GivesWayWhereTheWindowIsNarrow) {
    isLaidOutFor("$123,456,789.00");
    const int whole = mField->width();
    EXPECT_EQ(mField->toolTip(), QString());
    mWindow.resize(mWindow.minimumSizeHint());
    QCoreApplication::processEvents();
    EXPECT_LT(mField->width(), whole);
    EXPECT_GE(mField->width(), mField->fontMetrics().horizontalAdvance("$1…"));
    EXPECT_EQ(mField->toolTip(), "$123,456,789.00");
    EXPECT_EQ(mField->text(), "$123,456,789.00") << "what is copied and read out";
    mWindow.resize(400, 60);
    QCoreApplication::processEvents();
    EXPECT_EQ(mField->width(), whole);
    EXPECT_EQ(mField->toolTip(), QString());
}

} // namespace
