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

/// The print commands of the main window, with their shared print settings, which are kept in the user defaults.
/// References the contents, the alerts, the panels and the defaults, which outlive it.
class CVPrintCommands final {
    Q_DECLARE_TR_FUNCTIONS(CVPrintCommands)

public:
    CVPrintCommands(CVBudgetContents& contents, CVAlerts& alerts, QBUserDefaults& defaults);

    /// Without panels the commands do nothing.
    void setPrintPanels(CVPrintPanels* panels) { mPanels = panels; }
    [[nodiscard]] bool canPrint() const { return mPanels != nullptr; }

    /// Shows the print panel or the preview on `window`, or an alert when there is nothing to print.
    void printTransactions(QWidget& window, CVPrintWay way);
    void printSummary(QWidget& window, CVPrintWay way);
    /// Like printTransactions(). `reportTab` is 0 for averages, 1 for plan vs actual, 2 for percent, any other number
    /// for tax.
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
