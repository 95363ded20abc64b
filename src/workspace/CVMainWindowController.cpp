#include "workspace/CVMainWindowController.h"

#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "budget/CVRangePresets.h"
#include "model/CVCategory.h"
#include "model/CVTransactionSet.h"
#include "widgets/CVWindowFrame.h"
#include "workspace/CVMainMenu.h"
#include "workspace/CVMainWindow.h"
#include "workspace/controls/CVEntryStrip.h"
#include "workspace/controls/CVRangeControls.h"
#include "workspace/figures/CVReportColumns.h"
#include "workspace/figures/CVReportsTab.h"
#include "workspace/figures/CVSummaryTab.h"
#include "workspace/transactions/CVTransactionTableView.h"
#include "workspace/transactions/CVTransactionsTab.h"

#include <QScopedValueRollback>
#include <QTabWidget>

namespace {

constexpr const char* kFrameKey = "CVMainWindowController";
constexpr const char* kColumnsKey = "CVMainWindowController Columns";
constexpr const char* kReportColumnsKey = "CVMainWindowController Report Columns";
constexpr int kFirstWidthInDigits = 135;
constexpr int kFirstHeightInLines = 45;

} // namespace

CVMainWindowController::CVMainWindowController(CVDocument& document, CVAlerts& alerts, CVFilePanels& panels)
    : mDocument(document)
    , mAlerts(alerts)
    , mPanels(panels)
    , mToday(QBDate::date())
    , mList(document)
    , mGrid(mToday, document.userDefaults().integerForKey(CVDefaultsKeys::kPeriodType),
            CVDisplayPeriods::Placement::fromDefaults(document.userDefaults()))
    , mReports(mToday)
    , mPrintCommands({mList, mGrid, mReports}, alerts, document.userDefaults())
    , mWindow(std::make_unique<CVMainWindow>(mList, mGrid, mReports)) {
    windowDidLoad();
}

CVMainWindowController::~CVMainWindowController() = default;

void CVMainWindowController::showWindow() {
    mWindow->show();
    mWindow->raise();
    mWindow->activateWindow();
}

QMainWindow* CVMainWindowController::window() const {
    return mWindow.get();
}

CVSaveStatus& CVMainWindowController::saveStatus() const {
    return mWindow->saveStatus();
}

void CVMainWindowController::setMayClose(std::function<bool()> mayClose) {
    mWindow->setMayClose(std::move(mayClose));
}

void CVMainWindowController::getStarted() {
    const QScopedValueRollback settingUp(_cv_setting_up, true);
    showTransactionSets();
    mList.collectTransactions();
    setDateFieldsFromPopUp();
    mainSetup();
    updatePaidToAutocomplete();
    reloadAllTables();
}

void CVMainWindowController::reloadAllTables() {
    if (mDisplayTab == kSummary) {
        reloadGrid();
        mWindow->summaryTab().reload();
    } else if (mDisplayTab == kReports) {
        reloadReports();
        mWindow->reportsTab().reload();
    } else
        showList();
    updateCommands();
}

void CVMainWindowController::changeTransactionSet(int index) {
    mDocument.setCurrentTransactionSet(
        mDocument.objectInTransactionSetsAtIndex(static_cast<std::size_t>(index))->uniqueID());
    mDocument.workbookSave();
    getStarted();
}

void CVMainWindowController::windowDidLoad() {
    const QScopedValueRollback settingUp(_cv_setting_up, true);
    restoreFrame();
    readViewState();
    observeNotifications();
    connectWindow();
    showCategoryItems();
    mWindow->entryStrip().focusField(CVEntryField::Date);
    selectViewState();
    getStarted();
}

/// A number that no tab or item has counts as the first.
void CVMainWindowController::readViewState() {
    const QBUserDefaults& defaults = mDocument.userDefaults();
    const auto indexForKey = [&defaults](const char* key, int count) {
        const int index = defaults.integerForKey(key);
        return index >= 0 && index < count ? index : 0;
    };
    mDisplayTab = indexForKey(CVDefaultsKeys::kDisplayTab, mWindow->tabs().count());
    mReportTab = indexForKey(CVDefaultsKeys::kReportTab, kReportTables);
    mList.setTransactionPeriod(indexForKey(CVDefaultsKeys::kTransactionPeriod, kCVRangePresets));
    mReports.setReportPeriod(indexForKey(CVDefaultsKeys::kReportPeriod, kCVRangePresets));
}

void CVMainWindowController::selectViewState() {
    mWindow->summaryTab().setPeriodType(mGrid.periods().periodType());
    mWindow->tabs().setCurrentIndex(mDisplayTab);
    mWindow->reportsTab().setReportTab(mReportTab);
    mWindow->transactionsTab().rangeControls().setPreset(mList.transactionPeriod());
    mWindow->reportsTab().rangeControls().setPreset(mReports.reportPeriod());
}

