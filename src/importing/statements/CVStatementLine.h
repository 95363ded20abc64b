#pragma once

#include "base/QBDate.h"

#include <QString>
#include <QStringList>

#include <optional>

/// One line of a statement.
struct CVStatementLine {
    /// The line of the file in which it begins, from 1.
    int number = 0;
    /// The day on which the bank booked it.
    std::optional<QBDate> day = std::nullopt;
    /// Money out is negative. Rounded half away from zero from the text, never by way of a double.
    std::optional<qint64> hundredths = std::nullopt;
    QString payee = {};
    QString purpose = {};
    /// What the statement itself says, in its own words.
    QString category = {};
    /// The bank's own number of the line.
    QString bankID = {};
    /// The currency of the amount where most lines have another one; else empty.
    QString otherCurrency = {};
    /// Why it cannot be read, as words that follow a colon; empty when it can.
    QString unreadable = {};
    /// As they stand in the file.
    QStringList cells = {};
};
