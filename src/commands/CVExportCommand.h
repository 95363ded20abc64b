#pragma once

#include "commands/CVBudgetOptions.h"
#include "contents/CVTransactionExport.h"

/// The arguments of `corvella export`.
struct CVExportRequest : CVBudgetOptions {
    int searchKind = 0;
    /// Empty: every transaction.
    QString searchText = {};
    QString sortColumn = QStringLiteral("date");
    bool descending = true;
    CVExportFormat format = CVExportFormat::List;
    /// Whether the transactions of all sets are written.
    bool allSets = false;

    /// Reads the arguments after the command's name, which is the first. Absent when they are not understood; `problem`
    /// then says why.
    [[nodiscard]] static std::optional<CVExportRequest> parse(const QStringList& arguments, QString& problem);
};

/// `corvella export`: writes the list as the window would show and export it; writes nothing else anywhere. Returns the
/// exit status: 0, or 1 after one line on `errors` that says what failed.
[[nodiscard]] int CVRunExport(const CVExportRequest& request, QTextStream& errors);
