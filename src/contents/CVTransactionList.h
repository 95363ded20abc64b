#pragma once

#include "budget/CVDayRange.h"
#include "model/CVCompareTransactions.h"
#include "model/CVDocument.h"

#include <QString>

/// The transactions of the current set on their way to the table, in three stages: all of the set, those of the date
/// range, and those that pass the search, sorted. Knows no windows; references the document, which outlives it.
class CVTransactionList final {
public:
    /// How many transactions, and their amounts added up in their order and rounded once to two places.
    struct Totals {
        std::size_t count = 0;
        double amount = 0;
    };

    explicit CVTransactionList(CVDocument& document);

    /// Item 0 to 7 of the range pop-up; another number leaves the range as it is.
    void setTransactionPeriod(int preset) { mTransactionPeriod = preset; }
    [[nodiscard]] int transactionPeriod() const { return mTransactionPeriod; }
    /// The range as its pop-up has it on the day `today`; the stages stay.
    void setRangeFromPreset(const QBDate& today);
    void setRange(const CVDayRange& range) { mRange = range; }
    [[nodiscard]] const CVDayRange& range() const { return mRange; }
    /// While the range is that of "All", it grows to hold a transaction's new date.
    void updateDisplayDatesWithTransaction(const CVTransaction& transaction);

    /// A kind of search by its number.
    void setSearchType(int kind) { mSearchType = kind; }
    [[nodiscard]] int searchType() const { return mSearchType; }
    /// As typed, not trimmed; empty: everything passes.
    void setSearchText(const QString& text) { mSearchText = text; }
    [[nodiscard]] const QString& searchText() const { return mSearchText; }

    /// Stage 1: the transactions of the document's current set, in document order. The further stages stay.
    void collectTransactions();
    /// Stage 2 from stage 1: the transactions in the range, and the undated ones where "All" is shown.
    void getTransactions();
    /// Stage 3 from stage 2, not yet sorted.
    void filterTransactions();
    /// Sorts stage 3 as the user defaults say; a user without a choice gets, and keeps, newest first.
    void doUserSort();
    /// Stage 3 anew for the search, sorted.
    void refilter();
    /// The stages 2 and 3 anew from stage 1, sorted.
    void rebuild();
    /// The user asks for that column: every time the direction turns round, also with another column than before. The
    /// choice is kept; nothing is sorted yet.
    void chooseSortColumn(const QString& identifier);
    /// The order of the last sort.
    [[nodiscard]] const CVTransactionSortContext& sortContext() const { return mTransactionSortContext; }

    /// Stage 1.
    [[nodiscard]] const CVDocument::Transactions& transactions() const { return mTransactions; }
    /// Stage 3. A transaction can stand in it twice.
    [[nodiscard]] const CVDocument::Transactions& displayTransactions() const { return mDisplayTransactionArray; }
    [[nodiscard]] Totals totals() const;
    [[nodiscard]] Totals displayTotals() const;

private:
    [[nodiscard]] bool showsUndated() const;

    CVDocument& mDocument;
    int mTransactionPeriod = 0;
    CVDayRange mRange;
    int mSearchType = 0;
    QString mSearchText;
    CVDocument::Transactions mTransactions;
    CVDocument::Transactions mDateSelectedTransactionArray;
    CVDocument::Transactions mDisplayTransactionArray;
    CVTransactionSortContext mTransactionSortContext;
};
