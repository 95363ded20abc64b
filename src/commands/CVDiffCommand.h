#pragma once

#include <QStringList>

#include <optional>

class QTextStream;

/// The arguments of `corvella diff`.
struct CVDiffRequest {
    /// Whether the command's help is asked for; the files are then not read.
    bool help = false;
    /// "-": standard input. The file name of an earlier version stands for it, here and in `after`.
    QString before = {};
    /// Absent: the user's own data file. "-": standard input.
    std::optional<QString> after = std::nullopt;

    /// Reads the arguments after the command's name, which is the first. Absent when they are not understood; `problem`
    /// then says why.
    [[nodiscard]] static std::optional<CVDiffRequest> parse(const QStringList& arguments, QString& problem);
};

/// `corvella diff`: writes what changed from one data file to a later one, a line for each difference. Returns the exit
/// status as diff does: 0 without a difference, 1 with some, 2 after one line on `errors` that says what failed.
[[nodiscard]] int CVRunDiff(const CVDiffRequest& request, QTextStream& errors);
