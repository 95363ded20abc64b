#include "base/CVDefaultsKeys.h"
#include "kit/RandomBudget.h"
#include "workspace/MainWindowFixture.h"

#include <QClipboard>
#include <QHelpEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>

namespace {

class MainWindowListTest : public MainWindowFixture {
protected:
    MainWindowListTest() {
        mBudget.category("Fuel", 1).category("food", 2);
        mBudget
            .transaction(
                {.date = day(2014, 3, 1), .amount = 30, .payTo = "Market", .xfor = "bread", .category = "food"})
            .transaction({.date = day(2014, 3, 3), .amount = 10, .payTo = "auto shop", .category = "Fuel"})
            .transaction({.date = day(2014, 3, 2), .amount = 20, .payTo = "Bank", .xfor = "Loan", .category = "Fuel"});
        mBudget.inOrder();
    }

    [[nodiscard]] int sortOrder() {
        return mBudget.userDefaults().integerForKey(CVDefaultsKeys::kTransactionSortOrder);
    }
};

TEST_F(MainWindowListTest, ListsNewestFirstAndShowsIt) {
    open();
    EXPECT_EQ(column(Column::Date), QStringList({"3/3/14", "3/2/14", "3/1/14"}));
    EXPECT_TRUE(table().horizontalHeader()->isSortIndicatorShown());
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), Column::Date);
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(MainWindowListTest, AClickOnAHeaderSortsByItAndTurnsTheOrderRound) {
    open();
    clickHeader(Column::Amount);
    EXPECT_EQ(column(Column::Amount), QStringList({"$10.00", "$20.00", "$30.00"}));
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), Column::Amount);
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    EXPECT_EQ(sortOrder(), 0);
    clickHeader(Column::ToFrom);
    EXPECT_EQ(column(Column::ToFrom), QStringList({"Market", "Bank", "auto shop"}));
    EXPECT_EQ(sortOrder(), 1);
    clickHeader(Column::ToFrom);
    EXPECT_EQ(column(Column::ToFrom), QStringList({"auto shop", "Bank", "Market"}));
    EXPECT_EQ(mBudget.userDefaults().stringForKey(CVDefaultsKeys::kTransactionSortColumn), "tofrom");
}

TEST_F(MainWindowListTest, EveryColumnCanBeSortedByFromTheMenu) {
    open();
    const auto menus = window().menuBar()->findChildren<QMenu*>();
    const auto menu = std::find_if(menus.begin(), menus.end(),
                                   [](const QMenu* each) { return each->title().remove('&') == "Sort By"; });
    ASSERT_NE(menu, menus.end());
    ASSERT_EQ((*menu)->actions().size(), CVTransactionTableModel::ColumnCount);
    (*menu)->actions()[Column::Category]->trigger();
    EXPECT_EQ(column(Column::Category), QStringList({"food", "Fuel", "Fuel"}));
}

TEST_F(MainWindowListTest, AnUnknownSortColumnOfTheUserListsInDocumentOrder) {
    mBudget.userDefaults().setString(CVDefaultsKeys::kTransactionSortColumn, "nonsense");
    open();
    EXPECT_EQ(column(Column::Date), QStringList({"3/3/14", "3/2/14", "3/1/14"}));
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), -1);
    clickHeader(Column::Amount);
    EXPECT_EQ(sortOrder(), 1);
}

TEST_F(MainWindowListTest, ShowsCountsAndSums) {
    open();
    EXPECT_EQ(textOf("mNumberOfTransactionsField1"), "3");
    EXPECT_EQ(textOf("mTotalNumberOfTransactionsField1"), "3");
    EXPECT_EQ(textOf("mTotalAmountShownField"), "$60.00");
    EXPECT_EQ(textOf("mTotalAmountField"), "$60.00");
}

