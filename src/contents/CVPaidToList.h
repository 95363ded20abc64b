#pragma once

#include "model/CVDocument.h"

#include <QSet>
#include <QStringList>

/// The payees offered for completion: the first few different ones of a walk over transactions, the last found first.
/// Keeps the transactions that name them, with pairwise different texts.
class CVPaidToList final {
public:
    /// Fills the list anew with at most `numberOfItems` payees of `transactions`; none for 0 and less.
    void update(const CVDocument::Transactions& transactions, int numberOfItems);

    [[nodiscard]] const CVDocument::Transactions& transactions() const { return mExpenseCreatedTransactionArray; }
    [[nodiscard]] QStringList payees() const;

private:
    void addToExpensePopUp(const std::shared_ptr<CVTransaction>& transaction, std::size_t numberOfItems);

    CVDocument::Transactions mExpenseCreatedTransactionArray;
    QSet<QString> mPayees;
};
