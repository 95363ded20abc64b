#pragma once

#include "model/CVDocument.h"

#include <QTableView>
#include <QTimer>

class CVTransactionCellDelegate;
class CVTransactionList;
class CVTransactionTableModel;

/// The transaction table. Whole rows are selected; the selection and the scroll position survive a reload as far as the
/// same transactions are still shown.
class CVTransactionTableView final : public QTableView {
    Q_OBJECT

public:
    /// `list` outlives the table.
    explicit CVTransactionTableView(const CVTransactionList& list, QWidget* parent = nullptr);

    /// Shows the list and its order as they are now.
    void reload();
    /// In row order.
    [[nodiscard]] const CVDocument::Transactions& selectedTransactions() const { return mSelectedTransactions; }
    /// Scrolls to the row of a transaction and tints it for a moment; nothing when it is not shown.
    void reveal(const CVTransaction* transaction);

    /// The widths of the columns, for `restoreColumns`.
    [[nodiscard]] QByteArray saveColumns() const;
    /// Nothing that `saveColumns` has made: the usual widths.
    void restoreColumns(const QByteArray& columns);

    void keyboardSearch(const QString& search) override;

signals:
    /// The user clicked the header of that column.
    void columnClicked(const QString& identifier);
    void selectedTransactionsChanged();

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void setUpHeaders();
    void setUsualWidths();
    void updateRowHeight();
    void restoreSelection(const CVDocument::Transactions& selection);
    void restoreCurrent(const CVTransaction& transaction, const QModelIndex& before);
    void updateSelectedTransactions();

    const CVTransactionList& mList;
    CVTransactionTableModel* mModel;
    CVTransactionCellDelegate* mDelegate;
    CVDocument::Transactions mSelectedTransactions;
    /// Runs while a row is tinted.
    QTimer mTint;
};
