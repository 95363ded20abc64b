#pragma once

#include "reports/CVReport.h"

class CVGridContents;
class CVReportContents;
class CVTransactionList;

/// What reports are made of: the list as it is displayed, the grid and the reports' figures as they were last reloaded.
struct CVReportSource {
    const CVTransactionList& list;
    const CVGridContents& grid;
    const CVReportContents& reports;
};

/// A report, or why there is none.
struct CVMadeReport {
    /// Null where there is nothing to print.
    std::unique_ptr<const CVReport> report;
    /// A sentence for the user.
    QString refusal;
};

[[nodiscard]] CVMadeReport CVMakeReport(CVReportType type, const CVReportSource& source);
