#pragma once

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
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

/// The whole program on its own data file: shows the effect of an editor on the main window behind it.
class EditorWindowsFixture : public testing::Test {
protected:
    static constexpr Qt::KeyboardModifiers kControlShift = Qt::ControlModifier | Qt::ShiftModifier;

    void SetUp() override {
        start();
        removeStandardCategories();
        record(day(2014, 3, 6), 30, "Market", "Food");
        record(day(2014, 3, 5), 12.5, "Baker", "Food");
        record(day(2014, 3, 4), 40, "Station", "Fuel");
        mDelegate->mainWindow()->getStarted();
    }

    /// Without help there is no Help button.
    void start(CVHelpOpener* help = nullptr) {
        mDelegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), mAlerts, mPanels);
        mDelegate->setHelp(help);
        ASSERT_TRUE(mDelegate->applicationDidFinishLaunching());
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

    /// Finds a widget of the main window only: an editor is a child of the main window and has a table of the same
    /// name.
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
        // The cell editor commits after the key event, and the window shows the row after that.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents();
    }

    /// Presses a key in the main window, lets `act` work in the editor that opens, then closes it with Escape.
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
        // No window manager activates the main window again in the tests.
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

    /// Types a name into the open cell editor.
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
