#pragma once

#include "budget/CVFrequencyConversion.h"
#include "contents/CVReportContents.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "widgets/fields/CVMoneyField.h"
#include "workspace/budgettabs/CVReportsTab.h"

#include <QApplication>
#include <QComboBox>
#include <QSignalSpy>
#include <QTabBar>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

/// The reports tab alone, with an owner that carries out an edit like the main window.
class ReportsTabFixture : public testing::Test {
protected:
    enum Column { kName, kFrequency, kTarget };

    ReportsTabFixture() {
        for (quint32 id = 1; id <= 40; ++id)
            mBudget.category(QString("Category %1").arg(id, 2), id, CVExpenseFrequency::kMonthly, 100);
        mBudget.transaction({.date = day(2014, 5, 1), .amount = 30, .categoryID = 1})
            .transaction({.date = day(2013, 5, 1), .amount = 30, .categoryID = 1});
        mContents.setRange({day(2014, 1, 1), day(2014, 6, 10)});
        QObject::connect(&mTab, &CVReportsTab::frequencyPicked, &mTab, [this](int row, int code) {
            CVCategory& category = *mContents.rows()[static_cast<std::size_t>(row)];
            mapExpenseFrequencyFrom(category, category.expenseFrequency(), code);
            category.setExpenseFrequency(code);
            reload();
        });
        QObject::connect(&mTab, &CVReportsTab::targetEntered, &mTab, [this](int row, double target) {
            mContents.rows()[static_cast<std::size_t>(row)]->setExpenseTarget(target);
            reload();
        });
        mTab.resize(900, 400);
        mTab.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mTab));
        reload();
    }

    void reload() {
        mContents.reload(mBudget.document().transactions(), mBudget.document().categories());
        mTab.reload();
        QCoreApplication::processEvents();
    }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) const {
        return *mTab.findChild<Widget*>(name);
    }

    /// Makes a cell of the totals table current and gives the table the focus.
    void goTo(int row, int column) {
        mTab.setReportTab(static_cast<int>(CVReportTable::Totals));
        mTotals.setFocus();
        mTotals.setCurrentIndex(mTotals.model()->index(row, column));
    }

    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    /// Types letter by letter, because the first letter may open an editor that gets the others.
    static void type(const QString& text) {
        for (const QChar letter : text)
            QTest::keyClicks(QApplication::focusWidget(), letter);
    }

    [[nodiscard]] QString text(int row, int column) const {
        return mTotals.model()->index(row, column).data().toString();
    }
    [[nodiscard]] const CVCategory& category(int row) const { return *mContents.rows()[static_cast<std::size_t>(row)]; }
    [[nodiscard]] CVMoneyField* amountEditor() const { return mTotals.findChild<CVMoneyField*>(); }
    /// Waits for the list of frequencies to open.
    [[nodiscard]] QAbstractItemView* openList() const {
        const auto* const box = mTotals.findChild<QComboBox*>();
        const bool isOpen = box && QTest::qWaitFor([box] { return box->view()->isVisible(); });
        return isOpen ? box->view() : nullptr;
    }
    [[nodiscard]] bool isEditing() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return mTotals.findChild<QComboBox*>() || amountEditor();
    }

    void expectRowSelectedAndFocused(int row) const {
        EXPECT_EQ(mTotals.selectionModel()->selectedRows(), QModelIndexList({mTotals.model()->index(row, 0)}));
        EXPECT_EQ(mTotals.currentIndex().row(), row);
        EXPECT_EQ(QApplication::focusWidget(), &mTotals);
    }

    FixedToday mToday{day(2014, 6, 10)};
    BudgetBuilder mBudget;
    CVReportContents mContents{day(2014, 6, 10)};
    CVReportsTab mTab{mContents};
    QTableView& mTotals = find<QTableView>("mTotalTable");
    QSignalSpy mFrequencies{&mTab, &CVReportsTab::frequencyPicked};
    QSignalSpy mTargets{&mTab, &CVReportsTab::targetEntered};
};
