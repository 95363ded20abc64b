#pragma once

#include "budget/CVDayRange.h"
#include "model/CVCompareTransactions.h"
#include "model/CVDocument.h"
#include "workspace/CVSetTransactions.h"
#include "workspace/CVTransactionSearch.h"

#include <QString>

/// The transactions of the current set on their way to the table, in three stages: all of the set, those of the date
/// range, and those that pass the search, sorted. Knows no windows; references the document, which outlives it.
/// Stage 1 shares the ownership of its transactions; the others, and whoever shows them, refer to what it owns.
class CVTransactionList final {
public:
    using Rows = std::vector<CVTransaction*>;

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
    void setSearchType(int kind) { mQuery.kind = kind; }
    [[nodiscard]] int searchType() const { return mQuery.kind; }
    /// As typed, not trimmed; empty: everything passes.
    void setSearchText(const QString& text) { mQuery.text = text; }
    [[nodiscard]] const QString& searchText() const { return mQuery.text; }

    /// Stage 1: the transactions of the document's current set, in document order. The further stages stay, and what
    /// they, or a table, refer to lives until `releaseTakenOut`.
    void collectTransactions();
    /// The document's change count at the last collection; absent before.
    [[nodiscard]] const std::optional<quint64>& collectedAt() const { return mSetTransactions.collectedAt(); }
    /// Nobody shows what the last collections took out of stage 1 any more.
    void releaseTakenOut() { mSetTransactions.releaseTakenOut(); }
    /// Stage 2 from stage 1: the transactions in the range, and the undated ones where "All" is shown.
    void getTransactions();
    /// Stage 3 from stage 2, not yet sorted; or from itself, sorted, where the search was only typed on.
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
    [[nodiscard]] const CVDocument::Transactions& transactions() const { return mSetTransactions.transactions(); }
    /// Stage 3. A transaction can stand in it twice.
    [[nodiscard]] const Rows& displayTransactions() const { return mDisplayTransactionArray; }
    [[nodiscard]] Totals totals() const;
    [[nodiscard]] Totals displayTotals() const;

    /// The shared objects behind rows, each once, in the order of stage 1.
    [[nodiscard]] CVDocument::Transactions owned(const Rows& rows) const;
    /// Stage 3 with a share in the ownership of stage 1.
    [[nodiscard]] CVDocument::Transactions sharedDisplayTransactions() const;

private:
    /// What stage 3 was made of stage 2 with, at one of the document's change counts.
    struct Search {
        quint64 changeCount = 0;
        CVSearchQuery query;
    };

    [[nodiscard]] bool showsUndated() const;
    [[nodiscard]] bool searchNarrows() const;

    CVDocument& mDocument;
    int mTransactionPeriod = 0;
    CVDayRange mRange;
    CVSearchQuery mQuery;
    CVSetTransactions mSetTransactions;
    Rows mDateSelectedTransactionArray;
    Rows mDisplayTransactionArray;
    CVTransactionSortContext mTransactionSortContext;
    /// Whether stage 2 was made of stage 1 as it is, and holds all of it.
    bool mRangeHoldsAll = false;
    std::optional<Search> mSearched;
    /// The document's change count when stage 3 was last sorted; absent when it is not, or lines lack what they are
    /// sorted by.
    std::optional<quint64> mSortedAt;
};
