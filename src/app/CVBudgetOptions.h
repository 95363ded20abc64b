#pragma once

#include "app/CVOptions.h"
#include "budget/CVDayRange.h"

#include <optional>

class CVReadOnlyBudget;
class CVTransactionList;
class QTextStream;

/// What the commands that write something of the budget have in common: which file, which set, which days, and where
/// to.
struct CVBudgetOptions {
    /// In place of a preset where a range is given: stands for none.
    static constexpr int kNoPreset = -1;

    /// The item of the range pop-up, 0 to 7, or `kNoPreset`.
    int preset = 0;
    std::optional<CVDayRange> range = std::nullopt;
    /// The name of a set; absent: the file's current one.
    std::optional<QString> set = std::nullopt;
    /// Absent: the user's own.
    std::optional<QString> dataFile = std::nullopt;
    /// Absent: the clock's.
    std::optional<QBDate> today = std::nullopt;
    /// Absent: standard output.
    std::optional<QString> output = std::nullopt;

    [[nodiscard]] static std::span<const CVOption<CVBudgetOptions>> options();
    /// Takes what the parser has found of them; a sentence when that cannot be understood, else an empty text.
    [[nodiscard]] QString read(const QCommandLineParser& parser);

    /// Reads the file and makes its set the current one, on the day that is today; false after one line on `errors`.
    [[nodiscard]] bool open(CVReadOnlyBudget& budget, QTextStream& errors) const;
    /// Gives the list its range of days; its stages stay.
    void chooseRange(CVTransactionList& list) const;
    /// Writes to standard output; the exit status, 1 after one line on `errors`.
    [[nodiscard]] static int writeToStandardOutput(const QByteArray& text, QTextStream& errors);
    /// The exit status after writing to `output`: 0 where `failure` is absent, else 1 after one line on `errors`.
    [[nodiscard]] int outputWritten(const std::optional<QString>& failure, QTextStream& errors) const;

    /// One line for the user, and the exit status that goes with it.
    static int fail(QTextStream& errors, const QString& message);
};
