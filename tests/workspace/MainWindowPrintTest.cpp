#include "kit/ScriptedPrintPanels.h"
#include "workspace/MainWindowFixture.h"

#include <QAction>
#include <QPushButton>
#include <QTabWidget>

namespace {

using Panel = ScriptedPrintPanels::Panel;
using Type = CVReportType;

class MainWindowPrintTest : public MainWindowFixture {
protected:
    void openForPrinting() {
        open();
        mController->setPrintPanels(&mPrintPanels);
    }

    void someBudget() {
        mBudget.category("Car", 1, CVExpenseFrequency::kMonthly, 10)
            .category("Food", 2, CVExpenseFrequency::kMonthly, 5)
            .transaction({.date = day(2014, 3, 1), .amount = 30, .payTo = "Garage", .category = "Car", .taxFlag = true})
            .transaction({.date = day(2014, 3, 2), .amount = 10, .payTo = "Market", .category = "Food"})
            .inOrder();
    }

    void showTab(int index) { find<QTabWidget>("mMainTabView")->setCurrentIndex(index); }
    void showReport(int index) { find<QTabWidget>("mReportTabView")->setCurrentIndex(index); }

    [[nodiscard]] QAction& command(const QString& text) const {
        for (QAction* const action : window().findChildren<QAction*>()) {
            if (action->text().remove('&') == text)
                return *action;
        }
        qFatal("there is no command %s", qPrintable(text));
    }

    void expectRefusal(const QString& message) const {
        EXPECT_TRUE(mPrintPanels.shown().isEmpty());
        ASSERT_EQ(mAlerts.shown().size(), 1);
        const CVAlert& alert = mAlerts.shown().constFirst();
        EXPECT_EQ(alert.title, "Report Error");
        EXPECT_EQ(alert.message, message);
        EXPECT_EQ(alert.defaultButton, "OK");
        EXPECT_EQ(alert.alternateButton + alert.otherButton, "");
    }

    [[nodiscard]] QString lineOf(qsizetype report, int line) const {
        return mPrintPanels.shown().at(report).text.section('\n', line, line);
    }

