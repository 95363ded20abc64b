#pragma once

#include "commands/CVBudgetOptions.h"
#include "reports/CVPrintInfo.h"
#include "reports/CVReportType.h"

/// The form in which a report is written: as it is printed, which is text or, with an output file, a PDF; or for other
/// programs.
enum class CVReportFormat { AsPrinted, CSV, JSON };

/// The arguments of `corvella report`.
struct CVReportRequest : CVBudgetOptions {
    CVReportType type = CVReportType::Transactions;
    /// The period of the summary's columns, a number of `CVDisplayPeriods::Type`.
    int periodType = 0;
    CVReportFormat format = CVReportFormat::AsPrinted;
    /// Absent: the paper that is usual in the user's locale.
    std::optional<QPageSize::PageSizeId> paper = std::nullopt;

    /// Reads the arguments after the command's name, which is the first. Absent when they are not understood; `problem`
    /// then says why.
    [[nodiscard]] static std::optional<CVReportRequest> parse(const QStringList& arguments, QString& problem);
    /// Whether the report needs an application object with fonts, as a PDF does.
    [[nodiscard]] bool needsFonts() const { return format == CVReportFormat::AsPrinted && output.has_value(); }
};

/// `corvella report`: writes a report as the window would print it, as a PDF file or as text on standard output, or
/// what it holds for other programs; writes nothing else anywhere. Returns the exit status: 0, or 1 after one line on
/// `errors` that says what failed.
[[nodiscard]] int CVRunReport(const CVReportRequest& request, QTextStream& errors);
