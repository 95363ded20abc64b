#include "reports/CVReportSource.h"

#include "contents/CVGridContents.h"
#include "contents/CVReportContents.h"
#include "contents/CVTransactionList.h"
#include "reports/CVGridSummary.h"

namespace {

struct ReportSourceText {
    Q_DECLARE_TR_FUNCTIONS(CVPrintCommands)
};

/// Why a report would be empty; null when it is not.
QString refusalOf(CVReportType type, const CVReportSource& source) {
    const bool isListEmpty = source.list.displayTransactions().empty();
    if (type == CVReportType::Transactions || type == CVReportType::Summary)
        return isListEmpty ? ReportSourceText::tr("There are no transactions to print.") : QString();
    return isListEmpty || source.reports.rows().empty() ? ReportSourceText::tr("There is nothing to print.")
                                                        : QString();
}

/// The plan is compared with all transactions of the set, shares and taxes come from the displayed ones, deliberately.
std::unique_ptr<const CVReport> make(CVReportType type, const CVReportSource& source) {
    const CVDocument::Categories& categories = source.reports.rows();
    const CVDayRange& range = source.reports.range();
    switch (type) {
    case CVReportType::Transactions:
        return CVReport::initWithTransactions(source.list.displayTransactions());
    case CVReportType::Summary:
        return CVReport::initWithSummaryTable(CVGridSummary(source.grid), source.grid.rows(),
                                              static_cast<int>(source.grid.columns().size()));
    case CVReportType::CategoryAverages:
        return CVReport::initWithCatgoryAverages(categories, range.start, range.end);
    case CVReportType::CategoryTotals:
        return CVReport::initWithCatgoryTotals(categories, source.list.transactions(), range.start, range.end);
    case CVReportType::CategoryPercents:
        return CVReport::initWithCatgoryPercents(categories, source.list.displayTransactions(), range.start, range.end);
    case CVReportType::CategoryTax:
        break;
    }
    return CVReport::initWithCatgoryTax(categories, source.list.displayTransactions(), range.start, range.end);
}

} // namespace

CVMadeReport CVMakeReport(CVReportType type, const CVReportSource& source) {
    QString refusal = refusalOf(type, source);
    if (!refusal.isNull())
        return {nullptr, refusal};
    return {make(type, source), QString()};
}
