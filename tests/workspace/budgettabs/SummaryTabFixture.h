#pragma once

#include "contents/CVGridContents.h"
#include "kit/BudgetBuilder.h"
#include "workspace/budgettabs/CVSummaryTab.h"

#include <QApplication>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

/// The summary tab alone, on Wednesday 12 March 2014, 900 x 400 pixels in size.
class SummaryTabFixture : public testing::Test {
public:
    SummaryTabFixture() {
        mTab.resize(900, 400);
        mTab.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mTab));
        reload();
    }

    /// Replaces the categories by `count` new ones.
    SummaryTabFixture& categories(int count) {
        mRows.clear();
        for (int i = 0; i < count; ++i) {
            mRows.push_back(std::make_shared<CVCategory>());
            mRows.back()->setCategoryName(QString("Category %1").arg(i, 2));
            mRows.back()->setUniqueID(static_cast<quint32>(i + 1));
        }
        return *this;
    }

    /// Spends an amount today.
    SummaryTabFixture& spendOn(int category, double amount) {
        mBudget.transaction(
            {.date = day(2014, 3, 12), .amount = amount, .categoryID = static_cast<quint32>(category + 1)});
        return *this;
    }

    void show(int periodType) {
        mContents.periods().setTimePeriod(periodType, {});
        reload();
    }

    void reload() {
        mContents.reload(mBudget.document().transactions(), mRows);
        mTab.reload();
        QCoreApplication::processEvents();
    }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) const {
        return *mTab.findChild<Widget*>(name);
    }

    static void doubleClick(const QTableView& table, const QPoint& position) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, position);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, position);
    }

    [[nodiscard]] static bool isWrittenInTheMiddle(const QTableView& table) {
        QRect middle(0, 0, table.viewport()->width() / 3, table.fontMetrics().height());
        middle.moveCenter(table.viewport()->rect().center());
        const QImage image = table.viewport()->grab(middle).toImage();
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, image.height() / 2) != image.pixel(0, image.height() / 2))
                return true;
        }
        return false;
    }

    BudgetBuilder mBudget;
    CVCategories mRows;
    CVGridContents mContents{day(2014, 3, 12), CVDisplayPeriods::Week, {}};
    CVSummaryTab mTab{mContents};
    QTableView& mCategories = find<QTableView>("mExpenseCategoryTable");
    QTableView& mPeriods = find<QTableView>("mExpensePeriodTable");
    QTableView& mPeriodTotals = find<QTableView>("mExpensePeriodTotalTable");
    QTableView& mCategoryTotals = find<QTableView>("mExpenseCategoryTotalTable");
};
