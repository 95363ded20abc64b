#pragma once

#include "kit/ScriptedPrintPanels.h"
#include "workspace/MainWindowFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QTabWidget>

inline constexpr quint32 kHousehold = 4;
inline constexpr quint32 kSavings = 5;

/// Two sets; the household is the current one.
class AllSetsFixture : public MainWindowFixture {
protected:
    AllSetsFixture() {
        mBudget.set("Household", kHousehold)
            .set("Savings", kSavings)
            .currentSet(kHousehold)
            .category("Food", 1, CVExpenseFrequency::kMonthly, 100)
            .category("Fees", 2)
            .lastID(9);
        mBudget
            .transaction(
                {.date = day(2014, 3, 6), .amount = 10, .payTo = "Market", .category = "Food", .set = "Household"})
            .transaction({.date = day(2014, 3, 5), .amount = 3, .payTo = "Bank", .category = "Fees", .set = "Savings"})
            .transaction(
                {.date = day(2014, 3, 4), .amount = 20, .payTo = "Baker", .category = "Food", .set = "Savings"})
            .transaction(
                {.date = day(2014, 3, 3), .amount = 40, .payTo = "Butcher", .category = "Food", .set = "Household"})
            .inOrder();
    }

    void SetUp() override {
        open();
        mController->setPrintPanels(&mPrintPanels);
    }

    void TearDown() override {
        for (const QString& owner : mAlerts.owners())
            EXPECT_TRUE(owner.startsWith("Corvella Main Window"));
    }

    [[nodiscard]] QComboBox& picker() const { return *find<QComboBox>("mTransactionSet"); }
    [[nodiscard]] QLabel& note() const { return *find<QLabel>("mRecordingNote"); }

    void pickAllSets() const {
        picker().setFocus();
        press(Qt::Key_End);
    }
    void pickFirstSet() const {
        picker().setFocus();
        press(Qt::Key_Home);
    }
    void showTab(int index) const { find<QTabWidget>("mMainTabView")->setCurrentIndex(index); }

    [[nodiscard]] QStringList payees() const { return column(Column::ToFrom); }
    [[nodiscard]] QStringList texts(const char* table) const {
        const QAbstractItemModel& model = *find<QTableView>(table)->model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column)
                texts.append(model.index(row, column).data().toString());
        }
        return texts;
    }

    [[nodiscard]] quint32 setOf(const QString& payee) {
        for (const auto& transaction : document().transactions()) {
            if (transaction->payTo() == payee)
                return transaction->transactionSetID();
        }
        ADD_FAILURE() << payee.toStdString();
        return 0;
    }

    void select(const QString& payee) const {
        table().setFocus();
        table().clearSelection();
        table().selectRow(static_cast<int>(payees().indexOf(payee)));
    }

    [[nodiscard]] QStringList sortMenu() const {
        QStringList titles;
        for (const QMenu* const menu : window().menuBar()->findChildren<QMenu*>()) {
            if (menu->title().remove('&') != "Sort By")
                continue;
            for (const QAction* const action : menu->actions())
                titles.append(action->text());
        }
        return titles;
    }

    ScriptedPrintPanels mPrintPanels;
};
