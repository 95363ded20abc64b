#include "app/CVAppDelegate.h"
#include "kit/Day.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"
#include "kit/ScratchHome.h"
#include "kit/ScriptedAlerts.h"
#include "kit/ScriptedPanels.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"
#include "workspace/CVMainWindowController.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

constexpr Qt::KeyboardModifiers kControlShift = Qt::ControlModifier | Qt::ShiftModifier;

/// The whole program on a file of its own: what is done in an editor, seen in the main window behind it.
class EditorWindowsTest : public testing::Test {
protected:
    void SetUp() override {
        start();
        removeStandardCategories();
        record(day(2014, 3, 6), 30, "Market", "Food");
        record(day(2014, 3, 5), 12.5, "Baker", "Food");
        record(day(2014, 3, 4), 40, "Station", "Fuel");
        mDelegate->mainWindow()->getStarted();
    }

    void start() {
        mDelegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), mAlerts, mPanels);
        mDelegate->applicationDidFinishLaunching();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    void quitAndStartAgain() {
        ASSERT_TRUE(window().close());
        mDelegate.reset();
        start();
    }

    void removeStandardCategories() {
        while (document().countOfCategories() > 0)
            document().removeCategory(document().categories().back());
    }

    void record(const QBDate& date, double amount, const QString& payTo, const QString& category) {
        const auto transaction = std::make_shared<CVTransaction>();
        transaction->setEffectiveDate(date);
        transaction->setAmount(amount);
        transaction->setFor("");
        transaction->setPayTo(payTo);
        transaction->setCategoryID(document().insertCategoryName(category)->uniqueID());
        document().insertTransaction(transaction);
    }

    [[nodiscard]] CVDocument& document() const { return mDelegate->document(); }
    [[nodiscard]] QMainWindow& window() const { return *mDelegate->mainWindow()->window(); }

    /// In the main window alone: an editor is a child of it and has a table of the same name.
    template <typename Widget>
    [[nodiscard]] Widget* find(const char* name) const {
        auto* const widget = window().centralWidget()->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    [[nodiscard]] QStringList column(const char* table, int column) const {
        const QAbstractItemModel& model = *find<QTableView>(table)->model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, column).data().toString());
        return texts;
    }

    [[nodiscard]] QStringList items(const char* box) const {
        QStringList texts;
        for (int i = 0; i < find<QComboBox>(box)->count(); ++i)
            texts.append(find<QComboBox>(box)->itemText(i));
        return texts;
    }

    static void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        // The editor of a cell commits after the key, and the window shows the row after that.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents();
    }

    /// Presses a key in the main window and lets `act` work in the editor that opens; then Escape closes it.
    template <typename Act>
    void inEditor(const QString& title, Qt::Key key, Qt::KeyboardModifiers modifiers, Act act) {
        bool isDone = false;
        QTimer::singleShot(0, &window(), [&] {
            auto* const editor = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(editor, nullptr);
            EXPECT_EQ(editor->windowTitle(), title);
            ASSERT_TRUE(QTest::qWaitFor([editor] { return QApplication::activeWindow() == editor; }));
            act(*editor->findChild<QTableView*>());
            QTest::keyClick(editor, Qt::Key_Escape);
            EXPECT_FALSE(editor->isVisible());
            isDone = true;
        });
        press(key, modifiers);
        EXPECT_TRUE(isDone) << "the editor is not modal, or has not opened";
        // Without a window manager nobody does it.
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &window(); }));
    }

    template <typename Act>
    void inCategoryEditor(Act act) {
        inEditor("Category Editor", Qt::Key_C, kControlShift, act);
    }

    template <typename Act>
    void inSetEditor(Act act) {
        inEditor("Transaction Sets", Qt::Key_S, kControlShift, act);
    }

    static void clickButton(const QTableView& table, const QString& accessibleName) {
        for (auto* const button : table.window()->findChildren<QPushButton*>()) {
            if (button->accessibleName() == accessibleName)
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        ADD_FAILURE() << accessibleName.toStdString();
    }

    static void clickRow(QTableView& table, const QString& name, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QModelIndexList found =
            table.model()->match(table.model()->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, table.visualRect(found[0]).center());
    }

    static void rename(QTableView& table, const QString& name, const QString& newName) {
        clickRow(table, name);
        press(Qt::Key_F2);
        typeName(newName);
    }

    /// Into the editor of a cell that is open.
    static void typeName(const QString& name) {
        QTest::keyClicks(QApplication::focusWidget(), name);
        press(Qt::Key_Return);
    }

    void search(const QString& text) const {
        find<QWidget>("mSearchField103")->setFocus();
        QTest::keyClicks(find<QWidget>("mSearchField103"), text);
    }

    FixedToday mToday{day(2014, 3, 7)};
    ScratchHome mHome;
    ScriptedAlerts mAlerts;
    ScriptedPanels mPanels;
    std::unique_ptr<CVAppDelegate> mDelegate;
};

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
        EXPECT_EQ(items("mTransactionSet"), (QStringList{"Initial Transaction Set", "Savings"}));
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
    document().removeTransactions(CVDocument::Transactions(document().transactions()));
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
    document().workbookSave();
    ASSERT_TRUE(mDelegate->saves().isSaving());
    inSetEditor([this](QTableView& table) {
        clickButton(table, "Add");
        EXPECT_TRUE(mDelegate->saves().isSaving());
        typeName("Savings");
        rename(table, "Initial Transaction Set", "Checking");
    });
    inCategoryEditor([this](QTableView& table) {
        document().workbookSave();
        EXPECT_TRUE(mDelegate->saves().isSaving());
        rename(table, "Fuel", "Petrol");
        clickButton(table, "Add");
        typeName("Apples");
    });
    quitAndStartAgain();
    EXPECT_EQ(document().transactions().size(), 20003U);
    EXPECT_EQ(items("mTransactionSet"), (QStringList{"Checking", "Savings"}));
    EXPECT_EQ(items("mExpenseCategoryComboBox"), (QStringList{"Apples", "Food", "Petrol"}));
    EXPECT_TRUE(mAlerts.shown().isEmpty());
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
