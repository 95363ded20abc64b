#include "workspace/CVMainWindowController.h"

#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"
#include "shared/base/CVBundle.h"
#include "shared/base/CVDefaultsKeys.h"
#include "shared/base/CVNotifications.h"
#include "shared/base/QBNotificationCenter.h"
#include "shared/base/QBUserDefaults.h"
#include "shared/widgets/CVAlerts.h"
#include "workspace/CVEntryStrip.h"
#include "workspace/CVMainMenu.h"
#include "workspace/CVMainWindow.h"
#include "workspace/CVTransactionTableView.h"
#include "workspace/CVTransactionsTab.h"

#include <QApplication>
#include <QScreen>

namespace {

constexpr const char* kFrameKey = "CVMainWindowController";
constexpr const char* kColumnsKey = "CVMainWindowController Columns";
constexpr QSize kFirstSize(1080, 680);

std::shared_ptr<CVTransaction> makeTransaction(const CVEntry& entry, const CVCategory& category) {
    auto transaction = std::make_shared<CVTransaction>();
    transaction->setEffectiveDate(entry.date);
    transaction->setAmount(entry.amount);
    transaction->setFor(entry.xfor);
    transaction->setCategoryID(category.uniqueID());
    transaction->setPayTo(entry.payTo);
    transaction->setTaxFlag(entry.taxFlag);
    return transaction;
}

} // namespace

CVMainWindowController::CVMainWindowController(CVDocument& document, CVAlerts& alerts)
    : mDocument(document)
    , mAlerts(alerts)
    , mList(document)
    , mWindow(std::make_unique<CVMainWindow>(mList)) {
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
    showTransactionSets();
    mList.collectTransactions();
    mainSetup();
    updatePaidToAutocomplete();
    reloadAllTables();
}

void CVMainWindowController::reloadAllTables() {
    mWindow->transactionsTab().showTotalsAndCountsField();
    mWindow->transactionsTab().table().reload();
}

void CVMainWindowController::record() {
    CVEntryStrip& strip = mWindow->entryStrip();
    auto problem = strip.endEditing();
    if (problem && problem->field == CVEntryField::Date)
        QApplication::beep();
    const CVEntry entry = strip.entry();
    if (!problem)
        problem = CVFirstProblem(entry);
    if (problem) {
        mAlerts.run({tr("Input Error"), problem->message, tr("OK")});
        strip.focusField(problem->field);
        return;
    }
    const auto category = mDocument.insertCategoryName(entry.category);
    const auto transaction = makeTransaction(entry, *category);
    mDocument.insertTransaction(transaction);
    if (mDocument.userDefaults().boolForKey(CVDefaultsKeys::kClearFields))
        strip.clearFields();
    mDocument.workbookSave();
    strip.resetAmount();
    getStarted();
    mWindow->transactionsTab().table().reveal(transaction.get());
    strip.focusField(CVEntryField::Amount);
}

void CVMainWindowController::removeTransaction() {
    CVTransactionTableView& table = mWindow->transactionsTab().table();
    const CVDocument::Transactions selected = table.selectedTransactions();
    if (selected.empty())
        return;
    const auto answer = mAlerts.run({tr("Are you sure you want to delete the selected transaction(s)?"),
                                     tr("This action is not reversible."), tr("Delete"), tr("Cancel")});
    if (answer != CVAlert::kDefault)
        return;
    mDocument.removeTransactions(selected);
    table.clearSelection();
    mDocument.workbookSave();
    getStarted();
}

void CVMainWindowController::changeTransactionSet(int index) {
    mDocument.setCurrentTransactionSet(
        mDocument.objectInTransactionSetsAtIndex(static_cast<std::size_t>(index))->uniqueID());
    mDocument.workbookSave();
    getStarted();
}

void CVMainWindowController::sortByColumn(const QString& identifier) {
    mList.chooseSortColumn(identifier);
    mList.doUserSort();
    reloadAllTables();
}

void CVMainWindowController::windowDidLoad() {
    restoreFrame();
    observeNotifications();
    connectWindow();
    handleCategoryUpdate();
    mWindow->entryStrip().focusField(CVEntryField::Date);
    getStarted();
}

void CVMainWindowController::connectWindow() {
    const CVMainMenu& menu = mWindow->menu();
    const CVTransactionTableView& table = mWindow->transactionsTab().table();
    connect(mWindow.get(), &CVMainWindow::transactionSetPicked, this, &CVMainWindowController::changeTransactionSet);
    connect(mWindow.get(), &CVMainWindow::closing, this, &CVMainWindowController::saveFrame);
    connect(&menu, &CVMainMenu::quitRequested, mWindow.get(), &CVMainWindow::close);
    connect(&menu, &CVMainMenu::removeRequested, this, &CVMainWindowController::removeTransaction);
    connect(&menu, &CVMainMenu::sortRequested, this, &CVMainWindowController::sortByColumn);
    connect(&menu, &CVMainMenu::recordRequested, this, &CVMainWindowController::record);
    connect(&menu, &CVMainMenu::aboutRequested, this, &CVMainWindowController::showAbout);
    connect(&mWindow->entryStrip(), &CVEntryStrip::recordRequested, this, &CVMainWindowController::record);
    connect(&mWindow->transactionsTab(), &CVTransactionsTab::removeRequested, this,
            &CVMainWindowController::removeTransaction);
    connect(&table, &CVTransactionTableView::columnClicked, this, &CVMainWindowController::sortByColumn);
    connect(&table, &CVTransactionTableView::selectedTransactionsChanged, this, [this] {
        mWindow->menu().setRemoveEnabled(!mWindow->transactionsTab().table().selectedTransactions().empty());
    });
}

void CVMainWindowController::observeNotifications() {
    QBNotificationCenter& center = mDocument.notificationCenter();
    center.addObserver(QLatin1String(CVNotifications::kCategoryAddedRemoved), this,
                       [this](const QBNotification&) { handleCategoryUpdate(); });
    center.addObserver(QLatin1String(CVNotifications::kTransactionSet), this,
                       [this](const QBNotification&) { getStarted(); });
}

void CVMainWindowController::mainSetup() {
    mList.getTransactions();
    mList.filterTransactions();
    mList.doUserSort();
}

void CVMainWindowController::handleCategoryUpdate() {
    QStringList names;
    for (const auto& category : mDocument.categories())
        names.append(category->categoryName());
    mWindow->entryStrip().setCategoryItems(names);
    reloadAllTables();
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
}

void CVMainWindowController::showAbout() {
    const auto version = CVBundle::version();
    CVAlert about{tr("About Corvella"),
                  tr("Corvella %1, your own budget on your own computer. Made by Quenby Labs.")
                      .arg(QString::fromUtf8(version.data(), static_cast<qsizetype>(version.size()))),
                  tr("OK")};
    about.style = CVAlert::Style::Information;
    mAlerts.run(about);
}

void CVMainWindowController::restoreFrame() {
    const QBUserDefaults& defaults = mDocument.userDefaults();
    if (!mWindow->restoreGeometry(defaults.dataForKey(kFrameKey)))
        mWindow->resize(kFirstSize.boundedTo(mWindow->screen()->availableSize()));
    mWindow->transactionsTab().table().restoreColumns(defaults.dataForKey(kColumnsKey));
}

void CVMainWindowController::saveFrame() const {
    QBUserDefaults& defaults = mDocument.userDefaults();
    defaults.setData(kFrameKey, mWindow->saveGeometry());
    defaults.setData(kColumnsKey, mWindow->transactionsTab().table().saveColumns());
}
