#include "workspace/budgettabs/CVReportsTab.h"

#include "workspace/CVEditCommands.h"
#include "workspace/budgettabs/ReportsTabFixture.h"
#include "workspace/controls/CVRangeControls.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QTabWidget>

namespace {

using CVReportsTabTest = ReportsTabFixture;

TEST_F(CVReportsTabTest, EveryControlHasItsNames) {
    for (const auto& [objectName, accessibleName] : {std::pair{"mSetReportDateRange", "Report Range"},
                                                     {"mReportStartDate", "Report Start"},
                                                     {"mReportEndDate", "Report End"},
                                                     {"mNumberOfTransactionsField2", "Report Transactions"},
                                                     {"mTotalNumberOfTransactionsField2", "Report Transactions Total"},
                                                     {"mAveragesTable", "Averages"},
                                                     {"mTotalTable", "Plan vs Actual"},
                                                     {"mPercentTable", "Percent"},
                                                     {"mTaxTable", "Tax Report"}})
        EXPECT_EQ(find<QWidget>(objectName).accessibleName(), accessibleName);
    const auto& tabs = find<QTabWidget>("mReportTabView");
    const QStringList texts{"Averages", "Plan vs Actual", "Percent", "Tax"};
    const QStringList tables{"mAveragesTable", "mTotalTable", "mPercentTable", "mTaxTable"};
    ASSERT_EQ(tabs.count(), texts.size());
    for (int tab = 0; tab < tabs.count(); ++tab) {
        EXPECT_EQ(tabs.tabText(tab), texts[tab]);
        EXPECT_EQ(tabs.widget(tab)->objectName(), tables[tab]);
    }
}

TEST_F(CVReportsTabTest, ShowsTheTwoCounts) {
    EXPECT_EQ(find<QLineEdit>("mNumberOfTransactionsField2").text(), "1");
    EXPECT_EQ(find<QLineEdit>("mTotalNumberOfTransactionsField2").text(), "2");
}

TEST_F(CVReportsTabTest, AnnouncesTheReportThatTheUserChooses) {
    QSignalSpy picked(&mTab, &CVReportsTab::reportTabPicked);
    auto& tabs = find<QTabWidget>("mReportTabView");
    mTab.setReportTab(2);
    EXPECT_EQ(tabs.currentIndex(), 2);
    mTab.setReportTab(4);
    mTab.setReportTab(-1);
    EXPECT_EQ(tabs.currentIndex(), 2);
    EXPECT_TRUE(picked.isEmpty()) << "what the program selects is no choice of the user's";
    QTest::keyClick(tabs.findChild<QTabBar*>(), Qt::Key_Right);
    EXPECT_EQ(picked, QList<QVariantList>({{3}}));
}

TEST_F(CVReportsTabTest, AnnouncesWhatTheUserEntersAsRange) {
    QSignalSpy picked(&mTab, &CVReportsTab::presetPicked);
    QSignalSpy starts(&mTab, &CVReportsTab::startEntered);
    QSignalSpy ends(&mTab, &CVReportsTab::endEntered);
    mTab.rangeControls().setRange(mContents.range());
    EXPECT_EQ(starts.size() + ends.size() + picked.size(), 0);
    QTest::keyClick(&find<QComboBox>("mSetReportDateRange"), Qt::Key_Down);
    QTest::keyClick(&find<QLineEdit>("mReportStartDate"), Qt::Key_Up);
    EXPECT_EQ(picked, QList<QVariantList>({{1}}));
    EXPECT_EQ(starts.size(), 1);
    QTest::keyClick(&find<QLineEdit>("mReportEndDate"), Qt::Key_Up);
    EXPECT_EQ(ends.size(), 1);
}

TEST_F(CVReportsTabTest, SelectionAndScrollPositionSurviveAReload) {
    goTo(30, kTarget);
    const int scrolled = mTotals.verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    reload();
    EXPECT_EQ(mTotals.verticalScrollBar()->value(), scrolled);
    expectRowSelectedAndFocused(30);
    EXPECT_EQ(mTotals.currentIndex().column(), kTarget);
}

TEST_F(CVReportsTabTest, CopyTakesTheSelectedRows) {
    goTo(0, kTarget);
    CVEdit(CVEditCommand::Copy, QApplication::focusWidget());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Category 1\tMonthly\t$100.00\t$6.00\t$94.00\n");
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->html().contains(
        "<tr><td>Category 1</td><td>Monthly</td><td align=\"right\">$100.00</td><td align=\"right\">$6.00</td>"
        "<td align=\"right\">$94.00</td></tr>\n"))
        << QGuiApplication::clipboard()->mimeData()->html().toStdString();
    QTest::keyClick(&mTotals, Qt::Key_Down, Qt::ShiftModifier);
    CVEdit(CVEditCommand::Copy, QApplication::focusWidget());
    EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), 2);
}

TEST_F(CVReportsTabTest, TabLeadsThroughTheControlsToTheTableAndOut) {
    find<QWidget>("mSetReportDateRange").setFocus();
    for (const char* const next :
         {"mReportStartDate", "mReportEndDate", "mPrintButton", "qt_tabwidget_tabbar", "mAveragesTable"}) {
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), next);
    }
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mSetReportDateRange");
}

TEST_F(CVReportsTabTest, WithoutCategoriesTheTablesSayWhatToDo) {
    for (const char* const name : {"mAveragesTable", "mTotalTable", "mPercentTable", "mTaxTable"})
        EXPECT_EQ(find<QTableView>(name).accessibleDescription(), "");
    mContents.reload(mBudget.document().transactions(), {});
    mTab.reload();
    for (const char* const name : {"mAveragesTable", "mTotalTable", "mPercentTable", "mTaxTable"})
        EXPECT_EQ(find<QTableView>(name).accessibleDescription(), "Nothing to report yet. Record a transaction first.");
}

TEST_F(CVReportsTabTest, RemembersTheWidthsOfTheColumns) {
    const int usual = mTotals.columnWidth(kName);
    mTotals.setColumnWidth(kName, 321);
    find<QTableView>("mTaxTable").setColumnWidth(1, 123);
    const QByteArray columns = mTab.saveColumns();
    CVReportsTab other(mContents);
    other.restoreColumns(columns);
    EXPECT_EQ(other.findChild<QTableView*>("mTotalTable")->columnWidth(kName), 321);
    EXPECT_EQ(other.findChild<QTableView*>("mTaxTable")->columnWidth(1), 123);
    for (const QByteArray& damaged : {QByteArray(), QByteArray("nonsense"), columns.left(columns.size() / 2)}) {
        other.restoreColumns(columns);
        other.restoreColumns(damaged);
        EXPECT_EQ(other.findChild<QTableView*>("mTaxTable")->columnWidth(1),
                  find<QTableView>("mPercentTable").columnWidth(1));
    }
    EXPECT_EQ(usual, find<QTableView>("mAveragesTable").columnWidth(kName));
}

TEST_F(CVReportsTabTest, ControlsFitAScreenWithTwiceTheTextSize) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSizeF(font.pointSizeF() * 2);
    QApplication::setFont(font);
    const CVReportsTab tab(mContents);
    EXPECT_LE(tab.minimumSizeHint().width(), 1200);
    EXPECT_LE(tab.minimumSizeHint().height(), 500);
    QApplication::setFont(before);
}

} // namespace
