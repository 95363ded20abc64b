#pragma once

#include "budget/CVSpending.h"

class CVCategory;

/// The figures of the report tables for a range of days, from one walk over the transactions. Writes the averages into
/// the categories, where the averages and percent tables read them; holds the figures of the plan and tax tables
/// itself. The figures do not follow later changes: a reload makes a new object.
class CVReportFigures final {
public:
    CVReportFigures(const CVTransactions& transactions, const CVCategories& categories, const CVDayRange& range);

    /// The number of the categories' transactions in the range.
    [[nodiscard]] quint64 numberOfTransactions() const { return mNumberOfTransactions; }

    /// The average per period of the category's own frequency.
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

/// Whether the plan table warns, because the target is below the category's monthly average, converted to its
/// frequency. Deliberately not the average from which the difference is computed; the two can disagree.
[[nodiscard]] bool targetIsBelowMonthlyAverage(const CVCategory& category);
