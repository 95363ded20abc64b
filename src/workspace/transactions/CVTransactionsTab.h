#pragma once

#include "format/QBMoneyFormatter.h"

#include <QWidget>

class CVCopyableField;
class CVRangeControls;
class CVSearchField;
class CVTransaction;
class CVTransactionList;
class CVTransactionTableView;
class CVWrappingLayout;
class QPushButton;

/// The list of transactions with its range, its search, its counts and totals, and the button that removes the selected
/// transactions.
class CVTransactionsTab final : public QWidget {
    Q_OBJECT

public:
    /// `list` outlives the tab.
    explicit CVTransactionsTab(const CVTransactionList& list, QWidget* parent = nullptr);

    [[nodiscard]] CVTransactionTableView& table() const { return *mTransactionTable; }
    [[nodiscard]] CVRangeControls& rangeControls() const { return *mRangeControls; }
    [[nodiscard]] CVSearchField& searchField() const { return *mSearchField; }
    /// Shows the counts and totals of the current list.
    void showTotalsAndCountsField();
    /// Shows for a few seconds why a recorded transaction is not in the list.
    void tellNotListed(const CVTransaction& transaction);
    /// Shows all dates and amounts in the locale now in force.
    void updateFormatters();

signals:
    void removeRequested();
    void printRequested();

protected:
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] CVWrappingLayout* makeHeader();
    [[nodiscard]] CVWrappingLayout* makeFooter();
    void updateRemoveButton();

    const CVTransactionList& mList;
    QBMoneyFormatter mMoneyFormatter;
    CVRangeControls* mRangeControls;
    CVSearchField* mSearchField;
    CVTransactionTableView* mTransactionTable;
    QPushButton* mRemoveTransactionButton;
    CVCopyableField* mNumberOfTransactionsField1 = nullptr;
    CVCopyableField* mTotalNumberOfTransactionsField1 = nullptr;
    CVCopyableField* mTotalAmountShownField = nullptr;
    CVCopyableField* mTotalAmountField = nullptr;
};
