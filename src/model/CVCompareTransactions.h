#pragma once

#include <QString>

class CVTransaction;

/// The column of `CVTransactionColumns` by which transactions are ordered: "date", "amount", "tofrom", "for",
/// "category" or "set"; with any other key all transactions are equal.
struct CVTransactionSortContext {
    QString key;
    bool descending = false;

    bool operator==(const CVTransactionSortContext&) const = default;
};

/// Compares two transactions by the order key of a column: -1, 0 or 1. `CVSortTransactions` gives the same order
/// without calling this function; tests compare the two. Dates are ordered by day, a missing date before all others,
/// and within a day by category name. Names and texts are compared without regard to case; a missing one equals every
/// other. With missing names or texts this is no strict weak order: sort only with an algorithm that stays in bounds
/// nevertheless, such as std::stable_sort.
[[nodiscard]] int CVCompareTransactions(const CVTransaction& a, const CVTransaction& b,
                                        const CVTransactionSortContext& context);

/// -1, 0 or 1; a null text equals every other.
[[nodiscard]] int CVCompareTexts(const QString& a, const QString& b);
