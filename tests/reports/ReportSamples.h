#pragma once

#include "contents/CVGridContents.h"
#include "contents/CVReportContents.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "reports/CVReport.h"

#include <array>

/// The kinds of reports: number and name.
struct ReportKind {
    CVReportType type;
    const char* name;
};
inline constexpr std::array<ReportKind, kReportTypes> kReportKinds{{{CVReportType::Transactions, "transactions"},
                                                                    {CVReportType::CategoryAverages, "averages"},
                                                                    {CVReportType::CategoryTotals, "plan"},
                                                                    {CVReportType::CategoryPercents, "percent"},
                                                                    {CVReportType::CategoryTax, "tax"},
                                                                    {CVReportType::Summary, "summary"}}};

/// One report of each kind, on a budget that contains other scripts and writing directions, overlong names, taxed,
/// negative and large amounts, all frequencies, and 52 transactions up to 12 March 2014.
class ReportSamples final {
public:
    ReportSamples();

    [[nodiscard]] std::unique_ptr<const CVReport> report(CVReportType type) const;

private:
    FixedToday mToday{day(2014, 3, 12)};
    BudgetBuilder mBudget;
    CVDocument& mDocument = mBudget.document();
    CVGridContents mGrid{day(2014, 3, 12), CVDisplayPeriods::Day, {}};
    CVReportContents mReports{day(2014, 3, 12)};
};
