#pragma once

#include "shared/format/QBMoneyFormatter.h"

#include <QWidget>

class CVFigureField;
class CVTransactionList;
class CVTransactionTableView;
class QHBoxLayout;
class QPushButton;

/// The list of transactions with its counts and sums, and the button that removes what is selected.
class CVTransactionsTab final : public QWidget {
    Q_OBJECT

public:
    /// `list` outlives the tab.
    explicit CVTransactionsTab(const CVTransactionList& list, QWidget* parent = nullptr);

    [[nodiscard]] CVTransactionTableView& table() const { return *mTransactionTable; }
    /// Counts and sums of the list as it is now.
    void showTotalsAndCountsField();

signals:
    void removeRequested();

private:
    [[nodiscard]] CVFigureField* addFigure(QHBoxLayout& layout, const char* objectName, const QString& label,
                                           const QString& accessibleName);
    void updateRemoveButton();

    const CVTransactionList& mList;
    QBMoneyFormatter mMoneyFormatter;
    CVTransactionTableView* mTransactionTable;
    QPushButton* mRemoveTransactionButton;
    CVFigureField* mNumberOfTransactionsField1;
    CVFigureField* mTotalNumberOfTransactionsField1;
    CVFigureField* mTotalAmountShownField;
    CVFigureField* mTotalAmountField;
};
