#pragma once

#include "importing/delimited/CVStatementTable.h"
#include "importing/statements/CVStatementMapping.h"

#include <vector>

/// What the columns of a table may be, by their headings and by what stands in them.
struct CVStatementColumns {
    /// The role of each column, without those of the lists below.
    std::vector<CVColumnRole> roles = {};
    /// In the order in which they are likely. The first day is the booking day.
    std::vector<int> days = {};
    /// All of `days`, where there are several and no heading says which is which.
    std::vector<int> unnamedDays = {};
    std::vector<int> amounts = {};
    std::vector<int> moneyIn = {};
    std::vector<int> moneyOut = {};
    std::vector<int> balances = {};
    std::vector<int> fees = {};
    std::vector<int> markers = {};
    /// Whether the headings, or the one who was asked, say which column holds the amounts.
    bool areAmountsNamed = false;
    /// Whether the marker or the fee was given, so that it is no guess.
    bool isMarkerGiven = false;
    bool isFeeGiven = false;
};

/// `known`: the roles that are given already; Guessed where none is.
[[nodiscard]] CVStatementColumns CVGuessColumns(const CVStatementTable& table, const std::vector<CVColumnRole>& known);
