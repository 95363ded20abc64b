#pragma once

#include "budget/CVAmountSum.h"
#include "budget/CVDayRange.h"
#include "model/CVDocument.h"

#include <limits>

/// The transactions of the document's current set, in document order, with a share in their ownership. It follows the
/// document when it is asked to, with as little work as what has changed since then allows. References the document,
/// which outlives it.
class CVSetTransactions final {
public:
    explicit CVSetTransactions(const CVDocument& document) : mDocument(document) {}

    /// Whoever refers to those that go can do so until `releaseTakenOut`.
    void collect();
    void releaseTakenOut() { mTakenOut.clear(); }

    [[nodiscard]] const CVDocument::Transactions& transactions() const { return mTransactions; }
    /// The document's change count at the last collection; absent before.
    [[nodiscard]] const std::optional<quint64>& collectedAt() const { return mCollectedAt; }

    /// Their amounts as they are now, added up in their order and rounded once to two places.
    [[nodiscard]] double total() const;
    /// The same for every order in which they can be added up; absent where the order might matter.
    [[nodiscard]] std::optional<double> totalInAnyOrder() const { return figures().sum.roundedOnce(); }
    /// Whether all that have a date lie in a range, and whether there are some that have none.
    [[nodiscard]] bool lieIn(const CVDayRange& range) const;
    [[nodiscard]] bool haveUndated() const { return figures().hasUndated; }

private:
    /// What one walk over them tells.
    struct Figures {
        CVAmountSum sum;
        /// As order keys; the first lies behind the last when no transaction has a date.
        qint64 firstDay = std::numeric_limits<qint64>::max();
        qint64 lastDay = std::numeric_limits<qint64>::min();
        bool hasUndated = false;

        void add(const CVTransaction& transaction);
    };

    void insert(std::size_t indexInDocument);
    [[nodiscard]] const Figures& figures() const;

    const CVDocument& mDocument;
    CVDocument::Transactions mTransactions;
    CVDocument::Transactions mTakenOut;
    quint32 mSetID = 0;
    std::optional<quint64> mCollectedAt;
    /// The document's change count when the figures were right; absent before.
    mutable std::optional<quint64> mFiguredAt;
    mutable Figures mFigures;
};