void CVMainWindowController::restoreFrame() {
    const QBUserDefaults& defaults = mDocument.userDefaults();
    const QFontMetrics letters = mWindow->fontMetrics();
    CVRestoreFrame(*mWindow, defaults.dataForKey(kFrameKey),
                   {kFirstWidthInDigits * letters.horizontalAdvance('0'), kFirstHeightInLines * letters.height()});
    mWindow->transactionsTab().table().restoreColumns(defaults.dataForKey(kColumnsKey));
    mWindow->reportsTab().restoreColumns(defaults.dataForKey(kReportColumnsKey));
}

void CVMainWindowController::saveFrame() const {
    QBUserDefaults& defaults = mDocument.userDefaults();
    defaults.setData(kFrameKey, mWindow->saveGeometry());
    defaults.setData(kColumnsKey, mWindow->transactionsTab().table().saveColumns());
    defaults.setData(kReportColumnsKey, mWindow->reportsTab().saveColumns());
}

void CVMainWindowController::observeNotifications() {
    struct Observation {
        const char* name;
        void (CVMainWindowController::*handler)();
    };
    constexpr std::array<Observation, 5> kObservations{
        {{CVNotifications::kPreference, &CVMainWindowController::preferenceChanged},
         {CVNotifications::kTransactionAddedRemoved, &CVMainWindowController::transactionUpdated},
         {CVNotifications::kCategoryAddedRemoved, &CVMainWindowController::handleCategoryUpdate},
         {CVNotifications::kMoneyFormatterChanged, &CVMainWindowController::moneyFormatChanged},
         {CVNotifications::kTransactionSet, &CVMainWindowController::getStarted}}};
    for (const Observation& observation : kObservations)
        mDocument.notificationCenter().addObserver(
            QLatin1String(observation.name), this,
            [this, handler = observation.handler](const QBNotification&) { (this->*handler)(); });
}

void CVMainWindowController::mainSetup() {
    mList.rebuild();
    mGrid.periods().initializeFirstColumnStartingDate(
        CVDisplayPeriods::Placement::fromDefaults(mDocument.userDefaults()));
}

void CVMainWindowController::showTransactionSets() {
    QStringList names;
    for (const auto& set : mDocument.transactionSets())
        names.append(set->transactionSetName());
    mWindow->setTransactionSets(names, static_cast<int>(mDocument.popupIndexOfCurrentTransactionSet()));
}

void CVMainWindowController::updatePaidToAutocomplete() {
    mPaidToList.update(mList.transactions(), mDocument.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems));
    mWindow->entryStrip().setPaidToItems(mPaidToList.payees());
    mWindow->transactionsTab().table().setPaidToItems(mPaidToList.payees());
}

void CVMainWindowController::tabSelected(int index) {
    if (_cv_setting_up)
        return;
    mDisplayTab = index;
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kDisplayTab, index);
    reloadAllTables();
}

void CVMainWindowController::reportTabSelected(int index) {
    if (_cv_setting_up)
        return;
    mReportTab = index;
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kReportTab, index);
    reloadAllTables();
}

void CVMainWindowController::showCategoryItems() {
    QStringList names;
    for (const auto& category : mDocument.categories())
        names.append(category->categoryName());
    mWindow->entryStrip().setCategoryItems(names);
    mWindow->transactionsTab().table().setCategoryItems(names);
}

void CVMainWindowController::handleCategoryUpdate() {
    showCategoryItems();
    // A name that is searched for or sorted by may be another one now.
    if (!mKeepsRows)
        mList.refilter();
    reloadAllTables();
}

/// Recording and removing rebuild everything themselves; the reports alone show other changes at once.
void CVMainWindowController::transactionUpdated() {
    if (mDisplayTab != kReports)
        return;
    mList.rebuild();
    reloadAllTables();
}

/// The settings are not all that may be new: the data file may have been cleared as well.
void CVMainWindowController::preferenceChanged() {
    mList.collectTransactions();
    showCategoryItems();
    mainSetup();
    updatePaidToAutocomplete();
    reloadAllTables();
}

void CVMainWindowController::moneyFormatChanged() {
    mWindow->entryStrip().localeChanged();
    mWindow->transactionsTab().updateFormatters();
    reloadAllTables();
}

/// The fields and tables follow by themselves; whoever else shows money hears of it.
void CVMainWindowController::handleLocaleChange() {
    mDocument.notificationCenter().postNotification(QLatin1String(CVNotifications::kMoneyFormatterChanged));
}
