#pragma once

#include "commands/CVBudgetOptions.h"
#include "reports/CVPrintInfo.h"
#include "reports/CVReportType.h"

/// What `corvella report` was asked for.
struct CVReportRequest : CVBudgetOptions {
    CVReportType type = CVReportType::Transactions;
    /// Of the summary's columns, as `CVDisplayPeriods` numbers them.
    int periodType = 0;
    /// Absent: what is usual where the user lives.
    std::optional<QPageSize::PageSizeId> paper = std::nullopt;

    /// Reads the arguments behind the command's name (the first is skipped). Absent when they cannot be understood:
    /// `problem` then says why.
    [[nodiscard]] static std::optional<CVReportRequest> parse(const QStringList& arguments, QString& problem);
    /// A PDF needs fonts, and so an application that has them.
    [[nodiscard]] bool needsFonts() const { return output.has_value(); }
};

/// `corvella report`: writes a report as the window would print it, as a PDF file or as text on standard output, with
/// nothing else written anywhere. Returns the exit status: 0, or 1 after one line on `errors` that says what failed.
[[nodiscard]] int CVRunReport(const CVReportRequest& request, QTextStream& errors);
