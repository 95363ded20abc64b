#include "budget/CVCategoryAverages.h"

#include "budget/CVSpending.h"
#include "model/CVCategory.h"
#include "model/CVExpenseFrequency.h"
#include "shared/base/QBMoney.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr double kLongestSpanOfOne = 365;

/// The period whose average is divided out of the total; the other averages follow from it.
enum class Basis : quint8 { Week, TwoWeeks, Month };

struct Pattern {
    /// In days between transactions.
    qint64 longestInterval;
    const char* label;
    qint64 frequency;
    Basis basis;
};

/// The labels "2 Months" and "Yearly" differ from the names of their frequencies, deliberately.
constexpr std::array<Pattern, 7> kPatterns{{
    {11, QT_TRANSLATE_NOOP("CVCategory", "Weekly"), CVExpenseFrequency::kWeekly, Basis::Week},
    {21, QT_TRANSLATE_NOOP("CVCategory", "Bi-Weekly"), CVExpenseFrequency::kBiWeekly, Basis::TwoWeeks},
    {44, QT_TRANSLATE_NOOP("CVCategory", "Monthly"), CVExpenseFrequency::kMonthly, Basis::Month},
    {75, QT_TRANSLATE_NOOP("CVCategory", "2 Months"), CVExpenseFrequency::kBiMonthly, Basis::Month},
    {125, QT_TRANSLATE_NOOP("CVCategory", "Quarterly"), CVExpenseFrequency::kQuarterly, Basis::Month},
    {250, QT_TRANSLATE_NOOP("CVCategory", "Semi-Annually"), CVExpenseFrequency::kSemiAnnually, Basis::Month},
    {std::numeric_limits<qint64>::max(), QT_TRANSLATE_NOOP("CVCategory", "Yearly"), CVExpenseFrequency::kAnnually,
     Basis::Month},
}};

/// How many periods of a frequency a range holds: its days or whole months, times a factor, divided without remainder.
struct PeriodCount {
    enum class Unit : quint8 { Days, Months };

    Unit unit;
    qint64 factor;
    qint64 divisor;
};

constexpr std::array<PeriodCount, 8> kPeriodCounts{{
    {PeriodCount::Unit::Days, 1, 7},
    {PeriodCount::Unit::Days, 1, 14},
    {PeriodCount::Unit::Months, 2, 1},
    {PeriodCount::Unit::Months, 1, 1},
    {PeriodCount::Unit::Months, 1, 2},
    {PeriodCount::Unit::Months, 1, 3},
    {PeriodCount::Unit::Months, 1, 6},
    {PeriodCount::Unit::Months, 1, 12},
}};

double averageOver(double total, qint64 periods) {
    return periods > 0 ? RoundDoubleToTwoPlaces(total / static_cast<double>(periods)) : 0.0;
}

quint32 wholePeriods(double span, double length) {
    return static_cast<quint32>(static_cast<qint64>(RoundDoubleToTwoPlaces(span / length)));
}

/// In days, from the first to the last transaction; a single one counts as spread over the range, up to a year.
double spanOf(const CVSpending& spending, qint64 daysOfRange) {
    if (spending.count == 1)
        return std::min(kLongestSpanOfOne, static_cast<double>(daysOfRange));
    qint64 days = 0;
    spending.lastDay->yearsMonthsDaysSinceDate(nullptr, nullptr, &days, *spending.firstDay);
    return static_cast<double>(days);
}

void setAverages(CVCategory& category, Basis basis, const CVDayRange& range) {
    const double total = category.total();
    switch (basis) {
    case Basis::Week:
        category.setWeekly(averageOver(total, range.days() / 7));
        category.setBiWeekly(RoundDoubleToTwoPlaces(category.weekly() + category.weekly()));
        category.setMonthly(RoundDoubleToTwoPlaces(category.weekly() * 52 / 12));
        break;
    case Basis::TwoWeeks:
        category.setBiWeekly(averageOver(total, range.days() / 14));
        category.setWeekly(RoundDoubleToTwoPlaces(category.biWeekly() * 0.5));
        category.setMonthly(RoundDoubleToTwoPlaces(category.weekly() * 52 / 12));
        break;
    case Basis::Month:
        category.setMonthly(averageOver(total, range.wholeMonths()));
        category.setBiWeekly(RoundDoubleToTwoPlaces(category.monthly() * 12 / 26));
        category.setWeekly(RoundDoubleToTwoPlaces(category.biWeekly() * 0.5));
        break;
    }
}

