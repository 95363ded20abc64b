#pragma once

#include "budget/CVDayRange.h"
#include "model/CVDocument.h"

#include <optional>

class CVCategory;

/// Computes the numbers of the budget in the plain way: one walk over all transactions for each category and each cell,
/// and branches instead of tables. Tests compare the program's numbers with these, to the last bit.
namespace PlainScan {

/// The computed fields of a category.
struct Figures {
    QString billFrequency;
    qint64 budgetExpenseFrequency = 0;
    double total = 0;
    double monthly = 0;
    double biWeekly = 0;
    double weekly = 0;
    quint32 monthlyPeriods = 0;
    quint32 biWeeklyPeriods = 0;
    quint32 weeklyPeriods = 0;
    quint64 numberOfTransactions = 0;

    [[nodiscard]] static Figures of(const CVCategory& category);
};

[[nodiscard]] Figures averages(const CVCategory& category, const CVTransactions& transactions, const CVDayRange& range);
[[nodiscard]] double taxExpense(const CVCategory& category, const CVTransactions& transactions,
                                const CVDayRange& range);
[[nodiscard]] quint64 taxItems(const CVCategory& category, const CVTransactions& transactions, const CVDayRange& range);
[[nodiscard]] double averagePerFrequency(const CVCategory& category, const CVTransactions& transactions,
                                         const CVDayRange& range);
[[nodiscard]] double percentDivisor(const CVTransactions& transactions, const CVDayRange& range);
/// A monthly amount converted to a frequency, for the warning of the plan table.
[[nodiscard]] double comparisonValue(double monthly, qint64 frequency);

[[nodiscard]] CVTransactions transactionsForDateRange(const CVTransactions& transactions, const CVDayRange& range,
                                                      const CVCategory* category);
/// A cell of the grid: the amount of a category in the range of a column or, without a category, the column's total.
[[nodiscard]] std::optional<double> cell(const CVTransactions& transactions, const CVDayRange& range,
                                         const CVCategory* category);
[[nodiscard]] CVCategories rows(const CVDocument& document, int showUnusedCategories);

} // namespace PlainScan
