#pragma once

#include "budget/CVSpending.h"

class CVCategory;

/// What the report tables show for a range of days, from one walk over the transactions. It writes the averages into
/// the categories, as the averages and percent tables show those; what the plan and tax tables show it keeps. Figures
/// of the moment it was made: a reload makes a new one.
class CVReportFigures final {
public:
    CVReportFigures(const CVDocument::Transactions& transactions, const CVDocument::Categories& categories,
                    const CVDayRange& range);

    /// The categories' transactions in the range.
    [[nodiscard]] quint64 numberOfTransactions() const { return mNumberOfTransactions; }

    /// Per period of the category's own frequency.
    [[nodiscard]] double average(const CVCategory& category) const;
    /// The target less the average, not rounded.
    [[nodiscard]] double difference(const CVCategory& category) const;
    /// The category's share of all spending in the range, in percent, not rounded. When that spending is below 0.01 the
    /// divisor is 1.
    [[nodiscard]] double percent(const CVCategory& category) const;
    [[nodiscard]] double taxAmount(const CVCategory& category) const;
    [[nodiscard]] quint64 taxItems(const CVCategory& category) const;

private:
    CVSpendingOfRange mSpending;
    quint64 mNumberOfTransactions = 0;
};

/// Whether the plan table warns: the target lies below the category's monthly average, converted to its frequency. This
/// is deliberately not the average that the difference is computed from, and the two can disagree.
[[nodiscard]] bool targetIsBelowMonthlyAverage(const CVCategory& category);
