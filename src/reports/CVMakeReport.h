#pragma once

#include "reports/CVReport.h"

class CVBudgetContents;

/// A report, or the reason why there is none.
struct CVMadeReport {
    /// Null when there is nothing to print.
    std::unique_ptr<const CVReport> report;
    /// The reason as a sentence for the user; null when there is a report.
    QString refusal;
};

/// Makes a report of the displayed list, or of the grid or the figures of the last reload.
[[nodiscard]] CVMadeReport CVMakeReport(CVReportType type, const CVBudgetContents& contents);
