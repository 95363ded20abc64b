#include "preferences/CVPreferenceWindowController.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "model/CVDocument.h"
#include "preferences/CVBudgetPane.h"
#include "preferences/CVDataFilePane.h"
#include "preferences/CVEntryPane.h"
#include "preferences/CVPreferenceHost.h"
#include "preferences/CVUpdatePane.h"
#include "widgets/CVHelpOpener.h"
#include "widgets/CVScrollArea.h"
#include "widgets/CVSetAccessibleName.h"
#include "widgets/CVWindowFrame.h"

#include <QAccessible>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr const char* kFrameKey = "CVPreferenceWindowController";

} // namespace

CVPreferenceWindowController::CVPreferenceWindowController(CVDocument& document, CVPreferenceHost& host,
                                                           CVAlerts& alerts, CVFilePanels& panels, CVHelpOpener* help)
    : QDialog(nullptr)
    , mStore(document.userDefaults(), document.notificationCenter())
    , mTabView(new QTabWidget(this))
    , mEntryPane(new CVEntryPane(mStore, mTabView))
    , mUpdatePane(new CVUpdatePane(mStore, alerts, mTabView))
    , mDataFilePane(new CVDataFilePane(mStore, document, host, alerts, panels, mTabView))
    , mRemark(new QLabel(this)) {
    setWindowTitle(tr("Corvella Preferences"));
    CVSetAccessibleName(*mTabView, tr("Preferences"));
    // Only the main window's closing ends the program.
    setAttribute(Qt::WA_QuitOnClose, false);
    addPane(*new CVBudgetPane(mStore, mTabView), tr("Budget"), "BudgetID");
    addPane(*mEntryPane, tr("Entry"), "EntryID");
    addPane(*mUpdatePane, tr("Update"), kUpdatePane);
    addPane(*mDataFilePane, tr("Data File"), kDataFilePane);
    mRemark->setObjectName(QStringLiteral("mRemark"));
    mRemark->setTextFormat(Qt::PlainText);
    mRemark->setWordWrap(true);
    mRemark->hide();
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(mTabView, 1);
    layout->addWidget(mRemark);
    addButtons(help);
    load();
    selectTab(mStore.defaults().stringForKey(CVDefaultsKeys::kPreferencesTab).value_or(QString()));
    CVWindowFrame::restore(*this, mStore.defaults().dataForKey(kFrameKey), sizeHint());

    connect(mTabView, &QTabWidget::currentChanged, this, &CVPreferenceWindowController::tabSelected);
    connect(mUpdatePane, &CVUpdatePane::checkRequested, this, [this, &host] { host.checkForNewVersion(*this); });
    connect(mDataFilePane, &CVDataFilePane::cleared, mEntryPane, &CVEntryPane::load);
    connect(mDataFilePane, &CVDataFilePane::cleared, this, &CVPreferenceWindowController::cleared);
    connect(&mStore, &CVPreferenceStore::written, this, &CVPreferenceWindowController::showWhetherKept);
}

CVPreferenceWindowController::~CVPreferenceWindowController() {
    if (isVisible())
        keep();
    // Hiding takes the focus from a field, which then ends editing and needs the store; the store is destroyed later.
    hide();
}

void CVPreferenceWindowController::setDocument(CVDocument& document) {
    mDataFilePane->setDocument(document);
}

void CVPreferenceWindowController::showWindow() {
    if (!isVisible())
        load();
    show();
    raise();
    activateWindow();
}

void CVPreferenceWindowController::displayUpdatePane() {
    selectTab(QLatin1String(kUpdatePane));
}

void CVPreferenceWindowController::displayDataFilePane() {
    selectTab(QLatin1String(kDataFilePane));
}

void CVPreferenceWindowController::done(int result) {
    keep();
    QDialog::done(result);
}

void CVPreferenceWindowController::keep() {
    for (CVPreferencePane* const pane : mPanes)
        pane->endEditing();
    mStore.defaults().setData(kFrameKey, saveGeometry());
}

void CVPreferenceWindowController::addPane(CVPreferencePane& pane, const QString& title, const char* identifier) {
    auto* const page = new CVScrollArea(pane, mTabView);
    page->setObjectName(QLatin1String(identifier));
    mTabView->addTab(page, title);
    mPanes.append(&pane);
}

void CVPreferenceWindowController::addButtons(CVHelpOpener* help) {
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    const auto add = [&](const QString& text, const QString& name) {
        auto* const button = new QPushButton(text, this);
        button->setAccessibleName(name);
        button->setAutoDefault(false);
        buttons->addWidget(button);
        return button;
    };
    if (help) {
        connect(add(tr("&Help"), tr("Help")), &QPushButton::clicked, this,
                [this, help] { help->showHelpPage(QStringLiteral("Preferences.html"), *this); });
    }
    connect(add(tr("&Close"), tr("Close")), &QPushButton::clicked, this, &QDialog::reject);
    static_cast<QVBoxLayout*>(layout())->addLayout(buttons);
    auto* const shortcut = new QShortcut(Qt::CTRL | Qt::Key_W, this);
    connect(shortcut, &QShortcut::activated, this, &QDialog::reject);
}

/// Shows the tab with that identifier; an unknown identifier changes nothing.
void CVPreferenceWindowController::selectTab(const QString& identifier) {
    for (int index = 0; index < mTabView->count(); ++index) {
        if (mTabView->widget(index)->objectName() == identifier)
            mTabView->setCurrentIndex(index);
    }
}

void CVPreferenceWindowController::tabSelected(int index) {
    mStore.defaults().setString(CVDefaultsKeys::kPreferencesTab, mTabView->widget(index)->objectName());
}

void CVPreferenceWindowController::load() {
    for (CVPreferencePane* const pane : mPanes)
        pane->load();
}

void CVPreferenceWindowController::showWhetherKept(bool isKept) {
    const bool isNews = !isKept && mRemark->isHidden();
    mRemark->setText(tr("Your settings cannot be saved to “%1”. What you change lasts until you quit Corvella.")
                         .arg(QDir::toNativeSeparators(mStore.defaults().fileName())));
    mRemark->setVisible(!isKept);
    if (isNews) {
        QAccessibleEvent announcement(mRemark, QAccessible::Alert);
        QAccessible::updateAccessibility(&announcement);
    }
}
