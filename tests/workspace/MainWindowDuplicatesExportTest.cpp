#include "kit/CountingSaver.h"
#include "workspace/MainWindowFixture.h"

#include <QComboBox>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>

namespace {

/// The commands for duplicates and export on a filtered or sorted list.
class MainWindowDuplicatesExportTest : public MainWindowFixture {
protected:
    void SetUp() override {
        mBudget.category("Food", 1).lastID(1);
        for (int i = 1; i <= 3; ++i)
            mBudget.transaction({.date = day(2014, 3, i), .amount = 10.0 * i, .payTo = "Shop", .category = "Food"});
        mBudget.inOrder();
        open();
    }

    /// What an export writes whose kind has that index.
    [[nodiscard]] QByteArray exported(qsizetype kind) {
        const QTemporaryDir folder;
        const QString path = folder.filePath("out");
        mPanels.chooseKind(kind);
        mPanels.answer(path);
        mController->exportTransactions();
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
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

TEST_F(MainWindowDuplicatesExportTest, CSVAndJSONHoldTheLinesThatAreShownOrThoseOfAllSets) {
    mBudget.set("Cash", 7).set("Bank", 8).currentSet(7);
    for (std::size_t at = 0; at < 3; ++at)
        mBudget.transactionAt(at)->setTransactionSetID(at == 1 ? 8 : 7);
    mController->getStarted();
    const QByteArray header = "Date,Amount,Category,Paid To,For,Tax,Flagged,Set\r\n";
    const QByteArray third = "2014-03-03,30,Food,Shop,,,,Cash\r\n";
    const QByteArray second = "2014-03-02,20,Food,Shop,,,,Bank\r\n";
    const QByteArray first = "2014-03-01,10,Food,Shop,,,,Cash\r\n";
    EXPECT_EQ(exported(1), header + third + first);
    EXPECT_EQ(exported(2), header + third + second + first);
    EXPECT_EQ(exported(3).count("\"date\":"), 2);
    EXPECT_EQ(exported(4).count("\"date\":"), 3);
    clickHeader(Column::Amount);
    EXPECT_EQ(exported(1), header + first + third) << "in the order of the list";
    mBudget.transactionAt(0)->setPayTo("Bazaar");
    type("mSearchField103", "shop");
    EXPECT_EQ(exported(1), header + first);
    EXPECT_TRUE(exported(2).contains("Bazaar") && exported(2).contains("Bank")) << "all sets are all lines";
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(MainWindowDuplicatesExportTest, CSVAndJSONAreWrittenAsSafelyAsTheList) {
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "this machine has no device that is always full";
    for (const qsizetype kind : {1, 2}) {
        mPanels.chooseKind(kind);
        for (const QString& path : {QStringLiteral("/dev/full"), QStringLiteral("/nonexistent/out.csv")}) {
            mPanels.answer(path);
            mController->exportTransactions();
            ASSERT_FALSE(mAlerts.shown().isEmpty());
            EXPECT_EQ(mAlerts.shown().last().title, "The transactions were not exported");
            EXPECT_TRUE(mAlerts.shown().last().message.contains(path));
        }
    }
    EXPECT_EQ(mAlerts.shown().size(), 4);
}

TEST_F(MainWindowDuplicatesExportTest, TheExportIsRefusedOntoTheDataFile) {
    const QTemporaryDir folder;
    const QString dataFile = folder.filePath("budget");
    const QString link = folder.filePath("link");
    QFile file(dataFile);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.write("a budget") > 0 && file.flush());
    ASSERT_TRUE(QFile::link(dataFile, link));
    CountingSaver saver;
    saver.setDataFiles({dataFile});
    document().setSaver(&saver);
    for (const QString& path : {dataFile, link}) {
        mPanels.answer(path);
        mController->exportTransactions();
        ASSERT_FALSE(mAlerts.shown().isEmpty());
        EXPECT_EQ(mAlerts.shown().last().title, "The transactions were not exported");
        EXPECT_TRUE(mAlerts.shown().last().message.contains(path + "” could not be written: it is the data file"))
            << mAlerts.shown().last().message.toStdString();
    }
    EXPECT_EQ(mAlerts.shown().size(), 2);
    file.seek(0);
    EXPECT_EQ(file.readAll(), "a budget");
    document().setSaver(nullptr);
}

TEST_F(MainWindowDuplicatesExportTest, AnExportOntoAFullDeviceIsTold) {
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "this machine has no device that is always full";
    mPanels.answer(QStringLiteral("/dev/full"));
    mController->exportTransactions();
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_TRUE(mAlerts.shown()[0].message.contains(qt_error_string(ENOSPC)));
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
