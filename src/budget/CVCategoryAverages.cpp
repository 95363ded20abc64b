#include "budget/CVCategoryAverages.h"

#include "base/QBMoney.h"
#include "budget/CVArithmeticStep.h"
#include "budget/CVSpending.h"
#include "model/CVCategory.h"
#include "model/CVExpenseFrequency.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <limits>

namespace {

struct AveragesText {
    Q_DECLARE_TR_FUNCTIONS(CVCategoryAverages)
};

using CVArithmetic::by;
using CVArithmetic::x;

constexpr double kLongestSpanOfOne = 365;

/// Counts the whole periods of a kind in a range: its days or whole months, times a factor, divided without remainder.
struct PeriodCount {
    enum class Unit : quint8 { Days, Months };

    Unit unit;
    qint64 factor;
    qint64 divisor;

    [[nodiscard]] qint64 in(const CVDayRange& range) const {
        return (unit == Unit::Days ? range.days() : range.wholeMonths()) * factor / divisor;
    }
};

struct Averages {
    double weekly = 0;
    double biWeekly = 0;
    double monthly = 0;
};

/// How one average follows from another; the result is rounded.
struct Derivation {
    double Averages::*average = nullptr;
    double Averages::*source = nullptr;
    CVArithmeticSteps steps;
};

/// The kind of period over which a total is averaged: the average that it gives, how many such periods a range holds,
/// and how the other averages follow, in order.
struct AveragingPeriod {
    double Averages::*average = nullptr;
    PeriodCount count{};
    std::array<Derivation, 2> others{};
};

constexpr AveragingPeriod kWeek{
    &Averages::weekly,
    {PeriodCount::Unit::Days, 1, 7},
    {{{&Averages::biWeekly, &Averages::weekly, x(2)}, {&Averages::monthly, &Averages::weekly, {x(52), by(12)}}}}};
constexpr AveragingPeriod kTwoWeeks{
    &Averages::biWeekly,
    {PeriodCount::Unit::Days, 1, 14},
    {{{&Averages::weekly, &Averages::biWeekly, x(0.5)}, {&Averages::monthly, &Averages::weekly, {x(52), by(12)}}}}};
constexpr AveragingPeriod kMonth{
    &Averages::monthly,
    {PeriodCount::Unit::Months, 1, 1},
    {{{&Averages::biWeekly, &Averages::monthly, {x(12), by(26)}}, {&Averages::weekly, &Averages::biWeekly, x(0.5)}}}};

struct Pattern {
    /// The longest average time between transactions, in days.
    qint64 longestInterval;
    const char* label;
    qint64 frequency;
    const AveragingPeriod& period;
};

/// The labels "2 Months" and "Yearly" differ from the names of their frequencies, deliberately.
constexpr std::array<Pattern, 7> kPatterns{{
    {11, QT_TRANSLATE_NOOP("CVCategoryAverages", "Weekly"), CVExpenseFrequency::kWeekly, kWeek},
    {21, QT_TRANSLATE_NOOP("CVCategoryAverages", "Bi-Weekly"), CVExpenseFrequency::kBiWeekly, kTwoWeeks},
    {44, QT_TRANSLATE_NOOP("CVCategoryAverages", "Monthly"), CVExpenseFrequency::kMonthly, kMonth},
    {75, QT_TRANSLATE_NOOP("CVCategoryAverages", "2 Months"), CVExpenseFrequency::kBiMonthly, kMonth},
    {125, QT_TRANSLATE_NOOP("CVCategoryAverages", "Quarterly"), CVExpenseFrequency::kQuarterly, kMonth},
    {250, QT_TRANSLATE_NOOP("CVCategoryAverages", "Semi-Annually"), CVExpenseFrequency::kSemiAnnually, kMonth},
    {std::numeric_limits<qint64>::max(), QT_TRANSLATE_NOOP("CVCategoryAverages", "Yearly"),
     CVExpenseFrequency::kAnnually, kMonth},
}};

/// Indexed by frequency code.
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

/// In days, from the first to the last transaction; a single transaction counts as spread over the range, up to a year.
double spanOf(const CVSpending& spending, qint64 daysOfRange) {
    if (spending.count == 1)
        return std::min(kLongestSpanOfOne, static_cast<double>(daysOfRange));
    qint64 days = 0;
    spending.lastDay->yearsMonthsDaysSinceDate(nullptr, nullptr, &days, *spending.firstDay);
    return static_cast<double>(days);
}

void setAverages(CVCategory& category, const AveragingPeriod& period, const CVDayRange& range) {
    Averages averages;
    averages.*period.average = averageOver(category.total(), period.count.in(range));
    for (const Derivation& other : period.others)
        averages.*other.average = RoundDoubleToTwoPlaces(other.steps.appliedTo(averages.*other.source));
    category.setWeekly(averages.weekly);
    category.setBiWeekly(averages.biWeekly);
    category.setMonthly(averages.monthly);
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

CVSpendingOfRange spendingOf(const CVCategory& category, const CVTransactions& transactions, const QBDate& startDate,
                             const QBDate& endDate) {
    const std::array<quint32, 1> id{category.uniqueID()};
    return {transactions, id, {startDate, endDate}};
}

} // namespace

quint64 computeAveragesForArray(CVCategory& category, const CVTransactions& transactions, const QBDate& startDate,
                                const QBDate& endDate) {
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
    category.setBillFrequency(AveragesText::tr(pattern->label));
    category.setBudgetExpenseFrequency(pattern->frequency);
    setAverages(category, pattern->period, range);
    return spending.count;
}

void setDefaultAmounts(CVCategory& category, double amount) {
    category.setBillFrequency(AveragesText::tr("Monthly"));
    category.setTotal(amount);
    category.setMonthly(amount);
    category.setBiWeekly(amount * 12 / 26);
    category.setWeekly(amount * 12 / 52);
    category.setMonthlyPeriods(1);
    category.setBiWeeklyPeriods(1);
    category.setWeeklyPeriods(1);
}

double taxExpenseForCategoryFromTransactions(const CVCategory& category, const CVTransactions& transactions,
                                             const QBDate& startDate, const QBDate& endDate) {
    return spendingOf(category, transactions, startDate, endDate).of(category.uniqueID()).taxTotal;
}

quint64 taxItemsForCategoryFromTransactions(const CVCategory& category, const CVTransactions& transactions,
                                            const QBDate& startDate, const QBDate& endDate) {
    return spendingOf(category, transactions, startDate, endDate).of(category.uniqueID()).taxCount;
}

double computeAverageForTransactions(const CVCategory& category, const CVTransactions& transactions,
                                     const QBDate& startDate, const QBDate& endDate) {
    return averagePerFrequency(category, spendingOf(category, transactions, startDate, endDate));
}

double averagePerFrequency(const CVCategory& category, const CVSpendingOfRange& spending) {
    const qint64 code = category.expenseFrequency();
    if (code < 0 || code >= static_cast<qint64>(kPeriodCounts.size()))
        return 0;
    const PeriodCount& periods = kPeriodCounts[static_cast<std::size_t>(code)];
    return averageOver(spending.of(category.uniqueID()).total, periods.in(spending.range()));
}
