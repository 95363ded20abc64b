#include "budget/CVRangePresets.h"
#include "workspace/CVDocumentWindows.h"
#include "workspace/CVMainMenu.h"
#include "workspace/CVMainWindow.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVEntryStrip.h"
#include "workspace/controls/CVRangeControls.h"
#include "workspace/controls/CVSearchField.h"
#include "workspace/figures/CVReportsTab.h"
#include "workspace/figures/CVSummaryTab.h"
#include "workspace/transactions/CVTransactionTableView.h"
#include "workspace/transactions/CVTransactionsTab.h"

#include <QTabWidget>

/// Which control of the window leads to which operation of its controller.

void CVMainWindowController::connectWindow() {
    connect(mWindow.get(), &CVMainWindow::transactionSetPicked, this, &CVMainWindowController::changeTransactionSet);
    connect(mWindow.get(), &CVMainWindow::closing, this, &CVMainWindowController::saveFrame);
    connect(mWindow.get(), &CVMainWindow::localeChanged, this, &CVMainWindowController::handleLocaleChange);
    connect(&mWindow->entryStrip(), &CVEntryStrip::recordRequested, this, &CVMainWindowController::record);
    connect(&mWindow->entryStrip(), &CVEntryStrip::dateRefused, this, &CVMainWindowController::showProblem);
    connect(&mWindow->tabs(), &QTabWidget::currentChanged, this, &CVMainWindowController::tabSelected);
    connect(&mWindow->menu(), &CVMainMenu::chosen, this, &CVMainWindowController::choose);
    connect(&mWindow->menu(), &CVMainMenu::sortRequested, this, &CVMainWindowController::sortByColumn);
    connectTransactionsTab();
    connectSummaryTab();
    connectReportsTab();
}

void CVMainWindowController::setDocumentWindows(CVDocumentWindows* windows) {
    mDocumentWindows = windows;
    updateCommands();
}

void CVMainWindowController::editCategories() {
    if (mDocumentWindows)
        mDocumentWindows->createCategoryEditController();
}

void CVMainWindowController::handleTransactionSets() {
    if (mDocumentWindows)
        mDocumentWindows->createTransactionSetController();
}

void CVMainWindowController::showPreferences() {
    if (mDocumentWindows)
        mDocumentWindows->createPreferenceController();
}

void CVMainWindowController::connectTransactionsTab() {
    const CVTransactionsTab& tab = mWindow->transactionsTab();
    connect(&tab, &CVTransactionsTab::removeRequested, this, &CVMainWindowController::removeTransaction);
    connect(&tab, &CVTransactionsTab::printRequested, this, [this] { choose(CVCommand::Print); });
    connect(&tab.searchField(), &CVSearchField::searched, this, &CVMainWindowController::setSearchText);
    connect(&tab.searchField(), &CVSearchField::searchTypePicked, this, &CVMainWindowController::setSearchType);
    connect(&tab.table(), &CVTransactionTableView::columnClicked, this, &CVMainWindowController::sortByColumn);
    connect(&tab.table(), &CVTransactionTableView::edited, this, &CVMainWindowController::setObjectValue);
    connect(&tab.table(), &CVTransactionTableView::selectedTransactionsChanged, this,
            &CVMainWindowController::updateCommands);
    const CVRangeControls& range = tab.rangeControls();
    connect(&range, &CVRangeControls::presetPicked, this, &CVMainWindowController::setTransactionDateRange);
    connect(&range, &CVRangeControls::startEntered, this, &CVMainWindowController::setTransactionStart);
    connect(&range, &CVRangeControls::endEntered, this, &CVMainWindowController::setTransactionEnd);
}

void CVMainWindowController::connectSummaryTab() {
    const CVSummaryTab& tab = mWindow->summaryTab();
    connect(&tab, &CVSummaryTab::periodTypePicked, this, &CVMainWindowController::setTimePeriod);
    connect(&tab, &CVSummaryTab::previousRequested, this, [this] { showPeriods(&CVDisplayPeriods::previous); });
    connect(&tab, &CVSummaryTab::nextRequested, this, [this] { showPeriods(&CVDisplayPeriods::next); });
    connect(&tab, &CVSummaryTab::todayRequested, this, &CVMainWindowController::goToToday);
    connect(&tab, &CVSummaryTab::printRequested, this, [this] { choose(CVCommand::Print); });
    connect(&tab, &CVSummaryTab::cellActivated, this, &CVMainWindowController::showCell);
}

