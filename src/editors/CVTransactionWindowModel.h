#pragma once

#include "contents/CVTransactionText.h"
#include "editors/CVEditorModel.h"
#include "model/CVCollections.h"

/// The rows of the window with the transactions behind a cell of the budget grid, in the order in which they were
/// passed.
class CVTransactionWindowModel final : public CVEditorModel {
    Q_OBJECT

public:
    enum Column { UserFlag, Date, Amount, PayTo, ColumnCount };

    explicit CVTransactionWindowModel(CVTransactions transactions, QObject* parent = nullptr);

    [[nodiscard]] const CVTransactions& transactions() const { return mTransactions; }
    /// Shows the changed flag of a row.
    void showFlag(int row);
    /// Shows dates and amounts in the locale now in force.
    void updateFormatters();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

protected:
    [[nodiscard]] QVariant cell(int row, int column, int role) const override;

private:
    [[nodiscard]] QString text(const CVTransaction& transaction, int column) const;

    CVTransactions mTransactions;
    CVTransactionText mText;
};
