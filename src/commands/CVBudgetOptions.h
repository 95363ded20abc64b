#pragma once

#include "budget/CVDayRange.h"
#include "commands/CVDataOptions.h"

class CVDocument;
class CVReadOnlyBudget;
class CVTransactionList;
class QTextStream;

/// What the commands that write something of the budget have in common: which file, which set, which days, and where
/// to.
struct CVBudgetOptions : CVDataOptions {
    /// The item of the range pop-up, 0 to 7. It counts where no days are given.
    int preset = 0;
    /// The days that are asked for; where one end is absent, the budget's own.
    std::optional<QBDate> from = std::nullopt;
    std::optional<QBDate> to = std::nullopt;
    /// The name of a set; absent: the file's current one.
    std::optional<QString> set = std::nullopt;
    /// Absent: the clock's.
    std::optional<QBDate> today = std::nullopt;
    /// Absent: standard output, and so is "-".
    std::optional<QString> output = std::nullopt;

    static void declare(QCommandLineParser& parser);
    /// Takes what the parser has found of them; a sentence when that cannot be understood, else an empty text.
    [[nodiscard]] QString read(const QCommandLineParser& parser);

    /// Reads the file and makes its set the current one, on the day that is today; false after one line on `errors`.
    [[nodiscard]] bool open(CVReadOnlyBudget& budget, QTextStream& errors) const;
    /// The days that are asked for in place of a preset; absent where none are.
    [[nodiscard]] std::optional<CVDayRange> days(const CVDocument& document) const;
    /// Gives the list its range of days; its stages stay.
    void chooseRange(CVTransactionList& list, const CVDocument& document) const;
    [[nodiscard]] bool writesToStandardOutput() const;
    /// The exit status after writing to `output`: 0 where `failure` is absent, else 1 after one line on `errors`.
    [[nodiscard]] int outputWritten(const std::optional<QString>& failure, QTextStream& errors) const;

    /// One line for the user, and the exit status that goes with it.
    static int fail(QTextStream& errors, const QString& message);
};
