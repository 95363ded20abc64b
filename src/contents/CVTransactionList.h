#pragma once

#include "budget/CVDayRange.h"
#include "contents/CVShownSets.h"
#include "model/CVCollections.h"
#include "model/CVCompareTransactions.h"

#include <QString>

#include <optional>

class CVDocument;

/// Chooses the transactions for the table in three stages: all of the current set or of all sets, those in the date
/// range, and those that match the search, sorted. References the document, which outlives it.
class CVTransactionList final {
public:
    /// The number of transactions, and the sum of their amounts, added in order and rounded once to two places.
    struct Totals {
        std::size_t count = 0;
        double amount = 0;

        [[nodiscard]] static Totals of(const CVTransactions& transactions);
    };

    explicit CVTransactionList(CVDocument& document);

    /// Whether the list is of the current set, as at first, or of all sets; takes effect with the next
    /// `collectTransactions`. Nothing of it is stored.
    void setShownSets(CVShownSets shownSets);
    [[nodiscard]] CVShownSets shownSets() const { return mShownSets; }

    /// Sets the item of the range pop-up, 0 to 7; with another number `setRangeFromPreset` does nothing.
    void setTransactionPeriod(int preset) { mTransactionPeriod = preset; }
    [[nodiscard]] int transactionPeriod() const { return mTransactionPeriod; }
    /// Sets the range of the pop-up's item on the day `today`; the stages do not change.
    void setRangeFromPreset(const QBDate& today);
    void setRange(const CVDayRange& range) { mRange = range; }
    [[nodiscard]] const CVDayRange& range() const { return mRange; }
    /// Extends the range to a transaction's new date while the item is "All".
    void updateDisplayDatesWithTransaction(const CVTransaction& transaction);

    /// Sets the kind of search by its number (`CVSearchKind`).
    void setSearchType(int kind) { mSearchType = kind; }
    [[nodiscard]] int searchType() const { return mSearchType; }
    /// The text as typed, not trimmed; every transaction matches an empty text.
    void setSearchText(const QString& text) { mSearchText = text; }
    [[nodiscard]] const QString& searchText() const { return mSearchText; }

    /// Fills stage 1 with the transactions of the shown sets, in document order. The other stages do not
    /// change.
    void collectTransactions();
    /// Fills stage 2 with the transactions of stage 1 in the range; also with the undated ones when "All" is shown.
    void getTransactions();
    /// Fills stage 3 with the transactions of stage 2 that match the search, not sorted.
    void filterTransactions();
    /// Sorts stage 3 as the user defaults say; without a stored choice it sorts newest first, and stores that.
    void doUserSort();
    /// Fills and sorts stage 3 anew.
    void refilter();
    /// Fills stages 2 and 3 anew from stage 1, and sorts stage 3.
    void rebuild();
    /// Stores the user's choice of a column and reverses the direction, also when the column is another one than
    /// before. Does not sort. The order by set is kept here alone, because it means nothing for one set.
    void chooseSortColumn(const QString& identifier);
    /// The order of the last sort.
    [[nodiscard]] const CVTransactionSortContext& sortContext() const { return mTransactionSortContext; }

    /// Stage 1.
    [[nodiscard]] const CVTransactions& transactions() const { return mTransactions; }
    /// Stage 3, which can hold a transaction twice.
    [[nodiscard]] const CVTransactions& displayTransactions() const { return mDisplayTransactionArray; }
    [[nodiscard]] Totals totals() const;
    [[nodiscard]] Totals displayTotals() const;

private:
    [[nodiscard]] bool showsUndated() const;
    [[nodiscard]] CVTransactionSortContext storedOrder();

    CVDocument& mDocument;
    CVShownSets mShownSets = CVShownSets::Current;
    /// The order by set that the user has chosen; absent where the stored order counts.
    std::optional<CVTransactionSortContext> mOrderBySet;
    int mTransactionPeriod = 0;
    CVDayRange mRange;
    int mSearchType = 0;
    QString mSearchText;
    CVTransactions mTransactions;
    CVTransactions mDateSelectedTransactionArray;
    CVTransactions mDisplayTransactionArray;
    CVTransactionSortContext mTransactionSortContext;
};
