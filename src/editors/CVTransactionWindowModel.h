#pragma once

#include "contents/CVTransactionText.h"
#include "editors/CVEditorModel.h"
#include "model/CVDocument.h"

/// The rows of the window with the transactions behind a cell of the budget grid, in the order in which they were
/// passed.
class CVTransactionWindowModel final : public CVEditorModel {
    Q_OBJECT

public:
    enum Column { UserFlag, Date, Amount, PayTo, ColumnCount };

    explicit CVTransactionWindowModel(CVDocument::Transactions transactions, QObject* parent = nullptr);

    [[nodiscard]] const CVDocument::Transactions& transactions() const { return mTransactions; }
    /// Shows the changed flag of a row.
    void showFlag(int row);
    /// Shows dates and amounts in the locale now in force.
    void updateFormatters();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

protected:
    [[nodiscard]] QVariant cell(int row, int column, int role) const override;

private:
    [[nodiscard]] QString text(const CVTransaction& transaction, int column) const;

    CVDocument::Transactions mTransactions;
    CVTransactionText mText;
};
