#pragma once

#include "contents/CVTransactionList.h"
#include "widgets/tables/CVTableView.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>

class CVTransactionCellDelegate;
class CVTransactionColumnLayout;
class CVTransactionTableModel;
class QPushButton;

/// The transaction table. Whole rows are selected. Selection and scroll position survive a reload as far as the same
/// transactions are still shown. A double-click, F2 or Return edits a cell; typed letters select a row by the sort
/// column.
class CVTransactionTableView final : public CVTableView {
    Q_OBJECT

public:
    /// `list` outlives the table.
    explicit CVTransactionTableView(const CVTransactionList& list, QWidget* parent = nullptr);
    ~CVTransactionTableView() override;

    /// Shows the list and its order as they are now. Call `reorder` for rows that have only changed places: an open
    /// editor stays.
    void reload();
    void reorder();
    /// Shows dates and amounts in the locale now in force.
    void updateFormatters();
    /// The selected transactions in row order, each once.
    [[nodiscard]] const CVTransactions& selectedTransactions() const { return mSelectedTransactions; }
    /// Selects the first row of each of these transactions and nothing else, and scrolls to the first; false when none
    /// is shown.
    bool selectTransactions(const CVTransactions& transactions);
    /// Scrolls to the row of a transaction and tints it for a moment; false when it is not shown.
    [[nodiscard]] bool reveal(const CVTransaction* transaction);

    /// Sets the items to which the editor of payees or categories completes.
    void setPaidToItems(const QStringList& items);
    void setCategoryItems(const QStringList& items);

    /// The widths and the order of the columns.
    [[nodiscard]] CVTransactionColumnLayout& columnLayout() const { return *mColumnLayout; }

    void keyboardSearch(const QString& search) override;

signals:
    /// The user clicked the header of the column with that identifier.
    void columnClicked(const QString& identifier);
    void selectedTransactionsChanged();
    /// The user gave a cell a value; see `CVTransactionTableModel::edited`.
    void edited(int row, int column, const QVariant& value);
    /// The user wants to clear the search.
    void clearSearchRequested();

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void setUpHeader();
    void reloadModel();
    [[nodiscard]] QItemSelection rowsOf(const CVTransactions& transactions) const;
    void restoreCurrent(const CVTransaction& transaction, const QModelIndex& before);
    void updateSelectedTransactions();
    [[nodiscard]] QString emptyText() const;
    void placeClearSearch();
    void showOrder();
    [[nodiscard]] int sortColumn() const;

    const CVTransactionList& mList;
    CVTransactionTableModel* mModel;
    CVTransactionCellDelegate* mDelegate;
    std::unique_ptr<CVTransactionColumnLayout> mColumnLayout;
    QPushButton* mClearSearch;
    CVTransactions mSelectedTransactions;
    /// The time since the last letter that was typed to find a row.
    QElapsedTimer mTypedAhead;
    /// Runs while a row is tinted.
    QTimer mTint;
};
