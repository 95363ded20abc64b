#pragma once

#include "format/QBMoneyFormatter.h"

#include <QWidget>

class CVFigureField;
class CVRangeControls;
class CVSearchField;
class CVTransaction;
class CVTransactionList;
class CVTransactionTableView;
class CVWrappingLayout;
class QPushButton;

/// The list of transactions with its range, its search, its counts and sums, and the button that removes what is
/// selected.
class CVTransactionsTab final : public QWidget {
    Q_OBJECT

public:
    /// `list` outlives the tab.
    explicit CVTransactionsTab(const CVTransactionList& list, QWidget* parent = nullptr);

    [[nodiscard]] CVTransactionTableView& table() const { return *mTransactionTable; }
    [[nodiscard]] CVRangeControls& rangeControls() const { return *mRangeControls; }
    [[nodiscard]] CVSearchField& searchField() const { return *mSearchField; }
    /// Counts and sums of the list as it is now.
    void showTotalsAndCountsField();
    /// Says for a few seconds why a transaction that was recorded is not among those that are listed.
    void tellNotListed(const CVTransaction& transaction);
    /// Shows everything in the locale in force.
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
    CVFigureField* mNumberOfTransactionsField1 = nullptr;
    CVFigureField* mTotalNumberOfTransactionsField1 = nullptr;
    CVFigureField* mTotalAmountShownField = nullptr;
    CVFigureField* mTotalAmountField = nullptr;
};
