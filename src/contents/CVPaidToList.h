#pragma once

#include "model/CVCollections.h"

#include <QSet>
#include <QStringList>

/// The payees that are offered for completion: the first few different ones among the transactions, the last found
/// first. Keeps one transaction for each payee.
class CVPaidToList final {
public:
    /// Fills the list anew with at most `numberOfItems` payees of `transactions`; with none for 0 or less.
    void update(const CVTransactions& transactions, int numberOfItems);

    [[nodiscard]] const CVTransactions& transactions() const { return mExpenseCreatedTransactionArray; }
    [[nodiscard]] QStringList payees() const;

private:
    void addToExpensePopUp(const std::shared_ptr<CVTransaction>& transaction, std::size_t numberOfItems);

    CVTransactions mExpenseCreatedTransactionArray;
    QSet<QString> mPayees;
};
