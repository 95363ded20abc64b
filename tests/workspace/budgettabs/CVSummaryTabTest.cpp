#include "workspace/budgettabs/CVSummaryTab.h"

#include "workspace/CVEditCommands.h"
#include "workspace/budgettabs/SummaryTabFixture.h"

#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>

namespace {

using CVSummaryTabTest = SummaryTabFixture;

TEST_F(CVSummaryTabTest, EveryControlHasItsNames) {
    for (const auto& [objectName, accessibleName] : {std::pair{"mExpensePeriod", "Period"},
                                                     {"mExpenseCategoryTable", "Categories"},
                                                     {"mExpensePeriodTable", "Periods"},
                                                     {"mExpensePeriodTotalTable", "Period Totals"},
                                                     {"mExpenseCategoryTotalTable", "Category Totals"},
                                                     {"mPreviousButton", "Previous"},
                                                     {"mTodayButton", "Today"},
                                                     {"mNextButton", "Next"}})
        EXPECT_EQ(find<QWidget>(objectName).accessibleName(), accessibleName);
    const auto& period = find<QComboBox>("mExpensePeriod");
    const QStringList periods{"Daily", "Weekly", "Bi-Weekly", "Monthly"};
    ASSERT_EQ(period.count(), periods.size());
    for (int i = 0; i < periods.size(); ++i)
        EXPECT_EQ(period.itemText(i), periods[i]);
}

TEST_F(CVSummaryTabTest, AnnouncesTheControlsThatTheUserUses) {
    QSignalSpy picked(&mTab, &CVSummaryTab::periodTypePicked);
    QSignalSpy previous(&mTab, &CVSummaryTab::previousRequested);
    QSignalSpy today(&mTab, &CVSummaryTab::todayRequested);
    QSignalSpy next(&mTab, &CVSummaryTab::nextRequested);
    mTab.setPeriodType(2);
    EXPECT_EQ(find<QComboBox>("mExpensePeriod").currentIndex(), 2);
    EXPECT_TRUE(picked.isEmpty()) << "what the program selects is no choice of the user's";
    QTest::keyClick(&find<QComboBox>("mExpensePeriod"), Qt::Key_Down);
    EXPECT_EQ(picked, QList<QVariantList>({{3}}));
    QTest::keyClick(&find<QPushButton>("mPreviousButton"), Qt::Key_Space);
    EXPECT_EQ(previous.size(), 1);
    QTest::keyClick(&find<QPushButton>("mTodayButton"), Qt::Key_Space);
    EXPECT_EQ(today.size(), 1);
    QTest::mouseClick(&find<QPushButton>("mNextButton"), Qt::LeftButton);
    EXPECT_EQ(next.size(), 1);
    EXPECT_EQ(previous.size(), 1);
}

TEST_F(CVSummaryTabTest, TheRangeLineNamesTheFirstAndTheLastDay) {
    show(CVDisplayPeriods::Week);
    EXPECT_EQ(find<QLineEdit>("mExpenseDisplayRangeField").text(), "3/9/14 thru 4/5/14");
}

TEST_F(CVSummaryTabTest, ADoubleClickOrReturnOpensACell) {
    categories(3).show(CVDisplayPeriods::Week);
    QSignalSpy opened(&mTab, &CVSummaryTab::cellActivated);
    doubleClick(mPeriods, mPeriods.visualRect(mPeriods.model()->index(1, 2)).center());
    EXPECT_EQ(opened, QList<QVariantList>({{1, 2}}));
    mPeriods.setFocus();
    for (const int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&mPeriods, static_cast<Qt::Key>(key));
    EXPECT_EQ(opened, QList<QVariantList>({{1, 2}, {2, 3}, {2, 3}}));
}

TEST_F(CVSummaryTabTest, ADoubleClickElsewhereOpensNothing) {
    categories(3).show(CVDisplayPeriods::Week);
    QSignalSpy opened(&mTab, &CVSummaryTab::cellActivated);
    const QRect last = mPeriods.visualRect(mPeriods.model()->index(2, 0));
    doubleClick(mPeriods, last.center() + QPoint(0, 2 * last.height()));
    for (QTableView* const table : {&mCategories, &mCategoryTotals, &mPeriodTotals})
        doubleClick(*table, table->visualRect(table->model()->index(0, 0)).center());
    QTest::mouseClick(mPeriods.viewport(), Qt::LeftButton, {}, last.center());
    EXPECT_TRUE(opened.isEmpty());
    categories(0).show(CVDisplayPeriods::Week);
    mPeriods.setFocus();
    QTest::keyClick(&mPeriods, Qt::Key_Return);
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(CVSummaryTabTest, SelectionAndScrollPositionSurviveAReload) {
    categories(60).show(CVDisplayPeriods::Week);
    mPeriods.setCurrentIndex(mPeriods.model()->index(40, 2));
    const int scrolled = mPeriods.verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    const auto wanted = mContents.rows()[40];
    reload();
    EXPECT_EQ(mPeriods.verticalScrollBar()->value(), scrolled);
    EXPECT_EQ(mPeriods.currentIndex(), mPeriods.model()->index(40, 2));

    mRows.erase(mRows.begin());
    reload();
    EXPECT_EQ(mContents.rows()[39], wanted);
    EXPECT_EQ(mPeriods.currentIndex(), mPeriods.model()->index(39, 2)) << "the cell moves with its category";
    EXPECT_EQ(mPeriods.selectionModel()->selectedIndexes(), QModelIndexList({mPeriods.model()->index(39, 2)}));
}

TEST_F(CVSummaryTabTest, TheScrollPositionSurvivesAChangeOfRowsAndOfColumns) {
    categories(60).show(CVDisplayPeriods::Week);
    // The current cell is far from the visible part: restoring it must not scroll to it.
    mPeriods.setCurrentIndex(mPeriods.model()->index(0, 0));
    for (const auto change : {+[](SummaryTabFixture& fixture) { fixture.mRows.pop_back(); },
                              +[](SummaryTabFixture& fixture) { fixture.mContents.periods().setTimePeriod(0, {}); }}) {
        mPeriods.verticalScrollBar()->setValue(123);
        change(*this);
        reload();
        for (const QTableView* const table : {&mCategories, &mPeriods, &mCategoryTotals})
            EXPECT_EQ(table->verticalScrollBar()->value(), 123);
    }
}

TEST_F(CVSummaryTabTest, TheArrowKeysGoOnNearACategoryThatIsGone) {
    categories(3).show(CVDisplayPeriods::Week);
    mPeriods.setCurrentIndex(mPeriods.model()->index(2, 1));
    mRows.pop_back();
    reload();
    EXPECT_FALSE(mPeriods.selectionModel()->hasSelection());
    EXPECT_EQ(mPeriods.currentIndex(), mPeriods.model()->index(1, 1));
}

TEST_F(CVSummaryTabTest, ACellIsSelectedInOneTableAtATime) {
    categories(3).show(CVDisplayPeriods::Week);
    for (QTableView* const chosen : {&mCategories, &mPeriods, &mCategoryTotals, &mPeriodTotals}) {
        chosen->setCurrentIndex(chosen->model()->index(0, 0));
        for (const QTableView* const table : {&mCategories, &mPeriods, &mCategoryTotals, &mPeriodTotals})
            EXPECT_EQ(table->selectionModel()->hasSelection(), table == chosen) << table->objectName().toStdString();
    }
}

TEST_F(CVSummaryTabTest, TheTablesOfOneRowShareTheirCurrentRow) {
    categories(3).show(CVDisplayPeriods::Week);
    mPeriods.setCurrentIndex(mPeriods.model()->index(2, 3));
    EXPECT_EQ(mCategories.currentIndex().row(), 2);
    EXPECT_EQ(mCategoryTotals.currentIndex().row(), 2);
    mCategories.setCurrentIndex(mCategories.model()->index(1, 0));
    EXPECT_EQ(mPeriods.currentIndex(), mPeriods.model()->index(1, 3));
}

TEST_F(CVSummaryTabTest, CopyTakesTheSelectedCells) {
    categories(3).spendOn(0, 1234.5).spendOn(1, 2).show(CVDisplayPeriods::Week);
    mPeriods.setFocus();
    mPeriods.setCurrentIndex(mPeriods.model()->index(0, 0));
    CVEdit(CVEditCommand::Copy, QApplication::focusWidget());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "$1,234.50\n");
    QTest::keyClick(&mPeriods, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&mPeriods, Qt::Key_Right, Qt::ShiftModifier);
    CVEdit(CVEditCommand::Copy, QApplication::focusWidget());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "$1,234.50\t\n$2.00\t\n");
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->html().endsWith(
        "<table>\n<tr><td align=\"right\">$1,234.50</td><td align=\"right\"></td></tr>\n"
        "<tr><td align=\"right\">$2.00</td><td align=\"right\"></td></tr>\n</table>\n"))
        << QGuiApplication::clipboard()->mimeData()->html().toStdString();
}

