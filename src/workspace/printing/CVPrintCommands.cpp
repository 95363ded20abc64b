#include "workspace/printing/CVPrintCommands.h"

#include "contents/CVBudgetContents.h"
#include "format/QBLocale.h"
#include "reports/CVMakeReport.h"
#include "reports/CVReportView.h"
#include "widgets/CVAlerts.h"
#include "workspace/printing/CVPrintPanels.h"

CVPrintCommands::CVPrintCommands(CVBudgetContents& contents, CVAlerts& alerts, QBUserDefaults& defaults)
    : mContents(contents)
    , mAlerts(alerts)
    , mDefaults(defaults)
    , mPrintInfo(CVPrintInfo::fromDefaults(defaults, QBLocaleInForce())) {}

void CVPrintCommands::printTransactions(QWidget& window, CVPrintWay way) {
    print(window, CVReportType::Transactions, way);
}

void CVPrintCommands::printSummary(QWidget& window, CVPrintWay way) {
    mContents.reloadGrid();
    print(window, CVReportType::Summary, way);
}

void CVPrintCommands::printReport(QWidget& window, int reportTab, CVPrintWay way) {
    constexpr std::array kTypes{CVReportType::CategoryAverages, CVReportType::CategoryTotals,
                                CVReportType::CategoryPercents};
    mContents.reloadReports();
    const auto tab = static_cast<std::size_t>(reportTab);
    print(window, tab < kTypes.size() ? kTypes[tab] : CVReportType::CategoryTax, way);
}

void CVPrintCommands::setUpPage(QWidget& window) {
    if (!mPanels)
        return;
    const CVPrintInfo before = mPrintInfo;
    mPanels->setUpPage(window, mPrintInfo);
    if (mPrintInfo != before)
        mPrintInfo.keepIn(mDefaults);
}

void CVPrintCommands::print(QWidget& window, CVReportType type, CVPrintWay way) {
    if (!mPanels)
        return;
    CVMadeReport made = CVMakeReport(type, mContents);
    if (!made.report) {
        mAlerts.run(&window, {tr("Report Error"), made.refusal, tr("OK")});
        return;
    }
    CVReportView view(std::move(made.report), mPrintInfo);
    const auto failure = way == CVPrintWay::Print ? mPanels->print(window, view) : mPanels->preview(window, view);
    if (failure)
        mAlerts.run(&window,
                    {tr("The report was not printed"),
                     tr("%1. Your budget is not affected; try again, or choose another printer.").arg(*failure),
                     tr("OK")});
}
