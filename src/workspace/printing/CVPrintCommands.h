#pragma once

#include "reports/CVPrintInfo.h"
#include "reports/CVReportType.h"

#include <QCoreApplication>

class CVAlerts;
class CVBudgetContents;
class CVPrintPanels;
class QBUserDefaults;
class QWidget;

enum class CVPrintWay { Print, Preview };

/// The print commands of the main window, with the print settings that they share and keep in the user defaults.
/// What is printed is computed anew before, as the window keeps only its visible tab up to date. References the
/// contents, the alerts, the panels and the defaults, which outlive it.
class CVPrintCommands final {
    Q_DECLARE_TR_FUNCTIONS(CVPrintCommands)

public:
    CVPrintCommands(CVBudgetContents& contents, CVAlerts& alerts, QBUserDefaults& defaults);

    /// Without panels the commands do nothing.
    void setPrintPanels(CVPrintPanels* panels) { mPanels = panels; }
    [[nodiscard]] bool canPrint() const { return mPanels != nullptr; }

    /// Each shows its panel on the window, or says that there is nothing to print.
    void printTransactions(QWidget& window, CVPrintWay way);
    void printSummary(QWidget& window, CVPrintWay way);
    /// 0 averages, 1 plan vs actual, 2 percent, any other number tax.
    void printReport(QWidget& window, int reportTab, CVPrintWay way);
    void setUpPage(QWidget& window);

private:
    void print(QWidget& window, CVReportType type, CVPrintWay way);

    CVBudgetContents& mContents;
    CVAlerts& mAlerts;
    QBUserDefaults& mDefaults;
    CVPrintPanels* mPanels = nullptr;
    CVPrintInfo mPrintInfo;
};