void reset(CVCategory& category) {
    category.setBillFrequency(QLatin1String(""));
    category.setTotal(0);
    category.setMonthly(0);
    category.setBiWeekly(0);
    category.setWeekly(0);
    category.setMonthlyPeriods(0);
    category.setBiWeeklyPeriods(0);
    category.setWeeklyPeriods(0);
    category.setNumberOfTransactions(0);
    category.setBudgetExpenseFrequency(CVExpenseFrequency::kMonthly);
}

CVSpendingOfRange spendingOf(const CVCategory& category, const CVDocument::Transactions& transactions,
                             const QBDate& startDate, const QBDate& endDate) {
    const std::array<quint32, 1> id{category.uniqueID()};
    return {transactions, id, {startDate, endDate}};
}

} // namespace

quint64 computeAveragesForArray(CVCategory& category, const CVDocument::Transactions& transactions,
                                const QBDate& startDate, const QBDate& endDate) {
    return computeAverages(category, spendingOf(category, transactions, startDate, endDate));
}

quint64 computeAverages(CVCategory& category, const CVSpendingOfRange& spendingOfRange) {
    const CVSpending& spending = spendingOfRange.of(category.uniqueID());
    reset(category);
    category.setNumberOfTransactions(spending.count);
    category.setTotal(spending.total);
    const CVDayRange& range = spendingOfRange.range();
    const double span = spending.count == 0 ? 0 : spanOf(spending, range.days());
    const auto gaps = static_cast<double>(spending.count > 1 ? spending.count - 1 : 1);
    const auto interval = static_cast<qint64>(span / gaps);
    if (spending.count == 0 || (spending.count > 1 && interval < 1)) {
        setDefaultAmounts(category, spending.total);
        return spending.count;
    }
    category.setWeeklyPeriods(wholePeriods(span, 7));
    category.setBiWeeklyPeriods(wholePeriods(span, 14));
    category.setMonthlyPeriods(wholePeriods(span, 30));
    const auto* const pattern = std::find_if(kPatterns.begin(), kPatterns.end() - 1, [interval](const Pattern& known) {
        return interval <= known.longestInterval;
    });
    category.setBillFrequency(CVCategory::tr(pattern->label));
    category.setBudgetExpenseFrequency(pattern->frequency);
    setAverages(category, pattern->basis, range);
    return spending.count;
}

void setDefaultAmounts(CVCategory& category, double amount) {
    category.setBillFrequency(CVCategory::tr("Monthly"));
    category.setTotal(amount);
    category.setMonthly(amount);
    category.setBiWeekly(amount * 12 / 26);
    category.setWeekly(amount * 12 / 52);
    category.setMonthlyPeriods(1);
    category.setBiWeeklyPeriods(1);
    category.setWeeklyPeriods(1);
}

double taxExpenseForCategoryFromTransactions(const CVCategory& category, const CVDocument::Transactions& transactions,
                                             const QBDate& startDate, const QBDate& endDate) {
    return spendingOf(category, transactions, startDate, endDate).of(category.uniqueID()).taxTotal;
}

quint64 taxItemsForCategoryFromTransactions(const CVCategory& category, const CVDocument::Transactions& transactions,
                                            const QBDate& startDate, const QBDate& endDate) {
    return spendingOf(category, transactions, startDate, endDate).of(category.uniqueID()).taxCount;
}

double computeAverageForTransactions(const CVCategory& category, const CVDocument::Transactions& transactions,
                                     const QBDate& startDate, const QBDate& endDate) {
    return averagePerFrequency(category, spendingOf(category, transactions, startDate, endDate));
}

double averagePerFrequency(const CVCategory& category, const CVSpendingOfRange& spending) {
    const qint64 code = category.expenseFrequency();
    if (code < 0 || code >= static_cast<qint64>(kPeriodCounts.size()))
        return 0;
    const PeriodCount& count = kPeriodCounts[static_cast<std::size_t>(code)];
    const CVDayRange& range = spending.range();
    const qint64 units = count.unit == PeriodCount::Unit::Days ? range.days() : range.wholeMonths();
    return averageOver(spending.of(category.uniqueID()).total, units * count.factor / count.divisor);
}
