#pragma once

#include "importing/delimited/CVAmountRule.h"
#include "importing/delimited/CVStatementColumns.h"
#include "importing/delimited/CVStatementTable.h"

#include <optional>
#include <vector>

/// The decimal mark, as all amounts together tell it.
struct CVSettledMark {
    QChar mark = u'.';
    bool isSettled = true;
    /// Whether some text is an amount with that mark alone.
    bool isProven = false;
    /// Where it is not settled: the row and the text that could be either.
    std::size_t row = 0;
    QString text = {};
};
[[nodiscard]] CVSettledMark CVSettleDecimalMark(const CVStatementTable& table, const CVStatementColumns& columns);

/// Which column holds the booking days: of several without a heading the one whose days alone run one way.
struct CVSettledDayColumn {
    /// The likeliest first; one where it is settled.
    std::vector<int> columns = {};
    /// A row in which they differ.
    std::size_t row = 0;

    [[nodiscard]] bool isSettled() const { return columns.size() < 2; }
};
[[nodiscard]] CVSettledDayColumn CVSettleDayColumn(const CVStatementTable& table, const CVStatementColumns& columns);

struct CVPeriod {
    QBDate first;
    QBDate last;
};

/// The order of day, month and year, as all days together tell it.
struct CVSettledDays {
    /// The likeliest first; one where it is settled.
    std::vector<CVDayOrder> orders = {CVDayOrder::DayMonthYear};
    /// The row and the text of a day that is another one in another order.
    std::size_t row = 0;
    QString text = {};
    /// Whether the days tell the settled order from each other one.
    bool isProven = false;
    bool hasYears = true;
    /// Of days without one, where the rows above the header name one.
    std::optional<int> year = std::nullopt;
    /// That of the statement, where the rows above the header name it.
    std::optional<CVPeriod> period = std::nullopt;

    [[nodiscard]] bool isSettled() const { return orders.size() == 1; }
};
[[nodiscard]] CVSettledDays CVSettleDays(const CVStatementTable& table, const CVStatementColumns& columns);
