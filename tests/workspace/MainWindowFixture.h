#pragma once

#include "kit/BudgetBuilder.h"
#include "kit/CountingSaver.h"
#include "kit/FixedToday.h"
#include "kit/ScriptedAlerts.h"
#include "kit/ScriptedPanels.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/transactions/CVTransactionTableModel.h"
#include "workspace/transactions/CVTransactionTableView.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

/// The real main window on a budget of the test's own; today is 7 March 2014. Keys go to the widget with the focus.
class MainWindowFixture : public testing::Test {
protected:
    using Column = CVTransactionTableModel::Column;

    MainWindowFixture() { mBudget.document().setSaver(&mSaver); }

    /// Every alert must have been given the window of its asker.
    void TearDown() override {
        EXPECT_EQ(mAlerts.owners(), QStringList(mAlerts.shown().size(), "Corvella Main Window"));
    }

    void open() {
        mController = std::make_unique<CVMainWindowController>(document(), mAlerts, mPanels);
        mController->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    [[nodiscard]] CVDocument& document() { return mBudget.document(); }
    [[nodiscard]] QMainWindow& window() const { return *mController->window(); }
    [[nodiscard]] CVTransactionTableView& table() const { return *find<CVTransactionTableView>("mTransactionTable"); }

    template <typename Widget>
    [[nodiscard]] Widget* find(const char* name) const {
        auto* const widget = window().findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    static void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    static void type(const QString& text) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }

    void focus(const char* name) const { find<QWidget>(name)->setFocus(); }

    /// Replaces the text of a field.
    void type(const char* name, const QString& text) const {
        focus(name);
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        type(text);
    }

    void fillIn(const QString& amount, const QString& payTo, const QString& category) const {
        type("mExpenseAmountField", amount);
        type("mExpenseToFromComboBox", payTo);
        type("mExpenseCategoryComboBox", category);
    }

    /// The text of a field or a combo box.
    [[nodiscard]] QString textOf(const char* name) const {
        const auto* const widget = find<QWidget>(name);
        const auto* const field = qobject_cast<const QLineEdit*>(widget);
        return field ? field->text() : widget->property("currentText").toString();
    }

    /// The texts of one column of the table, from the top.
    [[nodiscard]] QStringList column(Column column) const {
        QStringList texts;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            texts.append(table().model()->index(row, column).data().toString());
        return texts;
    }

    void clickHeader(Column column) const {
        const QHeaderView& header = *table().horizontalHeader();
        QTest::mouseClick(
            header.viewport(), Qt::LeftButton, {},
            QPoint(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, header.height() / 2));
    }

    FixedToday mToday{day(2014, 3, 7)};
    BudgetBuilder mBudget;
    CountingSaver mSaver;
    ScriptedAlerts mAlerts;
    ScriptedPanels mPanels;
    std::unique_ptr<CVMainWindowController> mController;
};
