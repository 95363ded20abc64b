#include "importing/delimited/CVSettleYears.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace {

bool runOneWay(const CVDaysOfLines& days) {
    bool rises = false;
    bool falls = false;
    std::optional<QBDate> last;
    for (const auto& day : days) {
        rises = rises || (day && last && last->comesBefore(*day));
        falls = falls || (day && last && day->comesBefore(*last));
        last = day ? day : last;
    }
    return !rises || !falls;
}

bool lieIn(const CVDaysOfLines& days, const std::optional<CVPeriod>& period) {
    return period && std::all_of(days.begin(), days.end(), [&period](const auto& day) {
               return !day || (!day->comesBefore(period->first) && !period->last.comesBefore(*day));
           });
}

/// Whether one of two holds alone, and which; absent where both do or none.
std::optional<bool> onlyOne(bool changing, bool same) {
    return changing == same ? std::nullopt : std::optional(changing);
}

} // namespace

std::optional<QBDate> CVYearOfDays::next(const CVStatementDay& fields) {
    constexpr int kHalfAYear = 6;
    const auto day = fields.in(mOrder);
    if (!day || fields.hasYear() || !mYear)
        return day && !fields.hasYear() ? fields.in(mOrder, mYear) : day;
    const int onward = mLastMonth == 0 || !mChanges ? 0 : day->monthOfYear() - mLastMonth;
    *mYear += onward > kHalfAYear ? -1 : onward < -kHalfAYear ? 1 : 0;
    mLastMonth = day->monthOfYear();
    return fields.in(mOrder, mYear);
}

CVSettledYears CVSettleYears(const CVStatementTable& table, int column, CVDayOrder order, const CVKnownYears& known) {
    constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();
    const CVDaysOfLines same = CVDaysOfLikelyRows(table, column, {order, known.year, false}, kAll);
    const CVDaysOfLines changing = CVDaysOfLikelyRows(table, column, {order, known.year, true}, kAll);
    CVSettledYears settled;
    const auto differs = [](const auto& a, const auto& b) { return a && b && *a != *b; };
    const auto [at, other] = std::mismatch(same.begin(), same.end(), changing.begin(), std::not_fn(differs));
    if (at == same.end())
        return settled;
    settled.sameYear = known.year;
    settled.otherYear = static_cast<int>((*other)->yearOfCommonEra());
    auto change = onlyOne(known.otherYear == settled.otherYear, known.otherYear == settled.sameYear);
    if (!change)
        change = onlyOne(lieIn(changing, known.period), lieIn(same, known.period));
    if (!change)
        change = onlyOne(runOneWay(changing), runOneWay(same));
    settled.change = change.value_or(true);
    settled.isSettled = change.has_value();
    settled.row = table.likely[static_cast<std::size_t>(at - same.begin())];
    settled.text = CVStatementTable::cell(table.rows[settled.row], column);
    return settled;
}

CVDaysOfLines CVDaysOfLikelyRows(const CVStatementTable& table, int column, CVYearOfDays years, std::size_t most) {
    CVDaysOfLines days;
    for (std::size_t at = 0; at < std::min(most, table.likely.size()); ++at) {
        const auto fields = CVReadDayOfColumn(CVStatementTable::cell(table.rows[table.likely[at]], column));
        days.push_back(fields ? years.next(*fields) : std::nullopt);
    }
    return days;
}