TEST_F(CVSummaryTabTest, TabLeadsThroughTheControlsAndTheTables) {
    categories(3).show(CVDisplayPeriods::Week);
    find<QWidget>("mExpensePeriod").setFocus();
    for (const char* const next :
         {"mPreviousButton", "mTodayButton", "mNextButton", "mPrintButton", "mExpenseCategoryTable",
          "mExpensePeriodTable", "mExpenseCategoryTotalTable", "mExpensePeriodTotalTable"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), next);
    }
}

TEST_F(CVSummaryTabTest, SaysWhenNothingWasSpent) {
    const QString sentence = "Nothing was spent in these periods.";
    categories(3).show(CVDisplayPeriods::Week);
    EXPECT_EQ(mPeriods.accessibleDescription(), sentence);
    EXPECT_TRUE(isWrittenInTheMiddle(mPeriods));
    spendOn(0, 5).reload();
    EXPECT_EQ(mPeriods.accessibleDescription(), "");
    EXPECT_FALSE(isWrittenInTheMiddle(mPeriods));
    mContents.periods().next();
    reload();
    EXPECT_EQ(mPeriods.accessibleDescription(), sentence);
    mContents.periods().previous();
    mRows.clear();
    reload();
    EXPECT_EQ(mPeriods.accessibleDescription(), sentence) << "without rows nothing shows";
}

} // namespace
