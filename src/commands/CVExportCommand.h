#pragma once

#include "commands/CVBudgetOptions.h"

/// What `corvella export` was asked for.
struct CVExportRequest : CVBudgetOptions {
    int searchKind = 0;
    /// Empty: everything.
    QString searchText = {};
    QString sortColumn = QStringLiteral("date");
    bool descending = true;

    /// Reads the arguments behind the command's name (the first is skipped). Absent when they cannot be understood:
    /// `problem` then says why.
    [[nodiscard]] static std::optional<CVExportRequest> parse(const QStringList& arguments, QString& problem);
};

/// `corvella export`: writes the list as the window would show and export it, with nothing else written anywhere.
/// Returns the exit status: 0, or 1 after one line on `errors` that says what failed.
[[nodiscard]] int CVRunExport(const CVExportRequest& request, QTextStream& errors);
