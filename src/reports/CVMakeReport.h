#pragma once

#include "reports/CVReport.h"

class CVBudgetContents;

/// A report, or why there is none.
struct CVMadeReport {
    /// Null where there is nothing to print.
    std::unique_ptr<const CVReport> report;
    /// A sentence for the user.
    QString refusal;
};

/// Makes the report of the list as it is displayed, of the grid or of the figures as they were last reloaded.
[[nodiscard]] CVMadeReport CVMakeReport(CVReportType type, const CVBudgetContents& contents);
