#pragma once

#include <QByteArray>
#include <QChar>
#include <QString>

#include <optional>
#include <vector>

/// What a column of a statement says.
enum class CVColumnRole {
    Ignored,
    /// The day on which the bank booked the line.
    Day,
    /// Another day of the line, such as the value day: it helps to settle the order of day and month.
    OtherDay,
    /// Money in and money out in one column, told apart by a sign or by a marker.
    Amount,
    MoneyIn,
    MoneyOut,
    /// Words such as D and C, S and H or debit and credit, which tell money out from money in.
    Marker,
    /// Money out on top of the amount, whatever its sign.
    Fee,
    Payee,
    /// Who pays: the payee of a line of money in.
    Payer,
    Purpose,
    Category,
    Balance,
    Currency,
    BankID,
    /// Of a mapping that is asked for: what the column says is to be guessed.
    Guessed
};

enum class CVDayOrder { DayMonthYear, MonthDayYear, YearMonthDay };

/// How a statement is read. Of a mapping that is asked for, an absent member is to be guessed.
struct CVStatementMapping {
    /// As `CVEncodingsOfStatements` names it.
    std::optional<QByteArray> encoding = std::nullopt;
    std::optional<char> separator = std::nullopt;
    /// The line of the file in which the header begins, from 1; 0: there is none.
    std::optional<int> headerLine = std::nullopt;
    std::optional<std::vector<CVColumnRole>> columns = std::nullopt;
    std::optional<CVDayOrder> dayOrder = std::nullopt;
    /// '.' or ','
    std::optional<QChar> decimalMark = std::nullopt;
    /// Of days without one: that of the first line.
    std::optional<int> year = std::nullopt;
    /// Another year in which some of these days are, or the same one where none is; for days that do not tell whether a
    /// new year begins among them.
    std::optional<int> otherYear = std::nullopt;
    /// Whether an amount without a minus sign is money out, as credit card companies write it.
    std::optional<bool> positiveIsOut = std::nullopt;
    /// A word of the marker's column that means money out, where it is none of the usual ones.
    std::optional<QString> outMarker = std::nullopt;
    /// Of a file with several accounts the one whose lines are read, in the words of the file. Chosen for each file
    /// anew.
    std::optional<QString> account = std::nullopt;

    friend bool operator==(const CVStatementMapping&, const CVStatementMapping&) = default;
};
