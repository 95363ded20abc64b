#include "importing/delimited/CVStatementNotation.h"
#include "importing/statements/CVStatementDay.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

constexpr std::array kOrders{CVDayOrder::DayMonthYear, CVDayOrder::MonthDayYear, CVDayOrder::YearMonthDay};

CVDaysOfLines daysOf(const CVStatementTable& table, int column, CVDayOrder order) {
    constexpr std::size_t kEnoughLines = 1000;
    CVDaysOfLines days;
    for (std::size_t at = 0; at < std::min(table.likely.size(), kEnoughLines); ++at) {
        const auto fields = CVReadDayOfColumn(CVStatementTable::cell(table.rows[table.likely[at]], column));
        days.push_back(fields ? fields->in(order) : std::nullopt);
    }
    return days;
}

/// Whether the days of a column never fall, or never rise, in some order of day and month.
bool runsOneWay(const CVStatementTable& table, int column) {
    return std::any_of(kOrders.begin(), kOrders.end(), [&](CVDayOrder order) {
        const CVDaysOfLines days = daysOf(table, column, order);
        const auto isLater = [](const auto& a, const auto& b) { return b->comesBefore(*a); };
        const bool isFull = std::all_of(days.begin(), days.end(), [](const auto& day) { return day.has_value(); });
        return isFull && (std::is_sorted(days.rbegin(), days.rend(), isLater) ||
                          std::is_sorted(days.begin(), days.end(), isLater));
    });
}

/// The first row in which two columns have different days; absent where they have the same in some order.
std::optional<std::size_t> firstDifference(const CVStatementTable& table, int one, int other) {
    std::optional<std::size_t> first;
    for (const CVDayOrder order : kOrders) {
        const CVDaysOfLines days = daysOf(table, one, order);
        const CVDaysOfLines others = daysOf(table, other, order);
        const auto [at, end] = std::mismatch(days.begin(), days.end(), others.begin());
        if (at == days.end())
            return std::nullopt;
        if (!first)
            first = table.likely[static_cast<std::size_t>(at - days.begin())];
    }
    return first;
}

} // namespace

CVSettledDayColumn CVSettleDayColumn(const CVStatementTable& table, const CVStatementColumns& columns) {
    CVSettledDayColumn settled;
    if (columns.days.empty())
        return settled;
    settled.columns = {columns.days.front()};
    for (const int column : columns.unnamedDays) {
        const auto differs = [&](int other) { return firstDifference(table, other, column).has_value(); };
        if (std::all_of(settled.columns.begin(), settled.columns.end(), differs))
            settled.columns.push_back(column);
    }
    std::vector<int> running;
    std::copy_if(settled.columns.begin(), settled.columns.end(), std::back_inserter(running),
                 [&table](int column) { return runsOneWay(table, column); });
    if (running.size() == 1)
        settled.columns = running;
    if (!settled.isSettled())
        settled.row = firstDifference(table, settled.columns[0], settled.columns[1]).value_or(0);
    return settled;
}
