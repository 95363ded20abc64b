#pragma once

#include "base/QBDate.h"

#include <QString>

#include <optional>
#include <variant>
#include <vector>

/// What stands in a column of a report, for other programs: a text, a number, or a day, which may be missing. Amounts
/// that were computed are rounded to two places, as nobody sees more of them.
using CVReportValue = std::variant<QString, double, std::optional<QBDate>>;
using CVReportValues = std::vector<CVReportValue>;

/// A column of a line: the text that is printed, and its value.
struct CVReportCell {
    QString text;
    CVReportValue value;
};
