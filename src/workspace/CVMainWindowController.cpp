#include "workspace/CVMainWindowController.h"

#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "budget/CVRangePresets.h"
#include "contents/CVEntry.h"
#include "format/QBLocale.h"
#include "model/CVDocument.h"
#include "model/CVTransactionSet.h"
#include "versions/CVVersionLimit.h"
#include "workspace/CVDocumentWindows.h"
#include "workspace/CVEntryController.h"
#include "workspace/CVMainMenu.h"
#include "workspace/CVMainWindow.h"
#include "workspace/CVMainWindowCommands.h"
#include "workspace/budgettabs/CVReportsTab.h"
#include "workspace/budgettabs/CVReportsTabController.h"
#include "workspace/budgettabs/CVSummaryTab.h"
#include "workspace/budgettabs/CVSummaryTabController.h"
#include "workspace/controls/CVEntryStrip.h"
#include "workspace/controls/CVRangeControls.h"
#include "workspace/controls/CVReadOnlyNotice.h"
#include "workspace/controls/CVSaveStatus.h"
#include "workspace/transactions/CVTransactionTableView.h"
#include "workspace/transactions/CVTransactionsTab.h"
#include "workspace/transactions/CVTransactionsTabController.h"

#include <QScopedValueRollback>
#include <QTabWidget>

