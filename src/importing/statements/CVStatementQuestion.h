#pragma once

#include "importing/statements/CVStatementMapping.h"

#include <QString>

#include <vector>

/// What a statement does not settle.
struct CVStatementQuestion {
    enum class About { DayOrder, DecimalMark, Sign, Year, DayColumn, AmountColumn, MoneyOutColumn, FeeColumn, Account };
    struct Answer {
        QString label;
        /// The mapping that was asked for, with this answer.
        CVStatementMapping with;
        /// As the command line takes it: "--date-order dmy".
        QString option;
    };

    About about;
    /// In the statement's own words: "In line 2, is 03/04/2024 3 April 2024 or 4 March 2024?"
    QString text;
    /// The most likely one is the first.
    std::vector<Answer> answers;
};
