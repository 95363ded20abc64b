#include "workspace/budgettabs/CVSummaryTabController.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "contents/CVBudgetContents.h"
#include "model/CVDocument.h"
#include "workspace/budgettabs/CVSummaryTab.h"

CVSummaryTabController::CVSummaryTabController(CVDocument& document, CVBudgetContents& contents, CVSummaryTab& tab)
    : mDocument(document)
    , mContents(contents)
    , mTab(tab) {
    using Self = CVSummaryTabController;
    mTab.setPeriodType(mContents.grid().periods().periodType());
    connect(&mTab, &CVSummaryTab::periodTypePicked, this, &Self::setTimePeriod);
    connect(&mTab, &CVSummaryTab::previousRequested, this, &Self::showPreviousPeriod);
    connect(&mTab, &CVSummaryTab::nextRequested, this, &Self::showNextPeriod);
    connect(&mTab, &CVSummaryTab::todayRequested, this, &Self::goToToday);
    connect(&mTab, &CVSummaryTab::cellActivated, this, &Self::showCell);
}

void CVSummaryTabController::reload() {
    mContents.reloadGrid();
    mTab.reload();
}

void CVSummaryTabController::placePeriods() {
    mContents.grid().periods().initializeFirstColumnStartingDate(placement());
}

void CVSummaryTabController::showPreviousPeriod() {
    mContents.grid().periods().previous();
    emit periodsChanged();
}

void CVSummaryTabController::showNextPeriod() {
    mContents.grid().periods().next();
    emit periodsChanged();
}

void CVSummaryTabController::goToToday() {
    mContents.grid().periods().goToToday(placement());
    emit periodsChanged();
}

CVDisplayPeriods::Placement CVSummaryTabController::placement() const {
    return CVDisplayPeriods::Placement::fromDefaults(mDocument.userDefaults());
}

void CVSummaryTabController::setTimePeriod(int periodType) {
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kPeriodType, periodType);
    mContents.grid().periods().setTimePeriod(periodType, placement());
    emit periodsChanged();
}

void CVSummaryTabController::showCell(int row, int column) {
    const auto transactions = mContents.grid().transactionsOfCell(row, column);
    if (!transactions.empty())
        emit cellOpened(transactions);
}
