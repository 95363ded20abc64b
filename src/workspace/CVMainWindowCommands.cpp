#include "workspace/CVMainWindowCommands.h"

#include "workspace/CVMainMenu.h"
#include "workspace/CVMainWindow.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/budgettabs/CVReportsTab.h"
#include "workspace/budgettabs/CVSummaryTab.h"
#include "workspace/budgettabs/CVSummaryTabController.h"
#include "workspace/controls/CVSearchField.h"
#include "workspace/transactions/CVTransactionsTab.h"

#include <QTabWidget>

CVMainWindowCommands::CVMainWindowCommands(CVMainWindow& window, CVMainWindowController& controller,
                                           CVSummaryTabController& summary)
    : mWindow(window)
    , mController(controller)
    , mSummary(summary) {
    connect(&mWindow.menu(), &CVMainMenu::chosen, this, &CVMainWindowCommands::choose);
    const auto print = [this] { choose(CVCommand::Print); };
    connect(&mWindow.transactionsTab(), &CVTransactionsTab::printRequested, this, print);
    connect(&mWindow.summaryTab(), &CVSummaryTab::printRequested, this, print);
    connect(&mWindow.reportsTab(), &CVReportsTab::printRequested, this, print);
}

void CVMainWindowCommands::choose(CVCommand command) {
    mWindow.commitOpenEditor();
    switch (command) {
    case CVCommand::Export:
        return mController.exportTransactions();
    case CVCommand::Print:
        return mController.printShownTab(CVPrintWay::Print);
    case CVCommand::PrintPreview:
        return mController.printShownTab(CVPrintWay::Preview);
    case CVCommand::PageSetup:
        return mController.setUpPage();
    case CVCommand::Quit:
        mWindow.close();
        return;
    case CVCommand::SetCategory:
        return mController.setCategory();
    case CVCommand::Remove:
        return mController.removeTransaction();
    case CVCommand::Find:
        return find();
    case CVCommand::DetectDuplicates:
        return mController.detectDuplicates();
    case CVCommand::ShowTransactions:
        return mWindow.tabs().setCurrentIndex(CVMainWindow::kTransactions);
    case CVCommand::ShowSummary:
        return mWindow.tabs().setCurrentIndex(CVMainWindow::kSummary);
    case CVCommand::ShowReports:
        return mWindow.tabs().setCurrentIndex(CVMainWindow::kReports);
    case CVCommand::PreviousPeriod:
        return mSummary.showPreviousPeriod();
    case CVCommand::NextPeriod:
        return mSummary.showNextPeriod();
    case CVCommand::Today:
        return mSummary.goToToday();
    case CVCommand::Record:
        return mController.record();
    case CVCommand::RecordAgain:
        return mController.recordAgain();
    case CVCommand::PlanVsActual:
        mWindow.tabs().setCurrentIndex(CVMainWindow::kReports);
        return mWindow.reportsTab().showReport(CVReportTable::Totals);
    case CVCommand::EditCategories:
        return mController.editCategories();
    case CVCommand::TransactionSets:
        return mController.handleTransactionSets();
    case CVCommand::Preferences:
        return mController.showPreferences();
    case CVCommand::Import:
    case CVCommand::ImportFromClipboard:
    case CVCommand::TakeBackImport:
    case CVCommand::EarlierVersions:
    case CVCommand::ChangesFromElsewhere:
    case CVCommand::ShowHelp:
    case CVCommand::ContactSupport:
    case CVCommand::WebSite:
    case CVCommand::SupportForums:
    case CVCommand::CheckForNewVersion:
    case CVCommand::About:
        emit applicationCommandChosen(command);
        return;
    }
}

void CVMainWindowCommands::find() {
    mWindow.tabs().setCurrentIndex(CVMainWindow::kTransactions);
    mWindow.transactionsTab().searchField().setFocus(Qt::ShortcutFocusReason);
    mWindow.transactionsTab().searchField().selectAll();
}