TEST_F(MainWindowListTest, TheSelectionFollowsItsTransactions) {
    open();
    table().selectRow(0);
    const auto selected = table().selectedTransactions();
    ASSERT_EQ(selected.size(), 1U);
    clickHeader(Column::Amount);
    EXPECT_EQ(table().selectedTransactions(), selected);
    mController->getStarted();
    EXPECT_EQ(table().selectedTransactions(), selected);
    ASSERT_EQ(table().selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(table().selectionModel()->selectedRows()[0].row(), 0);
    EXPECT_EQ(column(Column::ToFrom)[0], "auto shop");
    const auto& all = document().transactions();
    document().removeTransaction(*std::find_if(
        all.begin(), all.end(), [&selected](const auto& transaction) { return transaction == selected[0]; }));
    mController->getStarted();
    EXPECT_TRUE(table().selectedTransactions().empty());
}

TEST_F(MainWindowListTest, TheScrollPositionSurvivesARebuild) {
    for (int i = 0; i < 300; ++i)
        mBudget.transaction({.date = day(2013, 1, 1)});
    mBudget.inOrder();
    open();
    table().selectRow(1);
    table().verticalScrollBar()->setValue(777);
    mController->getStarted();
    EXPECT_EQ(table().verticalScrollBar()->value(), 777);
}

TEST_F(MainWindowListTest, TypingSelectsByTheSortColumn) {
    open();
    clickHeader(Column::ToFrom);
    table().setFocus();
    type("ba");
    ASSERT_EQ(table().selectedTransactions().size(), 1U);
    EXPECT_EQ(table().selectedTransactions()[0]->payTo(), "Bank");
}

TEST_F(MainWindowListTest, CopyPutsTheSelectedRowsOnTheClipboardAsTabSeparatedText) {
    mBudget.transaction({.date = day(2014, 1, 1), .amount = 5, .payTo = "two\nlines\tand a tab", .userFlag = true});
    mBudget.inOrder();
    open();
    table().setFocus();
    press(Qt::Key_End, Qt::ControlModifier);
    press(Qt::Key_Up, Qt::ShiftModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "3/1/14\t$30.00\tMarket\tbread\tfood\tNo\tNo\n"
                                                    "1/1/14\t$5.00\ttwo lines and a tab\t\t\tNo\tYes\n");
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->html().contains(
        "<td align=\"right\">$5.00</td><td>two lines and a tab</td><td></td><td></td>"))
        << QGuiApplication::clipboard()->mimeData()->html().toStdString();
}

TEST_F(MainWindowListTest, SelectAllSelectsTheRowsOrTheTextThatHasTheFocus) {
    open();
    table().setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(table().selectedTransactions().size(), 3U);
    type("mForField", "bread");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(textOf("mForField"), "");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(textOf("mForField"), "bread");
}

TEST_F(MainWindowListTest, TheEditMenuWorksOnTheFieldThatHasTheFocus) {
    open();
    const auto choose = [this](const QString& title) {
        for (QAction* const action : window().findChildren<QAction*>()) {
            if (action->text() == title)
                action->trigger();
        }
    };
    type("mExpenseToFromComboBox", "Market");
    choose("Select &All");
    choose("Cu&t");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "");
    focus("mForField");
    choose("&Paste");
    EXPECT_EQ(textOf("mForField"), "Market");
    focus("mTotalAmountField");
    choose("&Paste");
    EXPECT_EQ(textOf("mTotalAmountField"), "$60.00");
}

TEST_F(MainWindowListTest, OnlyACutCellShowsItsTextAsTooltip) {
    const QString payee = QString("A very long name of a shop ").repeated(8);
    mBudget.transaction({.date = day(2014, 3, 4), .payTo = payee});
    mBudget.inOrder();
    open();
    const auto tooltipAt = [this](int row) {
        const QPoint centre = table().visualRect(table().model()->index(row, Column::ToFrom)).center();
        QHelpEvent event(QEvent::ToolTip, centre, table().viewport()->mapToGlobal(centre));
        QApplication::sendEvent(table().viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(tooltipAt(0), Qt::convertFromPlainText(payee)) << "a text is no markup";
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([&] { return tooltipAt(1).isEmpty(); }));
}

TEST_F(MainWindowListTest, ListsAndSortsWhateverAFileMayHold) {
    for (quint32 seed = 1; seed <= 20; ++seed) {
        RandomBudget budget(seed);
        budget.document().setCurrentTransactionSet(
            budget.document().transactions().empty() ? 0 : budget.document().transactions()[0]->transactionSetID());
        mController = std::make_unique<CVMainWindowController>(budget.document(), mAlerts, mPanels);
        mController->showWindow();
        const int rows = table().model()->rowCount();
        for (int column = 0; column < CVTransactionTableModel::ColumnCount; ++column) {
            clickHeader(static_cast<Column>(column));
            table().grab();
        }
        EXPECT_EQ(table().model()->rowCount(), rows);
        mController.reset();
    }
}

} // namespace
