#include "importing/delimited/CVStatementNotation.h"
#include "importing/statements/CVDayOrders.h"
#include "importing/statements/CVStatementDay.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

using Orders = CVDayOrders;

CVWrittenDays daysOfColumn(const CVStatementTable& table, int column) {
    CVWrittenDays days;
    for (const std::size_t row : table.likely) {
        if (const auto day = CVReadDayOfColumn(CVStatementTable::cell(table.rows[row], column)))
            days.emplace_back(row, *day);
    }
    return days;
}

/// The day where all orders agree on it.
std::optional<QBDate> sureDay(const QString& text) {
    const auto day = CVReadStatementDay(text);
    if (!day || !day->hasYear())
        return std::nullopt;
    const Orders orders = day->orders();
    const auto first = day->in(orders.front());
    const bool isSure =
        std::all_of(orders.begin(), orders.end(), [&](CVDayOrder order) { return day->in(order) == first; });
    return isSure ? first : std::nullopt;
}

/// The order in which alone the days lie near those of another column that leave no choice.
Orders ordersByNeighbour(const CVStatementTable& table, const CVWrittenDays& days, int neighbour,
                         const Orders& orders) {
    constexpr qint64 kNear = 12;
    constexpr qint64 kFar = 20;
    Orders near;
    int far = 0;
    for (const CVDayOrder order : orders) {
        qint64 farthest = 0;
        bool isCompared = false;
        for (const auto& [row, fields] : days) {
            const auto sure = sureDay(CVStatementTable::cell(table.rows[row], neighbour));
            const auto day = fields.in(order);
            if (!sure || !day)
                continue;
            isCompared = true;
            farthest = std::max(farthest, std::abs(CVDaysBetween(*sure, *day)));
        }
        if (isCompared && farthest <= kNear)
            near.push_back(order);
        far += farthest > kFar ? 1 : 0;
    }
    return near.size() == 1 && far + 1 == static_cast<int>(orders.size()) ? near : orders;
}

/// The days in the rows above the header, such as those of the period.
std::vector<CVStatementDay> daysAbove(const CVStatementTable& table) {
    static const QRegularExpression form(QStringLiteral("(?<![\\d./-])\\d{1,4}[-/.]\\d{1,2}[-/.]\\d{2,4}(?![\\d/-])"));
    std::vector<CVStatementDay> days;
    for (std::size_t row = 0; row < table.first && !table.headings.isEmpty(); ++row) {
        for (const QString& cell : table.rows[row].cells) {
            if (const auto whole = CVReadStatementDay(cell)) {
                days.push_back(*whole);
                continue;
            }
            for (auto match = form.globalMatch(cell); match.hasNext();) {
                if (const auto day = CVReadStatementDay(match.next().capturedView()))
                    days.push_back(*day);
            }
        }
    }
    return days;
}

/// The orders in which the days above the header, written alike, exist too.
Orders ordersByDaysAbove(const std::vector<CVStatementDay>& above, const CVWrittenDays& days, const Orders& orders) {
    Orders possible;
    for (const CVDayOrder order : orders) {
        const bool exists = std::all_of(above.begin(), above.end(), [&](const CVStatementDay& day) {
            const bool isAlike = day.separator == days.front().second.separator && day.fields[0].digits <= 2 &&
                                 day.fields[1].digits > 0 && day.hasYear();
            return !isAlike || day.in(order).has_value();
        });
        if (exists)
            possible.push_back(order);
    }
    return possible.empty() ? orders : possible;
}

std::optional<int> yearAbove(const std::vector<CVStatementDay>& above) {
    std::optional<int> year;
    for (const CVStatementDay& day : above) {
        if (!day.hasYear())
            continue;
        const auto date = day.in(day.orders().front());
        const int here = static_cast<int>(date->yearOfCommonEra());
        if (year && *year != here)
            return std::nullopt;
        year = here;
    }
    return year;
}

/// From the first to the last of the days above; absent where there are not two.
std::optional<CVPeriod> periodAbove(const std::vector<CVStatementDay>& above, CVDayOrder order) {
    std::optional<CVPeriod> period;
    for (const CVStatementDay& fields : above) {
        const auto day = fields.hasYear() ? fields.in(order) : std::nullopt;
        if (!day)
            continue;
        if (!period)
            period = {*day, *day};
        period->first = std::min(period->first, *day);
        period->last = std::max(period->last, *day);
    }
    return period && period->first != period->last ? period : std::nullopt;
}

/// Whether two columns are written alike, so that one order holds for both.
bool areAlike(const CVWrittenDays& a, const CVWrittenDays& b) {
    return !a.empty() && !b.empty() && a.front().second.separator == b.front().second.separator &&
           a.front().second.count == b.front().second.count &&
           (a.front().second.fields[0].digits == 4) == (b.front().second.fields[0].digits == 4);
}

} // namespace

CVSettledDays CVSettleDays(const CVStatementTable& table, const CVStatementColumns& columns) {
    CVSettledDays settled;
    if (columns.days.empty())
        return settled;
    const CVWrittenDays days = daysOfColumn(table, columns.days.front());
    if (days.empty())
        return settled;
    const auto above = daysAbove(table);
    settled.hasYears = std::all_of(days.begin(), days.end(), [](const auto& day) { return day.second.hasYear(); });
    settled.year = yearAbove(above);
    Orders orders = CVPossibleDayOrders(days);
    std::vector<int> neighbours;
    for (int column = 0; column < static_cast<int>(columns.roles.size()); ++column) {
        if (columns.roles[static_cast<std::size_t>(column)] == CVColumnRole::OtherDay && column != columns.days.front())
            neighbours.push_back(column);
    }
    for (const int neighbour : neighbours) {
        const CVWrittenDays others = daysOfColumn(table, neighbour);
        if (orders.size() > 1 && areAlike(days, others)) {
            const Orders both = CVPossibleDayOrders(others, orders);
            orders = both.empty() ? orders : both;
        }
        if (orders.size() > 1)
            orders = ordersByNeighbour(table, days, neighbour, orders);
    }
    if (orders.size() > 1)
        orders = ordersByDaysAbove(above, days, orders);
    if (orders.size() > 1)
        orders = CVDayOrdersBySpan(days, orders);
    if (orders.size() > 1)
        orders = CVDayOrdersByRun(days, orders);
    orders = CVDistinctDayOrders(days, orders);
    if (const auto* const open = CVOpenDay(days, orders)) {
        settled.row = open->first;
        settled.text = CVStatementTable::cell(table.rows[open->first], columns.days.front());
        settled.orders = orders;
    } else {
        settled.orders = {orders.front()};
        settled.isProven = CVIsDayOrderProven(days, orders.front());
    }
    settled.period = periodAbove(above, settled.orders.front());
    return settled;
}
