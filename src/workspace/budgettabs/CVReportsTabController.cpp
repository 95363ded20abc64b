#include "workspace/budgettabs/CVReportsTabController.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "budget/CVFrequencyConversion.h"
#include "budget/CVRangePresets.h"
#include "contents/CVBudgetContents.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "workspace/budgettabs/CVReportsTab.h"
#include "workspace/controls/CVRangeControls.h"

CVReportsTabController::CVReportsTabController(CVDocument& document, CVBudgetContents& contents, CVReportsTab& tab)
    : mDocument(document)
    , mContents(contents)
    , mTab(tab) {
    using Self = CVReportsTabController;
    connect(&mTab, &CVReportsTab::reportTabPicked, this, &Self::reportTabSelected);
    connect(&mTab, &CVReportsTab::presetPicked, this, &Self::setReportDateRange);
    connect(&mTab, &CVReportsTab::startEntered, this, &Self::setReportStart);
    connect(&mTab, &CVReportsTab::endEntered, this, &Self::setReportEnd);
    connect(&mTab, &CVReportsTab::frequencyPicked, this, &Self::setFrequency);
    connect(&mTab, &CVReportsTab::targetEntered, this, &Self::setTarget);
}

void CVReportsTabController::reload() {
    mContents.reloadReports();
    mTab.reload();
}

void CVReportsTabController::restoreReportTab() {
    const int stored = mDocument.userDefaults().integerForKey(CVDefaultsKeys::kReportTab);
    mReportTab = stored >= 0 && stored < kReportTables ? stored : 0;
    mTab.setReportTab(mReportTab);
}

void CVReportsTabController::reportTabSelected(int index) {
    mReportTab = index;
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kReportTab, index);
    emit changed();
}

void CVReportsTabController::setReportDateRange(int preset) {
    mContents.reports().setReportPeriod(preset);
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kReportPeriod, preset);
    emit presetPicked();
}

/// Moves a start that lies before the first transaction to the day of that transaction. The text in the other field
/// stays.
void CVReportsTabController::setReportStart(const QBDate& start) {
    CVReportContents& reports = mContents.reports();
    reports.setRange({verifyStartDate(start, mDocument), reports.range().end});
    mTab.rangeControls().setStart(reports.range().start);
    emit changed();
}

/// Moves an end that lies after both today and the last transaction to the later of these two days.
void CVReportsTabController::setReportEnd(const QBDate& end) {
    CVReportContents& reports = mContents.reports();
    reports.setRange({reports.range().start, verifyEndDate(end, mDocument)});
    mTab.rangeControls().setEnd(reports.range().end);
    emit changed();
}

void CVReportsTabController::setFrequency(int row, int code) {
    CVCategory& category = *mContents.reports().rows()[static_cast<std::size_t>(row)];
    mapExpenseFrequencyFrom(category, category.expenseFrequency(), code);
    category.setExpenseFrequency(code);
    emit changed();
    mDocument.workbookSave();
}

void CVReportsTabController::setTarget(int row, double target) {
    mContents.reports().rows()[static_cast<std::size_t>(row)]->setExpenseTarget(target);
    emit changed();
    mDocument.workbookSave();
}
