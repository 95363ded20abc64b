#pragma once

#include "editors/CVEditorTable.h"
#include "editors/CVEditorWindow.h"
#include "kit/BudgetBuilder.h"
#include "kit/CountingSaver.h"
#include "kit/FixedToday.h"
#include "kit/NotificationCounter.h"
#include "kit/ScriptedAlerts.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

/// An editor on a budget of the test's own; today is 7 March 2014. Keys go to the widget with the focus, and the model
/// is checked for consistency.
class EditorFixture : public testing::Test {
protected:
    explicit EditorFixture(const char* table) : mTableName(table) { mBudget.document().setSaver(&mSaver); }

    /// Every alert must have been given the window of its asker.
    void TearDown() override {
        EXPECT_EQ(mAlerts.owners(), QStringList(mAlerts.shown().size(), mWindow ? mWindow->windowTitle() : QString()));
    }

    template <typename Controller, typename... Arguments>
    Controller& open(Arguments&&... arguments) {
        auto window = std::make_unique<Controller>(document(), std::forward<Arguments>(arguments)...);
        Controller& controller = *window;
        mWindow = std::move(window);
        mNotifications.reset();
        mWindow->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
        mTester = std::make_unique<QAbstractItemModelTester>(table().model(),
                                                             QAbstractItemModelTester::FailureReportingMode::Fatal);
        return controller;
    }

    [[nodiscard]] CVDocument& document() { return mBudget.document(); }
    [[nodiscard]] QDialog& window() const { return *mWindow; }
    [[nodiscard]] CVEditorTable& table() const { return *find<CVEditorTable>(mTableName); }
    [[nodiscard]] QModelIndex cell(int row, int column) const { return table().model()->index(row, column); }
    [[nodiscard]] QString remark() const { return find<QLabel>("mRemark")->text(); }

    template <typename Widget>
    [[nodiscard]] Widget* find(const char* name) const {
        auto* const widget = window().findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    /// The button with that accessible name; null when there is none.
    [[nodiscard]] QPushButton* button(const QString& accessibleName) const {
        for (auto* const button : window().findChildren<QPushButton*>()) {
            if (button->accessibleName() == accessibleName)
                return button;
        }
        return nullptr;
    }

    void clickButton(const QString& accessibleName) const {
        ASSERT_NE(button(accessibleName), nullptr);
        QTest::mouseClick(button(accessibleName), Qt::LeftButton);
    }

    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        table().scrollTo(cell(row, column));
        QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers,
                          table().visualRect(cell(row, column)).center());
    }

    static void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    static void type(const QString& text) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }

    /// Presses a key and processes posted events: a cell editor commits after the key event.
    static void commit(Qt::Key key = Qt::Key_Return) {
        press(key);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    /// Opens the editor of the current row and pastes a text over its content; a pasted text may contain characters
    /// that no key types.
    static void startRenaming(const QString& text) {
        press(Qt::Key_F2);
        press(Qt::Key_Delete);
        QGuiApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }

    void rename(int row, const QString& text) const {
        clickCell(row, 0);
        startRenaming(text);
        commit();
    }

    /// The texts of one column of the table, from the top.
    [[nodiscard]] QStringList column(int column) const {
        QStringList texts;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            texts.append(cell(row, column).data().toString());
        return texts;
    }

    /// Whether the row is visible without scrolling.
    [[nodiscard]] bool isVisible(int row) const {
        return table().viewport()->rect().contains(table().visualRect(cell(row, 0)).center());
    }

    FixedToday mToday{day(2014, 3, 7)};
    BudgetBuilder mBudget;
    CountingSaver mSaver;
    ScriptedAlerts mAlerts;
    NotificationCounter mNotifications{mBudget.notificationCenter()};
    std::unique_ptr<CVEditorWindow> mWindow;

private:
    const char* mTableName;
    std::unique_ptr<QAbstractItemModelTester> mTester;
};