    ScriptedPrintPanels mPrintPanels;
};

TEST_F(MainWindowPrintTest, CommandsPrintTheShownTab) {
    someBudget();
    openForPrinting();
    struct Row {
        int tab;
        int report;
        Type type;
    };
    const QList<Row> rows{{0, 0, Type::Transactions},   {1, 0, Type::Summary},          {2, 0, Type::CategoryAverages},
                          {2, 1, Type::CategoryTotals}, {2, 2, Type::CategoryPercents}, {2, 3, Type::CategoryTax}};
    for (const Row& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.type));
        showTab(row.tab);
        showReport(row.report);
        QTest::keyClick(&window(), Qt::Key_P, Qt::ControlModifier);
        QTest::keyClick(&window(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
        const auto& shown = mPrintPanels.shown();
        ASSERT_GE(shown.size(), 2);
        EXPECT_EQ(shown.last().type, row.type);
        EXPECT_EQ(shown.last().panel, Panel::Preview);
        EXPECT_EQ(shown.at(shown.size() - 2).type, row.type);
        EXPECT_EQ(shown.at(shown.size() - 2).panel, Panel::Print);
    }
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(MainWindowPrintTest, EachTabHasAButtonThatPrintsIt) {
    someBudget();
    openForPrinting();
    const QList<Type> types{Type::Transactions, Type::Summary, Type::CategoryAverages};
    for (int tab = 0; tab < types.size(); ++tab) {
        showTab(tab);
        QWidget& page = *find<QTabWidget>("mMainTabView")->currentWidget();
        auto* const button = page.findChild<QPushButton*>("mPrintButton");
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->text(), "Print…");
        QTest::mouseClick(button, Qt::LeftButton);
        ASSERT_EQ(mPrintPanels.shown().size(), tab + 1);
        EXPECT_EQ(mPrintPanels.shown().last().type, types[tab]);
    }
}

TEST_F(MainWindowPrintTest, CommandsAreGreyWithoutAWayToPrint) {
    someBudget();
    open();
    for (const char* const text : {"Print…", "Print Preview…", "Page Setup…"})
        EXPECT_FALSE(command(text).isEnabled()) << text;
    mController->setPrintPanels(&mPrintPanels);
    for (const char* const text : {"Print…", "Print Preview…", "Page Setup…"})
        EXPECT_TRUE(command(text).isEnabled()) << text;
}

TEST_F(MainWindowPrintTest, TheListIsPrintedAsItIsDisplayed) {
    someBudget();
    mBudget.transaction({.date = day(2014, 3, 3), .amount = 5, .payTo = "Market hall", .category = "Food"}).inOrder();
    openForPrinting();
    type("mSearchField103", "market");
    clickHeader(Column::Amount);
    const QStringList listed = column(Column::ToFrom);
    ASSERT_EQ(listed.size(), 2);
    mController->printTransactions(CVPrintWay::Print);
    ASSERT_EQ(mPrintPanels.shown().size(), 1);
    EXPECT_EQ(lineOf(0, 0), "Transaction Report for: 3/7/14  Total=$15.00");
    EXPECT_EQ(lineOf(0, 2).section('\t', 3, 3), listed[0]);
    EXPECT_EQ(lineOf(0, 3).section('\t', 3, 3), listed[1]);
    EXPECT_EQ(lineOf(0, 4), "");
}

TEST_F(MainWindowPrintTest, ThePlanTakesAllTransactionsAndSharesAndTaxTheDisplayedOnes) {
    someBudget();
    openForPrinting();
    type("mSearchField103", "market");
    showTab(2);
    for (int report = 1; report <= 3; ++report) {
        showReport(report);
        mController->printReport(CVPrintWay::Print);
    }
    EXPECT_EQ(lineOf(0, 2), "Car\tMonthly\t$10.00\t$0.00\t$10.00") << "the range holds no whole month";
    // The displayed transactions total 10, but the categories' figures include all transactions.
    EXPECT_EQ(lineOf(1, 2), "Car\t$30.00\t300.00%");
    EXPECT_EQ(lineOf(1, 3), "Food\t$10.00\t100.00%");
    EXPECT_EQ(lineOf(2, 2), "Car\t0\t$0.00");
}

TEST_F(MainWindowPrintTest, FiguresAreCurrentThoughAnotherTabIsShown) {
    someBudget();
    openForPrinting();
    mController->printSummary(CVPrintWay::Print);
    mController->printReport(CVPrintWay::Print);
    EXPECT_EQ(lineOf(0, 2), "Car\t$0.00\t$0.00\t$0.00\t$0.00\t$0.00\t$0.00\t$0.00\t$0.00");
    EXPECT_TRUE(lineOf(1, 2).startsWith("Car\t")) << lineOf(1, 2).toStdString();
    EXPECT_TRUE(lineOf(1, 2).contains("\t1\t$30.00\t")) << lineOf(1, 2).toStdString();
}

TEST_F(MainWindowPrintTest, NothingDisplayedIsRefused) {
    mBudget.category("Food", 1);
    mBudget.userDefaults().setInteger("ShowUnusedCategories", 1);
    openForPrinting();
    struct Row {
        void (CVMainWindowController::*print)(CVPrintWay);
        const char* message;
    };
    const QList<Row> rows{{&CVMainWindowController::printTransactions, "There are no transactions to print."},
                          {&CVMainWindowController::printSummary, "There are no transactions to print."},
                          {&CVMainWindowController::printReport, "There is nothing to print."}};
    for (const Row& row : rows) {
        mAlerts = ScriptedAlerts();
        (mController.get()->*row.print)(CVPrintWay::Print);
        expectRefusal(row.message);
    }
}

TEST_F(MainWindowPrintTest, WithoutCategoriesASummaryHasItsTotalLineAndReportsAreRefused) {
    mBudget.transaction({.date = day(2014, 3, 1), .amount = 3, .categoryID = 99}).inOrder();
    openForPrinting();
    mController->printSummary(CVPrintWay::Print);
    ASSERT_EQ(mPrintPanels.shown().size(), 1);
    EXPECT_EQ(lineOf(0, 2), "");
    EXPECT_TRUE(lineOf(0, 3).startsWith("Total\t$0.00"));
    EXPECT_EQ(mPrintPanels.shown().first().pages, 0) << "the pages are counted by categories";
    mPrintPanels = ScriptedPrintPanels();
    mController->printReport(CVPrintWay::Preview);
    expectRefusal("There is nothing to print.");
}

TEST_F(MainWindowPrintTest, ThePageIsSetUpForAllReportsAndAWideReportLeavesTheOrientationAsItWas) {
    someBudget();
    openForPrinting();
    const auto printed = [this](void (CVMainWindowController::*print)(CVPrintWay)) {
        (mController.get()->*print)(CVPrintWay::Print);
        return mPrintPanels.shown().last();
    };
    EXPECT_EQ(printed(&CVMainWindowController::printTransactions).paper, QPageSize::Letter);
    for (const auto orientation : {QPageLayout::Portrait, QPageLayout::Landscape}) {
        mPrintPanels.chooseSetUp({.paper = QPageSize(QPageSize::A5), .orientation = orientation});
        command("Page Setup…").trigger();
        EXPECT_EQ(printed(&CVMainWindowController::printReport).orientation, QPageLayout::Landscape);
        EXPECT_EQ(printed(&CVMainWindowController::printSummary).orientation, QPageLayout::Landscape);
        EXPECT_EQ(printed(&CVMainWindowController::printTransactions).orientation, orientation);
        EXPECT_EQ(mPrintPanels.shown().last().paper, QPageSize::A5);
    }
    ASSERT_EQ(mPrintPanels.setUps().size(), 2);
    EXPECT_EQ(mPrintPanels.setUps()[1].paper.id(), QPageSize::A5) << "the panel shows what was chosen before";
}

TEST_F(MainWindowPrintTest, ThePageSetUpHoldsForTheNextWindowToo) {
    someBudget();
    openForPrinting();
    const CVPrintInfo chosen{
        .paper = QPageSize(QPageSize::A5), .orientation = QPageLayout::Landscape, .margins = {36, 48, 60, 72.5}};
    mPrintPanels.chooseSetUp(chosen);
    command("Page Setup…").trigger();
    mController->printReport(CVPrintWay::Print);
    openForPrinting();
    command("Page Setup…").trigger();
    EXPECT_EQ(mPrintPanels.setUps().last(), chosen);
    mController->printTransactions(CVPrintWay::Print);
    EXPECT_EQ(mPrintPanels.shown().last().paper, QPageSize::A5);
}

TEST_F(MainWindowPrintTest, APageSetUpThatIsLeftAsItWasIsNotKept) {
    openForPrinting();
    command("Page Setup…").trigger();
    ASSERT_EQ(mPrintPanels.setUps().size(), 1);
    EXPECT_FALSE(mBudget.userDefaults().hasKey("CVPaper")) << "another locale may bring another paper";
}

TEST_F(MainWindowPrintTest, AFailureIsToldWithItsReason) {
    someBudget();
    openForPrinting();
    mPrintPanels.fail("The printer is on fire");
    mController->printTransactions(CVPrintWay::Print);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown().constFirst().title, "The report was not printed");
    EXPECT_TRUE(mAlerts.shown().constFirst().message.startsWith("The printer is on fire. "));
}

TEST_F(MainWindowPrintTest, WhatIsPrintedSurvivesItsRemoval) {
    someBudget();
    openForPrinting();
    mPrintPanels.meanwhile([this] {
        document().removeTransaction(mBudget.transactionAt(0));
        mController->getStarted();
    });
    mController->printTransactions(CVPrintWay::Print);
    EXPECT_EQ(table().model()->rowCount(), 1);
    EXPECT_TRUE(lineOf(0, 2).contains("Market"));
    EXPECT_TRUE(lineOf(0, 3).contains("Garage"));
}

} // namespace
