#include "budget/CVFrequencyConversion.h"

#include "budget/CVArithmeticStep.h"
#include "model/CVCategory.h"

#include <array>

namespace {

using CVArithmetic::by;
using CVArithmetic::x;

constexpr std::size_t kFrequencies = 8;
constexpr CVArithmeticSteps kSame{};

/// Rows are `from`, columns are `to`. Semi-Annually to Bi-Monthly is one sixth, deliberately, although the numbers of
/// periods in a year would give one third.
constexpr std::array<std::array<CVArithmeticSteps, kFrequencies>, kFrequencies> kConversions{{
    {{kSame, x(2), {x(52), by(24)}, {x(52), by(12)}, {x(52), by(6)}, {x(52), x(0.25)}, {x(52), x(0.5)}, x(52)}},
    {{x(0.5), kSame, {x(26), by(24)}, {x(26), by(12)}, {x(26), by(6)}, {x(26), x(0.25)}, {x(26), x(0.5)}, x(26)}},
    {{{x(24), by(52)}, {x(24), by(26)}, kSame, x(2), x(4), x(6), x(12), x(24)}},
    {{{x(12), by(52)}, {x(12), by(26)}, x(0.5), kSame, x(2), x(3), x(6), x(12)}},
    {{{x(6), by(52)}, {x(6), by(26)}, x(0.25), x(0.5), kSame, {x(0.5), x(3)}, x(3), x(6)}},
    {{{x(4), by(52)}, {x(4), by(26)}, by(6), {x(4), by(12)}, {x(4), by(6)}, kSame, x(2), x(4)}},
    {{{x(2), by(52)}, {x(2), by(26)}, by(12), by(6), {x(2), by(12)}, x(0.5), kSame, x(2)}},
    {{by(52), by(26), by(24), by(12), by(6), x(0.25), x(0.5), kSame}},
}};

constexpr bool isKnown(qint64 code) {
    return code >= 0 && code < static_cast<qint64>(kFrequencies);
}

} // namespace

void mapExpenseFrequencyFrom(CVCategory& category, qint64 from, qint64 to) {
    if (!isKnown(from) || !isKnown(to))
        return;
    const CVArithmeticSteps& steps = kConversions[static_cast<std::size_t>(from)][static_cast<std::size_t>(to)];
    category.setExpenseTarget(steps.appliedTo(category.expenseTarget()));
}
