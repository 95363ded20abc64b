#include "workspace/MainWindowFixture.h"

#include <QComboBox>
#include <QFile>
#include <QTemporaryDir>

namespace {

/// What the commands for duplicates and for the export make of a list that was narrowed or sorted.
class MainWindowDuplicatesExportTest : public MainWindowFixture {
protected:
    void SetUp() override {
        mBudget.category("Food", 1).lastID(1);
        for (int i = 1; i <= 3; ++i)
            mBudget.transaction({.date = day(2014, 3, i), .amount = 10.0 * i, .payTo = "Shop", .category = "Food"});
        mBudget.inOrder();
        open();
    }
};

TEST_F(MainWindowDuplicatesExportTest, TheExportHasTheOrderOfTheList) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.txt");
    clickHeader(Column::Amount);
    clickHeader(Column::Amount);
    mPanels.answer(path);
    mController->exportTransactions();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readLine().contains("$30.00"));
    EXPECT_TRUE(file.readLine().contains("$20.00"));
}

TEST_F(MainWindowDuplicatesExportTest, ADuplicateOutsideTheRangeIsNotMarked) {
    mBudget.transaction({.date = day(2012, 3, 1), .amount = 5, .payTo = "Old", .category = "Food"})
        .transaction({.date = day(2012, 3, 1), .amount = 5, .payTo = "Old", .category = "Food"})
        .inOrder();
    mController->getStarted();
    mController->detectDuplicates();
    EXPECT_EQ(table().selectedTransactions().size(), 1U);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    emit find<QComboBox>("mSetTransactionDateRange")->activated(3);
    ASSERT_EQ(table().model()->rowCount(), 3);
    mController->detectDuplicates();
    EXPECT_TRUE(table().selectedTransactions().empty());
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "No duplicate transactions found");
}

TEST_F(MainWindowDuplicatesExportTest, AListOfFewerThanTwoHasNoDuplicates) {
    for (std::size_t left = 1; left <= 1; --left) {
        while (document().transactions().size() > left)
            document().removeTransaction(std::shared_ptr(document().transactions().back()));
        mController->getStarted();
        mController->detectDuplicates();
        ASSERT_FALSE(mAlerts.shown().isEmpty());
        EXPECT_EQ(mAlerts.shown().last().title, "No duplicate transactions found");
    }
    EXPECT_EQ(mAlerts.shown().size(), 2);
}

} // namespace
