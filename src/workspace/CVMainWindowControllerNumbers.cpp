#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "budget/CVFrequencyConversion.h"
#include "budget/CVRangePresets.h"
#include "model/CVCategory.h"
#include "workspace/CVDocumentWindows.h"
#include "workspace/CVMainWindow.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVRangeControls.h"
#include "workspace/figures/CVReportsTab.h"
#include "workspace/transactions/CVTransactionsTab.h"

/// What the controller does for the summary and the reports tabs.

/// Both ranges as their pop-ups have them.
void CVMainWindowController::setDateFieldsFromPopUp() {
    mList.setRangeFromPreset(mToday);
    mReports.setRangeFromPreset(mToday, mDocument);
    mWindow->transactionsTab().rangeControls().setRange(mList.range());
    mWindow->reportsTab().rangeControls().setRange(mReports.range());
}

/// The rows of the grid and the reports.
CVDocument::Categories CVMainWindowController::categoryRows() const {
    return buildCategoryArray(mDocument, CVShowUnusedFromDefaults(mDocument.userDefaults()));
}

void CVMainWindowController::reloadGrid() {
    mGrid.reload(mList.transactions(), categoryRows());
}

void CVMainWindowController::reloadReports() {
    mReports.reload(mList.transactions(), categoryRows());
}

void CVMainWindowController::setTimePeriod(int periodType) {
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kPeriodType, periodType);
    mGrid.periods().setTimePeriod(periodType, CVDisplayPeriods::Placement::fromDefaults(mDocument.userDefaults()));
    reloadAllTables();
}

void CVMainWindowController::showPeriods(void (CVDisplayPeriods::*move)()) {
    (mGrid.periods().*move)();
    reloadAllTables();
}

void CVMainWindowController::goToToday() {
    mGrid.periods().goToToday(CVDisplayPeriods::Placement::fromDefaults(mDocument.userDefaults()));
    reloadAllTables();
}

/// The transactions behind a cell; without any nothing opens.
void CVMainWindowController::showCell(int row, int column) {
    const auto transactions = mGrid.transactionsOfCell(row, column);
    if (mDocumentWindows && !transactions.empty())
        mDocumentWindows->createTransactionController(transactions);
}

void CVMainWindowController::setReportDateRange(int preset) {
    mReports.setReportPeriod(preset);
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kReportPeriod, preset);
    setDateFieldsFromPopUp();
    mList.rebuild();
    reloadAllTables();
}

void CVMainWindowController::setReportStart(const QBDate& start) {
    mReports.setRange({verifyStartDate(start, mDocument), mReports.range().end});
    mWindow->reportsTab().rangeControls().setStart(mReports.range().start);
    reloadAllTables();
}

void CVMainWindowController::setReportEnd(const QBDate& end) {
    mReports.setRange({mReports.range().start, verifyEndDate(end, mDocument)});
    mWindow->reportsTab().rangeControls().setEnd(mReports.range().end);
    reloadAllTables();
}

void CVMainWindowController::setFrequency(int row, int code) {
    CVCategory& category = *mReports.rows()[static_cast<std::size_t>(row)];
    mapExpenseFrequencyFrom(category, category.expenseFrequency(), code);
    category.setExpenseFrequency(code);
    reloadAllTables();
    mDocument.workbookSave();
}

void CVMainWindowController::setTarget(int row, double target) {
    mReports.rows()[static_cast<std::size_t>(row)]->setExpenseTarget(target);
    reloadAllTables();
    mDocument.workbookSave();
}
