#include "workspace/budgettabs/CVToolTipOfReportRow.h"

#include "base/QBMoney.h"
#include "budget/CVLabelOfFrequency.h"
#include "contents/CVReportContents.h"
#include "format/QBDateFormatter.h"
#include "format/QBMoneyFormatter.h"
#include "model/CVCategory.h"
#include "workspace/budgettabs/CVMakeToolTip.h"

#include <QCoreApplication>

#include <vector>

namespace {

struct ReportText {
    Q_DECLARE_TR_FUNCTIONS(CVToolTipOfReportRow)
};

} // namespace

QString CVToolTipOfReportRow(const CVReportContents& contents, const CVCategory& category) {
    const QBDateFormatter dates;
    const QBMoneyFormatter money;
    const CVDayRange& range = contents.range();
    std::vector<CVToolTipLine> lines{
        {ReportText::tr("Transactions:"),
         QBLocaleInForce().toString(static_cast<qulonglong>(category.numberOfTransactions()))},
        {ReportText::tr("Spent:"), money.string(category.total())},
        {ReportText::tr("Average a month:"), money.string(category.monthly())}};
    if (category.expenseTarget() != 0)
        lines.push_back({ReportText::tr("Target, %1:").arg(CVLabelOfFrequency(category.expenseFrequency())),
                         money.string(RoundDoubleToTwoPlaces(category.expenseTarget()))});
    return CVMakeToolTip(category.categoryName(),
                         ReportText::tr("%1 - %2").arg(dates.string(range.start), dates.string(range.end)), lines);
}
