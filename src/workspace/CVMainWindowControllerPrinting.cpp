#include "workspace/CVMainWindow.h"
#include "workspace/CVMainWindowController.h"

/// What the controller does for the print commands. Only the visible tab is kept up to date, so that the figures are
/// made current before they are printed.

void CVMainWindowController::setPrintPanels(CVPrintPanels* panels) {
    mPrintCommands.setPrintPanels(panels);
    updateCommands();
}

void CVMainWindowController::printTransactions(CVPrintWay way) {
    mPrintCommands.printTransactions(*mWindow, way);
}

void CVMainWindowController::printSummary(CVPrintWay way) {
    reloadGrid();
    mPrintCommands.printSummary(*mWindow, way);
}

void CVMainWindowController::printReport(CVPrintWay way) {
    reloadReports();
    mPrintCommands.printReport(*mWindow, mReportTab, way);
}

void CVMainWindowController::printShownTab(CVPrintWay way) {
    switch (mDisplayTab) {
    case kSummary:
        return printSummary(way);
    case kReports:
        return printReport(way);
    default:
        return printTransactions(way);
    }
}
