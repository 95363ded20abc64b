#include "workspace/budgettabs/ReportsTabFixture.h"

namespace {

using ReportsTabEditTest = ReportsTabFixture;

TEST_F(ReportsTabEditTest, ATargetIsTypedOverTheOldOne) {
    goTo(3, kTarget);
    type("52.5");
    ASSERT_NE(amountEditor(), nullptr);
    press(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(mTargets, QList<QVariantList>({{3, 52.5}}));
    EXPECT_EQ(text(3, kTarget), "$52.50");
    EXPECT_FALSE(isEditing());
    expectRowSelectedAndFocused(3);
}

TEST_F(ReportsTabEditTest, ATargetIsEditedFromF2OnAndByADoubleClick) {
    goTo(3, kTarget);
    press(Qt::Key_F2);
    ASSERT_NE(amountEditor(), nullptr);
    EXPECT_EQ(amountEditor()->text(), "$100.00");
    EXPECT_TRUE(amountEditor()->hasSelectedText());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isEditing());
    expectRowSelectedAndFocused(3);
    const QPoint cell = mTotals.visualRect(mTotals.model()->index(3, kTarget)).center();
    QTest::mouseClick(mTotals.viewport(), Qt::LeftButton, {}, cell);
    EXPECT_FALSE(isEditing());
    QTest::mouseDClick(mTotals.viewport(), Qt::LeftButton, {}, cell);
    ASSERT_NE(amountEditor(), nullptr);
    type("7");
    press(Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_EQ(mTargets, QList<QVariantList>({{3, 7.0}}));
    expectRowSelectedAndFocused(3);
}

TEST_F(ReportsTabEditTest, ATargetThatIsOnlyLookedAtStaysToTheLastDigit) {
    mBudget.categoryNamed("Category  4")->setExpenseTarget(12.345678);
    reload();
    goTo(3, kTarget);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_TRUE(mTargets.isEmpty());
    EXPECT_EQ(category(3).expenseTarget(), 12.345678);
}

TEST_F(ReportsTabEditTest, AnAmountThatCannotBeReadStaysInItsFieldUntilItIsGivenUp) {
    goTo(3, kTarget);
    press(Qt::Key_F2);
    type("12x");
    for (const auto key : {Qt::Key_Return, Qt::Key_Tab}) {
        press(key);
        QCoreApplication::processEvents();
        ASSERT_NE(amountEditor(), nullptr);
        EXPECT_EQ(amountEditor()->text(), "12x");
        EXPECT_FALSE(amountEditor()->isReadable());
    }
    find<QWidget>("mReportTabView").findChild<QTabBar*>()->setFocus();
    ASSERT_TRUE(isEditing());
    EXPECT_TRUE(QTest::qWaitFor([this] { return amountEditor()->hasFocus(); }));
    EXPECT_EQ(amountEditor()->text(), "12x");
    press(Qt::Key_Escape);
    EXPECT_FALSE(isEditing());
    EXPECT_TRUE(mTargets.isEmpty());
    EXPECT_EQ(category(3).expenseTarget(), 100);
}

TEST_F(ReportsTabEditTest, LeavingTheFieldTakesTheAmount) {
    goTo(3, kTarget);
    press(Qt::Key_F2);
    type("12");
    find<QWidget>("mReportTabView").findChild<QTabBar*>()->setFocus();
    EXPECT_EQ(mTargets, QList<QVariantList>({{3, 12.0}}));
}

TEST_F(ReportsTabEditTest, AFrequencyIsChosenFromTheEight) {
    goTo(3, kFrequency);
    press(Qt::Key_F2);
    QAbstractItemView* const list = openList();
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->model()->rowCount(), 8);
    EXPECT_EQ(list->currentIndex().data(), "Monthly");
    EXPECT_EQ(list->model()->index(7, 0).data(), "Annually");
    QTest::keyClick(list, Qt::Key_End);
    QTest::keyClick(list, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(mFrequencies, QList<QVariantList>({{3, 7}}));
    EXPECT_EQ(text(3, kFrequency), "Annually");
    EXPECT_EQ(text(3, kTarget), "$1,200.00");
    EXPECT_FALSE(isEditing());
    expectRowSelectedAndFocused(3);
}

TEST_F(ReportsTabEditTest, TypingALetterBeginsTheChoiceAndDoesNotEndIt) {
    goTo(3, kFrequency);
    type("s");
    QAbstractItemView* const list = openList();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->currentIndex().data(), "Semi-Annually");
    EXPECT_TRUE(mFrequencies.isEmpty());
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(mFrequencies, QList<QVariantList>({{3, 0}}));
}

TEST_F(ReportsTabEditTest, ClosingTheListKeepsTheFrequency) {
    goTo(3, kFrequency);
    press(Qt::Key_F2);
    QAbstractItemView* const list = openList();
    ASSERT_NE(list, nullptr);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isEditing());
    EXPECT_TRUE(mFrequencies.isEmpty());
    expectRowSelectedAndFocused(3);
}

TEST_F(ReportsTabEditTest, ChoosingTheSameFrequencyChangesNothing) {
    goTo(3, kFrequency);
    press(Qt::Key_F2);
    QAbstractItemView* const list = openList();
    ASSERT_NE(list, nullptr);
    QTest::keyClick(list, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_TRUE(mFrequencies.isEmpty());
    EXPECT_FALSE(isEditing());
}

TEST_F(ReportsTabEditTest, WhatIsBeingTypedOutlivesAReload) {
    goTo(3, kTarget);
    type("52");
    reload();
    type(".5");
    press(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(mTargets, QList<QVariantList>({{3, 52.5}}));
}

TEST_F(ReportsTabEditTest, AnEditorGoesWithTheRowsAndTheTableKeepsTheFocus) {
    goTo(3, kTarget);
    press(Qt::Key_F2);
    auto rows = mContents.rows();
    rows.pop_back();
    mContents.reload(mBudget.document().transactions(), rows);
    mTab.reload();
    EXPECT_FALSE(isEditing());
    expectRowSelectedAndFocused(3);
}

TEST_F(ReportsTabEditTest, TypingOnAColumnThatCannotBeEditedLooksForTheName) {
    goTo(0, kName);
    type("category 12");
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(mTotals.currentIndex().row(), 11);
}

} // namespace
