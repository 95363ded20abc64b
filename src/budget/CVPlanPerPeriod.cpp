#include "budget/CVPlanPerPeriod.h"

#include "base/QBMoney.h"
#include "budget/CVArithmeticStep.h"
#include "budget/CVDisplayPeriods.h"
#include "budget/CVFrequencyConversion.h"
#include "model/CVCategory.h"

#include <array>

namespace {

/// The frequency to which an estimate is converted first, and the step from there to the period. A day is a seventh of
/// a week.
struct PlanConversion {
    qint64 frequency = CVExpenseFrequency::kUnknown;
    CVArithmeticStep step;
};

constexpr std::array<PlanConversion, CVDisplayPeriods::kTypes> kPlanConversions{
    {{CVExpenseFrequency::kWeekly, CVArithmetic::by(7)},
     {CVExpenseFrequency::kWeekly, {}},
     {CVExpenseFrequency::kBiWeekly, {}},
     {CVExpenseFrequency::kMonthly, {}}}};

} // namespace

std::optional<double> planPerPeriod(const CVCategory& category, int periodType) {
    const qint64 frequency = category.expenseFrequency();
    if (category.expenseTarget() == 0 || !CVExpenseFrequency::nameOfCode(frequency).data() || periodType < 0 ||
        periodType >= CVDisplayPeriods::kTypes)
        return std::nullopt;
    const PlanConversion& conversion = kPlanConversions[static_cast<std::size_t>(periodType)];
    CVCategory plan;
    plan.setExpenseTarget(category.expenseTarget());
    mapExpenseFrequencyFrom(plan, frequency, conversion.frequency);
    return RoundDoubleToTwoPlaces(conversion.step.appliedTo(plan.expenseTarget()));
}
