#include "CVMeasurements.h"
#include "CVOpenBudget.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/transactions/CVTransactionTableView.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <benchmark/benchmark.h>

namespace {

/// Selects the first rows of the list.
void select(CVTransactionTableView& table, int rows) {
    const auto& model = *table.model();
    const QItemSelection selection(model.index(0, 0), model.index(rows - 1, model.columnCount() - 1));
    table.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

/// Removing the first `count` rows of the list, which then come back.
void measureRemoving(benchmark::State& state, std::size_t transactions, int count) {
    CVOpenBudget open(transactions);
    CVDocument& document = open.document();
    auto& table = open.find<CVTransactionTableView>("mTransactionTable");
    auto& remove = open.find<QPushButton>("mRemoveTransactionButton");
    CVTransactions removed;
    const auto restore = [&] {
        for (const auto& transaction : removed)
            document.addTransaction(transaction);
        document.sortTransactionsByDate();
        open.controller().getStarted();
        select(table, count);
        removed = table.selectedTransactions();
    };
    open.measure(state, restore, [&] { remove.click(); });
    if (document.transactions().size() != transactions - static_cast<std::size_t>(count))
        state.SkipWithError("the transactions were not removed");
}

} // namespace

void CVMeasureRecord(benchmark::State& state, std::size_t transactions) {
    CVOpenBudget open(transactions);
    auto& category = open.find<QComboBox>("mExpenseCategoryComboBox");
    auto& record = open.find<QPushButton>("mRecordButton");
    int next = 0;
    const auto fillIn = [&] {
        open.find<QLineEdit>("mExpenseAmountField").setText(QStringLiteral("12.34"));
        open.find<QComboBox>("mExpenseToFromComboBox").setEditText(QStringLiteral("Corner Market"));
        category.setEditText(category.itemText(++next % category.count()));
    };
    open.measure(state, fillIn, [&] { record.click(); });
    if (open.document().transactions().size() <= transactions)
        state.SkipWithError("nothing was recorded");
}

void CVMeasureCellEdit(benchmark::State& state, std::size_t transactions) {
    CVOpenBudget open(transactions);
    auto& table = open.find<CVTransactionTableView>("mTransactionTable");
    const QModelIndex cell = table.model()->index(3, CVTransactionColumns::For);
    int next = 0;
    QString typed;
    const auto typeText = [&] {
        table.setFocus();
        table.setCurrentIndex(cell);
        table.edit(cell);
        typed = QStringLiteral("bread %1").arg(++next);
        QApplication::focusWidget()->setProperty("text", typed);
    };
    open.measure(state, typeText, [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); });
    if (cell.data().toString() != typed)
        state.SkipWithError("the cell was not changed");
}

void CVMeasureRemoveOne(benchmark::State& state, std::size_t transactions) {
    measureRemoving(state, transactions, 1);
}

void CVMeasureRemoveHalf(benchmark::State& state, std::size_t transactions) {
    measureRemoving(state, transactions, static_cast<int>(transactions / 2));
}
