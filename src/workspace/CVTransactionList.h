#pragma once

#include "model/CVCompareTransactions.h"
#include "model/CVDocument.h"

/// The transactions of the current set on their way to the table, in three stages: all of the set, those of the date
/// range, and those that pass the search, sorted. Knows no windows; references the document, which outlives it.
class CVTransactionList final {
public:
    /// How many transactions, and their amounts added up and rounded once to two places.
    struct Totals {
        std::size_t count = 0;
        double amount = 0;
    };

    explicit CVTransactionList(CVDocument& document) : mDocument(document) {}

    /// Stage 1: the transactions of the document's current set, in document order. The further stages stay.
    void collectTransactions();
    /// Stage 2 from stage 1.
    void getTransactions();
    /// Stage 3 from stage 2, not yet sorted.
    void filterTransactions();
    /// Sorts stage 3 as the user defaults say; a user without a choice gets, and keeps, newest first.
    void doUserSort();
    /// The user asks for that column: every time the direction turns round, also with another column than before. The
    /// choice is kept; nothing is sorted yet.
    void chooseSortColumn(const QString& identifier);
    /// The order of the last sort.
    [[nodiscard]] const CVTransactionSortContext& sortContext() const { return mTransactionSortContext; }

    /// Stage 1.
    [[nodiscard]] const CVDocument::Transactions& transactions() const { return mTransactionArray; }
    /// Stage 3.
    [[nodiscard]] const CVDocument::Transactions& displayTransactions() const { return mDisplayTransactionArray; }
    [[nodiscard]] Totals totals() const { return totalsOf(mTransactionArray); }
    [[nodiscard]] Totals displayTotals() const { return totalsOf(mDisplayTransactionArray); }

private:
    [[nodiscard]] static Totals totalsOf(const CVDocument::Transactions& transactions);

    CVDocument& mDocument;
    CVDocument::Transactions mTransactionArray;
    CVDocument::Transactions mDateSelectedTransactionArray;
    CVDocument::Transactions mDisplayTransactionArray;
    CVTransactionSortContext mTransactionSortContext;
};
