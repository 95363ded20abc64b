#pragma once

#include "commands/CVDataOptions.h"
#include "commands/CVStatementOptions.h"

#include <QString>

#include <optional>

class QTextStream;

/// The arguments of `corvella import`.
struct CVImportRequest : CVDataOptions {
    enum class Income { OwnSet, SameSet, LeftOut };

    /// "-": standard input.
    QString file = {};
    QString set = {};
    Income income = Income::SameSet;
    /// With `OwnSet`.
    QString incomeSet = {};
    /// The name of a kept mapping; absent: that of the header.
    std::optional<QString> mappingName = std::nullopt;
    bool dryRun = false;
    /// Whether the dry run writes money out with a minus sign.
    bool isSigned = false;
    bool skipUnreadable = false;
    CVStatementOptions statement = {};

    /// Reads the arguments after the command's name, which is the first. Absent when they are not understood; `problem`
    /// then says why.
    [[nodiscard]] static std::optional<CVImportRequest> parse(const QStringList& arguments, QString& problem);
};

/// `corvella import`. Returns the exit status: 0, or 1 after one line on `errors` that says what failed, what is to be
/// answered or how many lines could not be read.
[[nodiscard]] int CVRunImport(const CVImportRequest& request, QTextStream& errors);
