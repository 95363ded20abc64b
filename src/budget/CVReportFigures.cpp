#include "budget/CVReportFigures.h"

#include "base/QBMoney.h"
#include "budget/CVArithmeticStep.h"
#include "budget/CVCategoryAverages.h"
#include "model/CVCategory.h"

#include <array>

namespace {

constexpr double kSmallestDivisor = 0.01;

struct Comparison {
    CVArithmeticSteps steps;
    bool rounded = false;
};

using CVArithmetic::by;
using CVArithmetic::x;

/// Converts a monthly amount to each frequency. Doubling is exact, so it needs no rounding.
constexpr std::array<Comparison, 8> kComparisons{{{{x(12), by(52)}, true},
                                                  {{x(12), by(26)}, true},
                                                  {x(0.5), true},
                                                  {{}, false},
                                                  {x(2), false},
                                                  {x(3), false},
                                                  {x(6), false},
                                                  {x(12), false}}};

double comparisonValue(const CVCategory& category) {
    const qint64 code = category.expenseFrequency();
    if (code < 0 || code >= static_cast<qint64>(kComparisons.size()))
        return 0;
    const Comparison& comparison = kComparisons[static_cast<std::size_t>(code)];
    const double value = comparison.steps.appliedTo(category.monthly());
    return comparison.rounded ? RoundDoubleToTwoPlaces(value) : value;
}

} // namespace

CVReportFigures::CVReportFigures(const CVTransactions& transactions, const CVCategories& categories,
                                 const CVDayRange& range)
    : mSpending(transactions, CVIDsOfCategories(categories), range) {
    for (const auto& category : categories)
        mNumberOfTransactions += computeAverages(*category, mSpending);
}

double CVReportFigures::average(const CVCategory& category) const {
    return averagePerFrequency(category, mSpending);
}

double CVReportFigures::difference(const CVCategory& category) const {
    return category.expenseTarget() - average(category);
}

double CVReportFigures::percent(const CVCategory& category) const {
    const double all = mSpending.grandTotal();
    return category.total() / (all < kSmallestDivisor ? 1.0 : all) * 100;
}

double CVReportFigures::taxAmount(const CVCategory& category) const {
    return mSpending.of(category.uniqueID()).taxTotal;
}

quint64 CVReportFigures::taxItems(const CVCategory& category) const {
    return mSpending.of(category.uniqueID()).taxCount;
}

bool targetIsBelowMonthlyAverage(const CVCategory& category) {
    return category.expenseTarget() - comparisonValue(category) < 0;
}
