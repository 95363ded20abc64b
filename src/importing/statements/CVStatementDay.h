#pragma once

#include "base/QBDate.h"
#include "importing/statements/CVStatementMapping.h"

#include <QStringView>

#include <array>
#include <optional>
#include <vector>

/// The fields of a day as its text has them, before it is known which is which.
struct CVStatementDay {
    struct Field {
        int value = 0;
        /// 0: a month that is written as a word.
        int digits = 0;
    };
    std::array<Field, 3> fields = {};
    /// 2: without a year.
    int count = 0;
    /// Between the fields; null where they stand side by side.
    QChar separator = {};

    /// The day in that order; absent where there is no such day. `year` is taken where the text has none.
    [[nodiscard]] std::optional<QBDate> in(CVDayOrder order, std::optional<int> year = std::nullopt) const;
    /// The orders in which it is a day, the most usual first.
    [[nodiscard]] std::vector<CVDayOrder> orders() const;
    [[nodiscard]] bool hasYear() const { return count == 3; }
};

/// The day that `text` is, alone or with a time or a weekday. Absent for any other text.
[[nodiscard]] std::optional<CVStatementDay> CVReadStatementDay(QStringView text);
/// As `CVReadStatementDay`, for a column of days: six or eight digits side by side are a day too, in any order.
[[nodiscard]] std::optional<CVStatementDay> CVReadDayOfColumn(QStringView text);

/// The number of the month that a word names in one of many languages; 0 for any other word, and for one that names
/// different months in different languages.
[[nodiscard]] int CVMonthOfWord(QStringView word);
