#pragma once

#include "importing/delimited/CVStatementNotation.h"
#include "importing/statements/CVStatementDay.h"

/// Gives the days of a statement their years, line by line.
class CVYearOfDays final {
public:
    /// `year` is that of the first day without one. Where it changes, neighbouring lines are less than half a year
    /// apart.
    CVYearOfDays(CVDayOrder order, std::optional<int> year, bool changes)
        : mOrder(order)
        , mYear(year)
        , mChanges(changes) {}

    /// The next day.
    [[nodiscard]] std::optional<QBDate> next(const CVStatementDay& fields);

private:
    CVDayOrder mOrder;
    std::optional<int> mYear;
    bool mChanges;
    int mLastMonth = 0;
};

/// Whether a new year begins among days that have no year.
struct CVSettledYears {
    bool change = false;
    bool isSettled = true;
    /// Where it is not: the first day that is in another year where the year changes, and both its years.
    std::size_t row = 0;
    QString text = {};
    int sameYear = 0;
    int otherYear = 0;
};

/// What is known of the years.
struct CVKnownYears {
    int year = 0;
    std::optional<int> otherYear = std::nullopt;
    /// Of the statement, as the rows above the header name it.
    std::optional<CVPeriod> period = std::nullopt;
};

/// The days settle it where they lie in the period, or run one way, with the year changing or without, but not both.
[[nodiscard]] CVSettledYears CVSettleYears(const CVStatementTable& table, int column, CVDayOrder order,
                                           const CVKnownYears& known);

/// The booking days of at most the first `most` likely rows.
[[nodiscard]] CVDaysOfLines CVDaysOfLikelyRows(const CVStatementTable& table, int column, CVYearOfDays years,
                                               std::size_t most);
