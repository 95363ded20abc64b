#pragma once

#include <QString>

class CVTransaction;

/// By which of `CVTransactionColumns` transactions are ordered: "date", "amount", "tofrom", "for" or "category"; any
/// other key orders nothing.
struct CVTransactionSortContext {
    QString key;
    bool descending = false;

    bool operator==(const CVTransactionSortContext&) const = default;
};

/// The one order of transactions: -1, 0 or 1. Dates are ordered by day, a missing one before all others, and within a
/// day by category name; names and texts without regard to case, a missing one being equal to every other.
/// With missing texts or names this is no strict weak order: sort only with an algorithm that stays in bounds whatever
/// it answers, such as std::stable_sort.
[[nodiscard]] int CVCompareTransactions(const CVTransaction& a, const CVTransaction& b,
                                        const CVTransactionSortContext& context);

/// -1, 0 or 1; a null text equals every other.
[[nodiscard]] int CVCompareTexts(const QString& a, const QString& b);
