#include "reports/CVMakeReport.h"

#include "contents/CVBudgetContents.h"
#include "reports/CVGridSummary.h"

namespace {

struct MakeReportText {
    Q_DECLARE_TR_FUNCTIONS(CVMakeReport)
};

/// Why a report would be empty; null when it is not.
QString refusalOf(CVReportType type, const CVBudgetContents& contents) {
    const bool isListEmpty = contents.list().displayTransactions().empty();
    if (type == CVReportType::Transactions || type == CVReportType::Summary)
        return isListEmpty ? MakeReportText::tr("There are no transactions to print.") : QString();
    return isListEmpty || contents.reports().rows().empty() ? MakeReportText::tr("There is nothing to print.")
                                                            : QString();
}

/// The plan is compared with all transactions of the shown sets, but percents and taxes come from the displayed ones;
/// that is deliberate.
std::unique_ptr<CVReport> make(CVReportType type, const CVBudgetContents& contents) {
    const CVCategories& categories = contents.reports().rows();
    const CVDayRange& range = contents.reports().range();
    switch (type) {
    case CVReportType::Transactions:
        return CVReport::initWithTransactions(contents.list().displayTransactions());
    case CVReportType::Summary:
        return CVReport::initWithSummaryTable(CVGridSummary(contents.grid()), contents.grid().rows(),
                                              static_cast<int>(contents.grid().columns().size()));
    case CVReportType::CategoryAverages:
        return CVReport::initWithCatgoryAverages(categories, range.start, range.end);
    case CVReportType::CategoryTotals:
        return CVReport::initWithCatgoryTotals(categories, contents.list().transactions(), range.start, range.end);
    case CVReportType::CategoryPercents:
        return CVReport::initWithCatgoryPercents(categories, contents.list().displayTransactions(), range.start,
                                                 range.end);
    case CVReportType::CategoryTax:
        break;
    }
    return CVReport::initWithCatgoryTax(categories, contents.list().displayTransactions(), range.start, range.end);
}

} // namespace

CVMadeReport CVMakeReport(CVReportType type, const CVBudgetContents& contents) {
    QString refusal = refusalOf(type, contents);
    if (!refusal.isNull())
        return {nullptr, refusal};
    auto report = make(type, contents);
    if (contents.list().shownSets() == CVShownSets::All)
        report->sayAllSets();
    return {std::move(report), QString()};
}