void CVMainWindowController::connectReportsTab() {
    const CVReportsTab& tab = mWindow->reportsTab();
    connect(&tab, &CVReportsTab::reportTabPicked, this, &CVMainWindowController::reportTabSelected);
    connect(&tab, &CVReportsTab::presetPicked, this, &CVMainWindowController::setReportDateRange);
    connect(&tab, &CVReportsTab::startEntered, this, &CVMainWindowController::setReportStart);
    connect(&tab, &CVReportsTab::endEntered, this, &CVMainWindowController::setReportEnd);
    connect(&tab, &CVReportsTab::printRequested, this, [this] { choose(CVCommand::Print); });
    connect(&tab, &CVReportsTab::frequencyPicked, this, &CVMainWindowController::setFrequency);
    connect(&tab, &CVReportsTab::targetEntered, this, &CVMainWindowController::setTarget);
}

void CVMainWindowController::choose(CVCommand command) {
    mWindow->commitOpenEditor();
    switch (command) {
    case CVCommand::Export:
        return exportTransactions();
    case CVCommand::Print:
        return printShownTab(CVPrintWay::Print);
    case CVCommand::PrintPreview:
        return printShownTab(CVPrintWay::Preview);
    case CVCommand::PageSetup:
        return mPrintCommands.setUpPage(*mWindow);
    case CVCommand::Quit:
        mWindow->close();
        return;
    case CVCommand::Remove:
        return removeTransaction();
    case CVCommand::Find:
        mWindow->tabs().setCurrentIndex(kTransactions);
        mWindow->transactionsTab().searchField().setFocus(Qt::ShortcutFocusReason);
        mWindow->transactionsTab().searchField().selectAll();
        return;
    case CVCommand::DetectDuplicates:
        return detectDuplicates();
    case CVCommand::ShowTransactions:
    case CVCommand::ShowSummary:
    case CVCommand::ShowReports:
        mWindow->tabs().setCurrentIndex(static_cast<int>(command) - static_cast<int>(CVCommand::ShowTransactions));
        return;
    case CVCommand::PreviousPeriod:
        return showPeriods(&CVDisplayPeriods::previous);
    case CVCommand::NextPeriod:
        return showPeriods(&CVDisplayPeriods::next);
    case CVCommand::Today:
        return goToToday();
    case CVCommand::Record:
        return record();
    case CVCommand::PlanVsActual:
        mWindow->tabs().setCurrentIndex(kReports);
        mWindow->reportsTab().showReport(CVReportTable::Totals);
        return;
    case CVCommand::EditCategories:
        return editCategories();
    case CVCommand::TransactionSets:
        return handleTransactionSets();
    case CVCommand::Preferences:
        return showPreferences();
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

/// Greys out what cannot act now.
void CVMainWindowController::updateCommands() {
    CVMainMenu& menu = mWindow->menu();
    menu.setEnabled(CVCommand::Export, !mList.displayTransactions().empty());
    menu.setEnabled(CVCommand::Remove,
                    mDisplayTab == kTransactions && !mWindow->transactionsTab().table().selectedTransactions().empty());
    for (const CVCommand command : {CVCommand::PreviousPeriod, CVCommand::NextPeriod, CVCommand::Today})
        menu.setEnabled(command, mDisplayTab == kSummary);
    for (const CVCommand command : {CVCommand::EditCategories, CVCommand::TransactionSets, CVCommand::Preferences})
        menu.setEnabled(command, mDocumentWindows != nullptr);
    for (const CVCommand command : {CVCommand::Print, CVCommand::PrintPreview, CVCommand::PageSetup})
        menu.setEnabled(command, mPrintCommands.canPrint());
}
