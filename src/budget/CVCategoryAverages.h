#pragma once

#include "budget/CVDayRange.h"
#include "model/CVCollections.h"

class CVCategory;
class CVSpendingOfRange;

/// The computed figures of a category. Ranges include both dates; transactions of other categories, outside the range
/// or without a date do not count. Amounts are in currency units.

/// Fills the category's computed fields from its transactions in the range: total, averages per week, two weeks and
/// month, periods, number, and the spending pattern. Returns the number of transactions.
quint64 computeAveragesForArray(CVCategory& category, const CVTransactions& transactions, const QBDate& startDate,
                                const QBDate& endDate);
/// The same from spending that was added up for several categories at once.
quint64 computeAverages(CVCategory& category, const CVSpendingOfRange& spending);

/// Fills the computed fields as if the amount were spent once a month; the number of transactions and the suggested
/// frequency stay.
void setDefaultAmounts(CVCategory& category, double amount);

/// The sum of the category's tax-flagged amounts, rounded to two places after every addition.
[[nodiscard]] double taxExpenseForCategoryFromTransactions(const CVCategory& category,
                                                           const CVTransactions& transactions, const QBDate& startDate,
                                                           const QBDate& endDate);
/// How many of the category's transactions are tax-flagged.
[[nodiscard]] quint64 taxItemsForCategoryFromTransactions(const CVCategory& category,
                                                          const CVTransactions& transactions, const QBDate& startDate,
                                                          const QBDate& endDate);

/// The category's spending divided by the whole periods of its own frequency in the range, rounded to two places; 0
/// when the range holds none or the frequency is unknown.
[[nodiscard]] double computeAverageForTransactions(const CVCategory& category, const CVTransactions& transactions,
                                                   const QBDate& startDate, const QBDate& endDate);
/// The same from spending that was added up for several categories at once.
[[nodiscard]] double averagePerFrequency(const CVCategory& category, const CVSpendingOfRange& spending);
