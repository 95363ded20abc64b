#pragma once

#include "budget/CVDayRange.h"
#include "commands/CVDataOptions.h"

class CVDocument;
class CVReadOnlyBudget;
class CVTransactionList;
class QTextStream;

/// The options that the commands with output from the budget have in common: the file, the set, the days and the
/// output.
struct CVBudgetOptions : CVDataOptions {
    /// The item of the range pop-up, 0 to 7; ignored when days are given.
    int preset = 0;
    /// The first and the last day; an absent one is that of the budget.
    std::optional<QBDate> from = std::nullopt;
    std::optional<QBDate> to = std::nullopt;
    /// The name of a set; absent: the file's current one.
    std::optional<QString> set = std::nullopt;
    /// Absent: the day of the clock.
    std::optional<QBDate> today = std::nullopt;
    /// The output file; absent or "-": standard output.
    std::optional<QString> output = std::nullopt;

    static void declare(QCommandLineParser& parser);
    /// Takes the values that the parser has found. Returns a sentence when a value is not understood, else an empty
    /// text.
    [[nodiscard]] QString read(const QCommandLineParser& parser);

    /// Sets today's date, reads the file and makes the set the current one; false after one line on `errors`.
    [[nodiscard]] bool open(CVReadOnlyBudget& budget, QTextStream& errors) const;
    /// The days that are given in place of a preset; absent when none are.
    [[nodiscard]] std::optional<CVDayRange> days(const CVDocument& document) const;
    /// Sets the list's range of days; the list's stages do not change.
    void chooseRange(CVTransactionList& list, const CVDocument& document) const;
    [[nodiscard]] bool writesToStandardOutput() const;
    /// The exit status after writing to `output`: 0 where `failure` is absent, else 1 after one line on `errors`.
    [[nodiscard]] int tellOutcome(const std::optional<QString>& failure, QTextStream& errors) const;

    /// Writes one line for the user; returns the exit status 1.
    static int fail(QTextStream& errors, const QString& message);
};
