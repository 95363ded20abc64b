#pragma once

#include "importing/qif/CVQIFFile.h"
#include "importing/statements/CVDayOrders.h"
#include "importing/statements/CVDecimalMarks.h"
#include "importing/statements/CVStatementLine.h"

#include <optional>
#include <vector>

/// How days and amounts are written.
struct CVQIFRule {
    CVDayOrder order = CVDayOrder::DayMonthYear;
    QChar mark = u'.';
    /// Of days without one.
    std::optional<int> year = std::nullopt;
    bool positiveIsOut = false;
};

/// The lines of an entry: its parts where they add up to its amount, else one. None for the balance with which an
/// account begins.
[[nodiscard]] std::vector<CVStatementLine> CVLinesOfQIFEntry(const CVQIFEntry& entry, const CVQIFRule& rule);

/// What an entry says about how days and amounts are written.
struct CVQIFNotation {
    CVWrittenDays days = {};
    /// As they stand there, one for each of `days`.
    QStringList dayTexts = {};
    CVDecimalMarks marks = {};

    void count(const CVQIFEntry& entry);
};
