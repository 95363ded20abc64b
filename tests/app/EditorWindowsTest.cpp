#include "app/EditorWindowsFixture.h"
#include "model/CVTransactionColumns.h"

#include <QLabel>

namespace {

using EditorWindowsTest = EditorWindowsFixture;

constexpr const char* kList = "mTransactionTable";
constexpr int kPayee = 2;
constexpr int kCategory = 4;

TEST_F(EditorWindowsTest, ARenamedCategoryShowsEverywhereAtOnceAndInItsPlace) {
    inCategoryEditor([this](QTableView& table) {
        rename(table, "Food", "Zebra Food");
        EXPECT_EQ(items("mExpenseCategoryComboBox"), (QStringList{"Fuel", "Zebra Food"}));
        EXPECT_EQ(column(kList, kCategory), (QStringList{"Zebra Food", "Zebra Food", "Fuel"}));
    });
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(column("mExpenseCategoryTable", 0), (QStringList{"Fuel", "Zebra Food"}));
    inCategoryEditor([this](QTableView& table) {
        rename(table, "Fuel", "Zz");
        EXPECT_EQ(column("mExpenseCategoryTable", 0), (QStringList{"Zebra Food", "Zz"})) << "the grid follows";
    });
    press(Qt::Key_3, Qt::ControlModifier);
    inCategoryEditor([this](QTableView& table) {
        rename(table, "Zz", "Fuel");
        EXPECT_EQ(column("mAveragesTable", 0), (QStringList{"Fuel", "Zebra Food"})) << "the reports follow";
    });
}

TEST_F(EditorWindowsTest, TheListIsSearchedAndSortedByTheNewNameAtOnce) {
    emit find<QTableView>(kList)->horizontalHeader()->sectionClicked(kCategory);
    ASSERT_EQ(column(kList, kPayee).last(), "Station");
    inCategoryEditor([this](QTableView& table) {
        rename(table, "Fuel", "Diesel");
        EXPECT_EQ(column(kList, kPayee).first(), "Station");
    });
    search("food");
    ASSERT_EQ(column(kList, kPayee).size(), 2);
    inCategoryEditor([this](QTableView& table) {
        rename(table, "Food", "Groceries");
        EXPECT_EQ(column(kList, kPayee), QStringList());
    });
}

TEST_F(EditorWindowsTest, AnAddedCategoryCanBeChosenAtOnce) {
    inCategoryEditor([this](QTableView& table) {
        clickButton(table, "Add");
        typeName("Apples");
        EXPECT_EQ(items("mExpenseCategoryComboBox"), (QStringList{"Apples", "Food", "Fuel"}));
    });
    quitAndStartAgain();
    EXPECT_EQ(items("mExpenseCategoryComboBox"), (QStringList{"Apples", "Food", "Fuel"}));
}

TEST_F(EditorWindowsTest, TransactionsOfADeletedCategoryStayWithAnEmptyOneAndComeBackFromTheFile) {
    document().insertCategoryName("Unused");
    inCategoryEditor([this](QTableView& table) {
        clickRow(table, "Food");
        clickRow(table, "Unused", Qt::ShiftModifier);
        clickButton(table, "Delete");
        EXPECT_EQ(document().countOfCategories(), 0U);
        EXPECT_EQ(items("mExpenseCategoryComboBox"), QStringList());
        EXPECT_EQ(column(kList, kCategory), (QStringList{"", "", ""}));
        EXPECT_EQ(find<QLineEdit>("mTotalAmountField")->text(), "$82.50");
    });
    for (int start = 0; start < 2; ++start) {
        press(Qt::Key_2, Qt::ControlModifier);
        EXPECT_EQ(column("mExpenseCategoryTable", 0), QStringList());
        press(Qt::Key_3, Qt::ControlModifier);
        EXPECT_EQ(column("mAveragesTable", 0), QStringList());
        press(Qt::Key_1, Qt::ControlModifier);
        EXPECT_EQ(column(kList, kPayee), (QStringList{"Market", "Baker", "Station"}));
        EXPECT_EQ(column(kList, kCategory), (QStringList{"", "", ""}));
        quitAndStartAgain();
    }
    EXPECT_EQ(document().transactions()[0]->categoryID(), document().transactions()[1]->categoryID());
    EXPECT_NE(document().transactions()[0]->categoryID(), document().transactions()[2]->categoryID());
}

TEST_F(EditorWindowsTest, TheSetPopUpComesAndGoesWithTheSecondSetWhileASearchIsActive) {
    search("mark");
    ASSERT_EQ(column(kList, kPayee), QStringList{"Market"});
    inSetEditor([this](QTableView& table) {
        EXPECT_FALSE(find<QComboBox>("mTransactionSet")->isVisible());
        clickButton(table, "Add");
        EXPECT_TRUE(find<QComboBox>("mTransactionSet")->isVisible());
        typeName("Savings");
        EXPECT_EQ(items("mTransactionSet"), (QStringList{"Initial Transaction Set", "Savings", "", "All Sets"}));
        EXPECT_EQ(find<QComboBox>("mTransactionSet")->currentIndex(), 0);
        EXPECT_EQ(column(kList, kPayee), QStringList{"Market"}) << "the search stays";
    });
    find<QComboBox>("mTransactionSet")->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(column(kList, kPayee), QStringList());
    record(day(2014, 3, 7), 1, "Supermarket", "Food");
    mDelegate->mainWindow()->getStarted();
    EXPECT_EQ(column(kList, kPayee), QStringList{"Supermarket"});
    mAlerts.answer({CVAlert::kDefault, CVAlert::kAlternate});
    inSetEditor([this](QTableView& table) {
        clickRow(table, "Initial Transaction Set");
        clickButton(table, "Delete");
        EXPECT_EQ(mAlerts.shown().size(), 2);
        EXPECT_FALSE(find<QComboBox>("mTransactionSet")->isVisible());
        EXPECT_EQ(column(kList, kPayee), QStringList{"Supermarket"});
        EXPECT_EQ(find<QLineEdit>("mTotalNumberOfTransactionsField1")->text(), "1");
    });
    EXPECT_EQ(document().transactions().size(), 1U);
}

TEST_F(EditorWindowsTest, DeletingTheSecondSetWhileAllSetsAreShownGoesBackToTheOne) {
    auto* const picker = find<QComboBox>("mTransactionSet");
    inSetEditor([](QTableView& table) {
        clickButton(table, "Add");
        typeName("Savings");
    });
    picker->setFocus();
    press(Qt::Key_Down);
    record(day(2014, 3, 7), 1, "Supermarket", "Food");
    press(Qt::Key_Up);
    press(Qt::Key_End);
    ASSERT_EQ(picker->currentText(), "All Sets");
    EXPECT_EQ(column(kList, kPayee), (QStringList{"Supermarket", "Market", "Baker", "Station"}));
    EXPECT_EQ(find<QLabel>("mRecordingNote")->text(), "Recording into “Initial Transaction Set”");
    mAlerts.answer({CVAlert::kDefault, CVAlert::kDefault, CVAlert::kAlternate});
    inSetEditor([this](QTableView& table) {
        clickRow(table, "Initial Transaction Set");
        clickButton(table, "Delete");
        EXPECT_EQ(mAlerts.shown()[0].title, "You can not delete the current transaction set.");
        rename(table, "Savings", "Holidays");
        EXPECT_EQ(column(kList, CVTransactionColumns::Set)[0], "Holidays");
        clickRow(table, "Holidays");
        clickButton(table, "Delete");
    });
    EXPECT_EQ(mAlerts.shown().size(), 3);
    EXPECT_FALSE(picker->isVisible());
    EXPECT_EQ(column(kList, kPayee), (QStringList{"Market", "Baker", "Station"}));
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window");
}

TEST_F(EditorWindowsTest, TheStatusLineSaysHowManyTransactionsWentWithTheirSet) {
    inSetEditor([](QTableView& table) { clickButton(table, "Add"); });
    find<QComboBox>("mTransactionSet")->setFocus();
    press(Qt::Key_Down);
    mAlerts.answer({CVAlert::kDefault, CVAlert::kAlternate});
    inSetEditor([](QTableView& table) {
        clickRow(table, "Initial Transaction Set");
        clickButton(table, "Delete");
    });
    EXPECT_EQ(find<QLabel>("mRemark")->text(), "3 transactions removed");
    EXPECT_TRUE(find<QPushButton>("mShowVersionsButton")->isVisible());
}

TEST_F(EditorWindowsTest, AMergeIsSeenInEveryTabAndTheStatusLineLeadsToTheVersionBeforeIt) {
    record(day(2014, 3, 7), 1, "Bus", "Travel");
    mDelegate->mainWindow()->getStarted();
    inCategoryEditor([this](QTableView& table) {
        rename(table, "Travel", "Food");
        QCoreApplication::processEvents();
        ASSERT_EQ(mAlerts.shown().size(), 1);
        EXPECT_EQ(mAlerts.shown()[0].title, "Merge “Travel” into “Food”?");
        EXPECT_FALSE(column(kList, kCategory).contains("Travel"));
        EXPECT_FALSE(items("mExpenseCategoryComboBox").contains("Travel"));
    });
    EXPECT_EQ(find<QLabel>("mRemark")->text(), "“Travel” was merged into “Food”");
    EXPECT_TRUE(find<QPushButton>("mShowVersionsButton")->isVisible());
    press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_FALSE(column("mAveragesTable", 0).contains("Travel"));
}

TEST_F(EditorWindowsTest, TheReportsFollowSetsThatAreAddedAndDeleted) {
    inSetEditor([](QTableView& table) { clickButton(table, "Add"); });
    press(Qt::Key_3, Qt::ControlModifier);
    const auto counted = [this] { return find<QLineEdit>("mNumberOfTransactionsField2")->text(); };
    EXPECT_EQ(counted(), "3");
    find<QComboBox>("mTransactionSet")->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(counted(), "0");
    record(day(2014, 3, 7), 1, "Bus", "Travel");
    EXPECT_EQ(counted(), "0");
    mDelegate->mainWindow()->getStarted();
    EXPECT_EQ(counted(), "1");
    mAlerts.answer({CVAlert::kDefault, CVAlert::kAlternate});
    inSetEditor([&](QTableView& table) {
        clickRow(table, "Initial Transaction Set");
        clickButton(table, "Delete");
        EXPECT_EQ(counted(), "1");
        EXPECT_EQ(column("mAveragesTable", 0), QStringList{"Travel"});
    });
}

TEST_F(EditorWindowsTest, ARecordedTransactionIsListedInTheFirstSetOfAll) {
    document().removeTransactions(CVTransactions(document().transactions()));
    inSetEditor([](QTableView& table) {
        clickButton(table, "Add");
        typeName("Checking");
    });
    record(day(2014, 3, 7), 1, "Bus", "Travel");
    mDelegate->mainWindow()->getStarted();
    EXPECT_EQ(column(kList, kPayee), QStringList{"Bus"});
}

TEST_F(EditorWindowsTest, WhatIsChangedWhileASaveIsUnderWayIsInTheFileInTheEnd) {
    for (int i = 0; i < 20000; ++i)
        record(day(2013, 1, 1), 1, "Kiosk", "Food");
    // The writing thread may end its save before this thread goes on.
    const auto beginSaving = [this] {
        constexpr int kMostSaves = 100;
        for (int i = 0; i < kMostSaves && !mDelegate->saves().isSaving(); ++i)
            document().workbookSave();
        EXPECT_TRUE(mDelegate->saves().isSaving());
    };
    beginSaving();
    inSetEditor([](QTableView& table) {
        clickButton(table, "Add");
        typeName("Savings");
        rename(table, "Initial Transaction Set", "Checking");
    });
    inCategoryEditor([&beginSaving](QTableView& table) {
        beginSaving();
        rename(table, "Fuel", "Petrol");
        clickButton(table, "Add");
        typeName("Apples");
    });
    find<QComboBox>("mTransactionSet")->setFocus();
    press(Qt::Key_Down);
    mAlerts.answer({CVAlert::kDefault, CVAlert::kAlternate});
    inSetEditor([&beginSaving](QTableView& table) {
        beginSaving();
        clickRow(table, "Checking");
        clickButton(table, "Delete");
    });
    EXPECT_EQ(mAlerts.shown().size(), 2);
    quitAndStartAgain();
    EXPECT_EQ(document().transactions().size(), 0U) << "they went with their set";
    ASSERT_EQ(document().transactionSets().size(), 1U);
    EXPECT_EQ(document().transactionSets().front()->transactionSetName(), "Savings");
    EXPECT_EQ(items("mExpenseCategoryComboBox"), (QStringList{"Apples", "Food", "Petrol"}));
    EXPECT_EQ(mAlerts.shown().size(), 2);
}

TEST_F(EditorWindowsTest, ACellOfTheGridShowsItsTransactionsAndKeepsTheirFlags) {
    press(Qt::Key_2, Qt::ControlModifier);
    auto* const grid = find<QTableView>("mExpensePeriodTable");
    QModelIndex cell;
    for (int column = 0; !cell.isValid() && column < grid->model()->columnCount(); ++column) {
        if (grid->model()->index(0, column).data().toString() == "$30.00")
            cell = grid->model()->index(0, column);
    }
    ASSERT_TRUE(cell.isValid());
    grid->setFocus();
    grid->setCurrentIndex(cell);
    inEditor("Transaction Window", Qt::Key_Return, Qt::NoModifier, [](QTableView& table) {
        EXPECT_EQ(table.model()->rowCount(), 1);
        EXPECT_EQ(table.window()->findChild<QLineEdit*>("mCategoryField")->text(), "Food");
        EXPECT_EQ(table.window()->findChild<QLineEdit*>("mSpentField")->text(), "$30.00");
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.model()->index(0, 0)).center());
    });
    quitAndStartAgain();
    EXPECT_TRUE(document().transactions()[0]->userFlag());
    EXPECT_FALSE(document().transactions()[1]->userFlag());
}

} // namespace