CVMainWindowController::CVMainWindowController(CVDocument& document, CVAlerts& alerts, CVFilePanels& panels)
    : mDocument(document)
    , mContents(document, QBDate::date(), document.userDefaults().integerForKey(CVDefaultsKeys::kPeriodType))
    , mPrintCommands(mContents, alerts, document.userDefaults())
    , mWindow(std::make_unique<CVMainWindow>(mContents))
    , mEntryController(std::make_unique<CVEntryController>(document, *mWindow, alerts))
    , mListController(std::make_unique<CVTransactionsTabController>(document, mContents.list(),
                                                                    mWindow->transactionsTab(), alerts, panels))
    , mSummaryController(std::make_unique<CVSummaryTabController>(document, mContents, mWindow->summaryTab()))
    , mReportsController(std::make_unique<CVReportsTabController>(document, mContents, mWindow->reportsTab()))
    , mCommands(std::make_unique<CVMainWindowCommands>(*mWindow, *this, *mSummaryController)) {
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

bool CVMainWindowController::returnToUnreadable() {
    return mWindow->returnToUnreadable();
}

void CVMainWindowController::showReadOnly(const QString& why) {
    mWindow->showReadOnly(why);
}

void CVMainWindowController::setDocumentWindows(CVDocumentWindows* windows) {
    mDocumentWindows = windows;
    updateCommands();
}

void CVMainWindowController::setPrintPanels(CVPrintPanels* panels) {
    mPrintCommands.setPrintPanels(panels);
    updateCommands();
}

void CVMainWindowController::getStarted() {
    const QScopedValueRollback settingUp(_cv_setting_up, true);
    showTransactionSets();
    mContents.list().collectTransactions();
    setDateFieldsFromPopUp();
    mainSetup();
    mEntryController->updatePaidToAutocomplete(mContents.list().transactions());
    reloadAllTables();
}

void CVMainWindowController::reloadAllTables() {
    if (mDisplayTab == CVMainWindow::kSummary)
        mSummaryController->reload();
    else if (mDisplayTab == CVMainWindow::kReports)
        mReportsController->reload();
    else
        mListController->reload();
    updateCommands();
}

void CVMainWindowController::showAllSets() {
    mContents.list().setShownSets(CVShownSets::All);
    getStarted();
}

bool CVMainWindowController::showsAllSets() const {
    return mContents.list().shownSets() == CVShownSets::All;
}

void CVMainWindowController::changeTransactionSet(int index) {
    mContents.list().setShownSets(CVShownSets::Current);
    mDocument.setCurrentTransactionSet(
        mDocument.objectInTransactionSetsAtIndex(static_cast<std::size_t>(index))->uniqueID());
    mDocument.workbookSave();
    getStarted();
}

void CVMainWindowController::record() {
    mEntryController->record();
}

void CVMainWindowController::recordAgain() {
    mEntryController->recordAgain();
}

void CVMainWindowController::setCategory() {
    mListController->setCategory();
}

void CVMainWindowController::remarkRemoval(int count) {
    saveStatus().remark(count == 1
                            ? tr("1 transaction removed")
                            : tr("%1 transactions removed", nullptr, count).arg(QBLocaleInForce().toString(count)),
                        offerOfVersions());
}

void CVMainWindowController::remarkMerge(const QString& from, const QString& into) {
    saveStatus().remark(tr("“%1” was merged into “%2”").arg(from, into), offerOfVersions());
}

CVSaveStatus::Offer CVMainWindowController::offerOfVersions() const {
    return CVVersionLimit(mDocument.userDefaults()) > 0 ? CVSaveStatus::Offer::Versions : CVSaveStatus::Offer::Nothing;
}

void CVMainWindowController::setCanTakeBackImport(bool can) {
    mCanTakeBackImport = can;
    saveStatus().setCanTakeBack(can);
    updateCommands();
}

void CVMainWindowController::remarkCategory(int count, const QString& name) const {
    saveStatus().remark(count == 1 ? tr("1 transaction now has the category “%1”").arg(name)
                                   : tr("%2 transactions now have the category “%1”", nullptr, count)
                                         .arg(name, QBLocaleInForce().toString(count)));
}

void CVMainWindowController::removeTransaction() {
    mListController->removeTransaction();
}

void CVMainWindowController::detectDuplicates() {
    mWindow->tabs().setCurrentIndex(CVMainWindow::kTransactions);
    mListController->detectDuplicates();
}

void CVMainWindowController::exportTransactions() {
    mListController->exportTransactions();
}

void CVMainWindowController::printTransactions(CVPrintWay way) {
    mPrintCommands.printTransactions(*mWindow, way);
}

void CVMainWindowController::printSummary(CVPrintWay way) {
    mPrintCommands.printSummary(*mWindow, way);
}

void CVMainWindowController::printReport(CVPrintWay way) {
    mPrintCommands.printReport(*mWindow, mReportsController->reportTab(), way);
}

void CVMainWindowController::printShownTab(CVPrintWay way) {
    if (mDisplayTab == CVMainWindow::kSummary)
        printSummary(way);
    else if (mDisplayTab == CVMainWindow::kReports)
        printReport(way);
    else
        printTransactions(way);
}

void CVMainWindowController::setUpPage() {
    mPrintCommands.setUpPage(*mWindow);
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

void CVMainWindowController::windowDidLoad() {
    const QScopedValueRollback settingUp(_cv_setting_up, true);
    mWindow->restore(mDocument.userDefaults());
    readViewState();
    observeNotifications();
    connectWindow();
    connectParts();
    mEntryController->showCategoryItems();
    if (mDocument.isReadOnly())
        showReadOnly(tr("Read-only: this budget cannot be changed here."));
    else
        mWindow->entryStrip().focusField(CVEntryField::Date);
    getStarted();
}

/// Reads the stored tab, report and presets of the ranges; an index that is out of range reads as 0.
void CVMainWindowController::readViewState() {
    const QBUserDefaults& defaults = mDocument.userDefaults();
    const auto indexForKey = [&defaults](const char* key, int count) {
        const int index = defaults.integerForKey(key);
        return index >= 0 && index < count ? index : 0;
    };
    mDisplayTab = indexForKey(CVDefaultsKeys::kDisplayTab, mWindow->tabs().count());
    mWindow->tabs().setCurrentIndex(mDisplayTab);
    mReportsController->restoreReportTab();
    mContents.list().setTransactionPeriod(indexForKey(CVDefaultsKeys::kTransactionPeriod, kCVRangePresets));
    mWindow->transactionsTab().rangeControls().setPreset(mContents.list().transactionPeriod());
    mContents.reports().setReportPeriod(indexForKey(CVDefaultsKeys::kReportPeriod, kCVRangePresets));
    mWindow->reportsTab().rangeControls().setPreset(mContents.reports().reportPeriod());
}

void CVMainWindowController::connectWindow() {
    using Self = CVMainWindowController;
    connect(mWindow.get(), &CVMainWindow::transactionSetPicked, this, &Self::changeTransactionSet);
    connect(mWindow.get(), &CVMainWindow::allSetsPicked, this, &Self::showAllSets);
    connect(mWindow.get(), &CVMainWindow::closing, this, [this] { mWindow->keep(mDocument.userDefaults()); });
    connect(mWindow.get(), &CVMainWindow::fileDropped, this, &Self::fileDropped);
    connect(mWindow.get(), &CVMainWindow::localeChanged, this, &Self::handleLocaleChange);
    connect(&mWindow->tabs(), &QTabWidget::currentChanged, this, &Self::tabSelected);
    connect(&mWindow->transactionsTab().table(), &CVTransactionTableView::selectedTransactionsChanged, this,
            &Self::updateCommands);
}

void CVMainWindowController::connectParts() {
    using Self = CVMainWindowController;
    const CVTransactionsTabController* const controller = mListController.get();
    connect(mEntryController.get(), &CVEntryController::recorded, this, &Self::getStarted);
    connect(&mWindow->menu(), &CVMainMenu::sortRequested, controller, &CVTransactionsTabController::sortByColumn);
    connect(controller, &CVTransactionsTabController::listChanged, this, &Self::reloadAllTables);
    connect(controller, &CVTransactionsTabController::presetPicked, this, &Self::presetPicked);
    connect(controller, &CVTransactionsTabController::transactionsRemoved, this, &Self::getStarted);
    connect(controller, &CVTransactionsTabController::removalRemarked, this, &Self::remarkRemoval);
    connect(controller, &CVTransactionsTabController::categorySet, this, &Self::remarkCategory);
    connect(&saveStatus(), &CVSaveStatus::versionsRequested, this,
            [this] { emit applicationCommandChosen(CVCommand::EarlierVersions); });
    connect(&saveStatus(), &CVSaveStatus::takeBackRequested, this,
            [this] { emit applicationCommandChosen(CVCommand::TakeBackImport); });
    connect(&mWindow->readOnlyNotice(), &CVReadOnlyNotice::tryAgain, this, &Self::editingRequested);
    connect(mSummaryController.get(), &CVSummaryTabController::periodsChanged, this, &Self::reloadAllTables);
    connect(mSummaryController.get(), &CVSummaryTabController::cellOpened, this, [this](const auto& transactions) {
        if (mDocumentWindows)
            mDocumentWindows->createTransactionController(transactions);
    });
    connect(mReportsController.get(), &CVReportsTabController::changed, this, &Self::reloadAllTables);
    connect(mReportsController.get(), &CVReportsTabController::presetPicked, this, &Self::presetPicked);
    connect(mCommands.get(), &CVMainWindowCommands::applicationCommandChosen, this, &Self::applicationCommandChosen);
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
    mContents.list().rebuild();
    mSummaryController->placePeriods();
}

/// Sets the ranges of list and reports from their presets and shows them.
void CVMainWindowController::setDateFieldsFromPopUp() {
    mContents.setRangesFromPresets();
    mWindow->transactionsTab().rangeControls().setRange(mContents.list().range());
    mWindow->reportsTab().rangeControls().setRange(mContents.reports().range());
}

void CVMainWindowController::presetPicked() {
    setDateFieldsFromPopUp();
    mContents.list().rebuild();
    reloadAllTables();
}

void CVMainWindowController::showTransactionSets() {
    QStringList names;
    for (const auto& set : mDocument.transactionSets())
        names.append(set->transactionSetName());
    if (names.size() < 2)
        mContents.list().setShownSets(CVShownSets::Current);
    const auto entrySet = mDocument.findTransactionSetFromID(mDocument.currentTransactionSet());
    mWindow->setTransactionSets(names, static_cast<int>(mDocument.popupIndexOfCurrentTransactionSet()),
                                mContents.list().shownSets(), entrySet ? entrySet->transactionSetName() : QString());
}

void CVMainWindowController::tabSelected(int index) {
    if (_cv_setting_up)
        return;
    mDisplayTab = index;
    mDocument.userDefaults().setInteger(CVDefaultsKeys::kDisplayTab, index);
    reloadAllTables();
}

/// Disables the commands that have nothing to act on, or would change a budget that is only looked at.
void CVMainWindowController::updateCommands() {
    CVMainMenu& menu = mWindow->menu();
    const bool canEdit = !mDocument.isReadOnly();
    const std::size_t selected = mDisplayTab == CVMainWindow::kTransactions
                                     ? mWindow->transactionsTab().table().selectedTransactions().size()
                                     : 0;
    const bool hasSelection = selected > 0;
    menu.setEnabled(CVCommand::Export, !mContents.list().displayTransactions().empty());
    menu.setEnabled(CVCommand::RecordAgain, selected == 1 && canEdit);
    menu.setEnabled(CVCommand::SetCategory, hasSelection && canEdit);
    menu.setEnabled(CVCommand::Remove, hasSelection && canEdit);
    menu.setCopyRowsEnabled(hasSelection);
    for (const CVCommand command : {CVCommand::Record, CVCommand::Import, CVCommand::ImportFromClipboard})
        menu.setEnabled(command, canEdit);
    menu.setEnabled(CVCommand::TakeBackImport, mCanTakeBackImport && canEdit);
    for (const CVCommand command : {CVCommand::PreviousPeriod, CVCommand::NextPeriod, CVCommand::Today})
        menu.setEnabled(command, mDisplayTab == CVMainWindow::kSummary);
    menu.setEnabled(CVCommand::Preferences, mDocumentWindows != nullptr);
    for (const CVCommand command : {CVCommand::EditCategories, CVCommand::TransactionSets})
        menu.setEnabled(command, mDocumentWindows != nullptr && canEdit);
    for (const CVCommand command : {CVCommand::Print, CVCommand::PrintPreview, CVCommand::PageSetup})
        menu.setEnabled(command, mPrintCommands.canPrint());
}

void CVMainWindowController::handleCategoryUpdate() {
    mEntryController->showCategoryItems();
    // The search text or the sort order may depend on the changed name.
    if (!mListController->keepsRows())
        mContents.list().refilter();
    reloadAllTables();
}

/// Only the reports are reloaded here, because recording and removing call getStarted().
void CVMainWindowController::transactionUpdated() {
    if (mDisplayTab != CVMainWindow::kReports)
        return;
    mContents.list().rebuild();
    reloadAllTables();
}

/// Reads the document again too, because clearing the data file also posts this notification.
void CVMainWindowController::preferenceChanged() {
    mContents.list().collectTransactions();
    mEntryController->showCategoryItems();
    mainSetup();
    mEntryController->updatePaidToAutocomplete(mContents.list().transactions());
    reloadAllTables();
}

void CVMainWindowController::moneyFormatChanged() {
    mWindow->entryStrip().localeChanged();
    mWindow->transactionsTab().updateFormatters();
    reloadAllTables();
}

/// Fields and tables handle the change of locale themselves; this notification tells all other windows that show money.
void CVMainWindowController::handleLocaleChange() {
    mDocument.notificationCenter().postNotification(QLatin1String(CVNotifications::kMoneyFormatterChanged));
}
