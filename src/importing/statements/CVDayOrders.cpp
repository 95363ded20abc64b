#include "importing/statements/CVDayOrders.h"

#include <algorithm>
#include <array>

namespace {

/// Whether the days only rise or only fall.
struct DayRun {
    int rises = 0;
    int falls = 0;
};

DayRun runOf(const CVWrittenDays& days, CVDayOrder order) {
    DayRun run;
    std::optional<QBDate> last;
    for (const auto& [row, fields] : days) {
        const auto day = fields.in(order);
        if (day && last && *day != *last)
            ++(last->comesBefore(*day) ? run.rises : run.falls);
        last = day ? day : last;
    }
    return run;
}

/// How many different days the orders make of one.
std::size_t countOfReadings(const CVStatementDay& fields, const CVDayOrders& orders) {
    std::vector<QBDate> readings;
    for (const CVDayOrder order : orders) {
        const auto day = fields.in(order);
        if (day && std::find(readings.begin(), readings.end(), *day) == readings.end())
            readings.push_back(*day);
    }
    return readings.size();
}

} // namespace

qint64 CVDaysBetween(const QBDate& from, const QBDate& to) {
    qint64 days = 0;
    to.yearsMonthsDaysSinceDate(nullptr, nullptr, &days, from);
    return days;
}

CVDayOrders CVPossibleDayOrders(const CVWrittenDays& days, const CVDayOrders& among) {
    std::vector<std::pair<std::size_t, CVDayOrder>> counts;
    std::size_t most = 0;
    for (const CVDayOrder order : among) {
        const auto count = static_cast<std::size_t>(std::count_if(
            days.begin(), days.end(), [order](const auto& day) { return day.second.in(order).has_value(); }));
        counts.emplace_back(count, order);
        most = std::max(most, count);
    }
    // Where the days contradict each other, an order that fits nine in ten is no longer a matter of course.
    const std::size_t needed = most == days.size() ? most : most - std::min(most, days.size() / 10);
    CVDayOrders possible;
    for (const auto& [count, order] : counts) {
        if (count >= needed && count > 0)
            possible.push_back(order);
    }
    // With full stops the day comes first, wherever it can.
    const bool hasStops = !days.empty() && days.front().second.separator == u'.';
    if (hasStops && !possible.empty() && possible.front() == CVDayOrder::DayMonthYear)
        possible = {CVDayOrder::DayMonthYear};
    return possible;
}

CVDayOrders CVDistinctDayOrders(const CVWrittenDays& days, const CVDayOrders& orders) {
    CVDayOrders distinct;
    for (const CVDayOrder order : orders) {
        const auto isSame = [&](CVDayOrder other) {
            return std::all_of(days.begin(), days.end(),
                               [&](const auto& day) { return day.second.in(order) == day.second.in(other); });
        };
        if (std::none_of(distinct.begin(), distinct.end(), isSame))
            distinct.push_back(order);
    }
    return distinct;
}

const CVWrittenDay* CVOpenDay(const CVWrittenDays& days, const CVDayOrders& orders) {
    const CVWrittenDay* open = nullptr;
    std::size_t most = 1;
    for (const auto& day : days) {
        const std::size_t readings = countOfReadings(day.second, orders);
        if (readings > most) {
            most = readings;
            open = &day;
        }
    }
    return open;
}

CVDayOrders CVDayOrdersByRun(const CVWrittenDays& days, const CVDayOrders& orders) {
    constexpr int kFewestSteps = 4;
    CVDayOrders running;
    for (const CVDayOrder order : orders) {
        const DayRun run = runOf(days, order);
        if (run.rises == 0 || run.falls == 0)
            running.push_back(order);
    }
    if (running.size() != 1)
        return orders;
    const DayRun run = runOf(days, running.front());
    return run.rises + run.falls >= kFewestSteps ? running : orders;
}

CVDayOrders CVDayOrdersBySpan(const CVWrittenDays& days, const CVDayOrders& orders) {
    constexpr qint64 kLong = 800;
    std::vector<qint64> spans;
    for (const CVDayOrder order : orders) {
        std::vector<QBDate> all;
        for (const auto& [row, fields] : days) {
            if (const auto day = fields.in(order))
                all.push_back(*day);
        }
        const auto [first, last] = std::minmax_element(all.begin(), all.end());
        spans.push_back(CVDaysBetween(*first, *last));
    }
    const qint64 shortest = *std::min_element(spans.begin(), spans.end());
    CVDayOrders plausible;
    for (std::size_t at = 0; at < orders.size(); ++at) {
        const bool isYearFirst = orders[at] == CVDayOrder::YearMonthDay;
        const bool isOtherShort = std::any_of(orders.begin(), orders.end(), [&](const CVDayOrder& order) {
            return (order == CVDayOrder::YearMonthDay) != isYearFirst &&
                   spans[static_cast<std::size_t>(&order - orders.data())] == shortest;
        });
        if (spans[at] <= 4 * shortest + kLong || !isOtherShort)
            plausible.push_back(orders[at]);
    }
    return plausible;
}

bool CVIsDayOrderProven(const CVWrittenDays& days, CVDayOrder order) {
    constexpr std::array kAllOrders{CVDayOrder::DayMonthYear, CVDayOrder::MonthDayYear, CVDayOrder::YearMonthDay};
    const bool haveYears = std::any_of(days.begin(), days.end(), [](const auto& day) { return day.second.hasYear(); });
    return std::all_of(kAllOrders.begin(), kAllOrders.end(), [&](CVDayOrder other) {
        const bool isPossible = other != order && (haveYears || other != CVDayOrder::YearMonthDay);
        return !isPossible || std::any_of(days.begin(), days.end(), [&](const auto& day) {
            return day.second.in(order) && day.second.in(order) != day.second.in(other);
        });
    });
}
