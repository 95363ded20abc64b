#pragma once

#include "commands/CVDataOptions.h"
#include "commands/CVStatementOptions.h"
#include "importing/CVImportTargets.h"

#include <QString>

#include <optional>

/// The arguments of `corvella import`.
struct CVImportRequest : CVDataOptions {
    using Income = CVImportTargets::Income;

    /// "-": standard input.
    QString file = {};
    /// Empty: the file must be a budget.
    QString set = {};
    Income income = Income::SameSet;
    /// With `OwnSet`.
    QString incomeSet = {};
    /// The name of a kept mapping; absent: that of the header.
    std::optional<QString> mappingName = std::nullopt;
    /// The category of the lines for which the memory has none; empty: there must be no such line.
    QString categoryForRest = {};
    bool dryRun = false;
    /// Whether the dry run writes money out with a minus sign.
    bool isSigned = false;
    bool skipUnreadable = false;
    CVStatementOptions statement = {};
    /// The names of the given options that go with a statement and with no budget, without dashes.
    QStringList optionsOfStatement = {};

    /// Reads the arguments after the command's name, which is the first. Absent when they are not understood; `problem`
    /// then says why.
    [[nodiscard]] static std::optional<CVImportRequest> parse(const QStringList& arguments, QString& problem);
};
