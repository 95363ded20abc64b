#include "workspace/CVMainWindow.h"

#include "shared/widgets/CVOpenEditor.h"
#include "shared/widgets/CVSteadyComboBox.h"
#include "workspace/CVEntryStrip.h"
#include "workspace/CVMainMenu.h"
#include "workspace/CVReportsTab.h"
#include "workspace/CVSaveStatus.h"
#include "workspace/CVSummaryTab.h"
#include "workspace/CVTransactionTableView.h"
#include "workspace/CVTransactionsTab.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

CVMainWindow::CVMainWindow(const CVTransactionList& list, const CVGridContents& grid, const CVReportContents& reports)
    : mEntryStrip(new CVEntryStrip(this))
    , mMainTabView(new QTabWidget(this))
    , mTransactionsTab(new CVTransactionsTab(list, this))
    , mSummaryTab(new CVSummaryTab(grid, this))
    , mReportsTab(new CVReportsTab(reports, this))
    , mSaveStatus(new CVSaveStatus(this))
    , mTransactionSet(new CVSteadyComboBox(this))
    , mSetPicker(makeSetPicker()) {
    setWindowTitle(tr("Corvella Main Window"));
    mMainTabView->setObjectName(QStringLiteral("mMainTabView"));
    mMainTabView->addTab(mTransactionsTab, tr("Transactions"));
    mMainTabView->addTab(mSummaryTab, tr("Summary"));
    mMainTabView->addTab(mReportsTab, tr("Reports"));
    mMainTabView->setCornerWidget(mSetPicker);
    // The frame around the pages is what takes longest to paint, and says nothing.
    mMainTabView->setDocumentMode(true);
    // The edges of the pages are those of the entry strip above them.
    for (int page = 0; page < mMainTabView->count(); ++page) {
        QLayout& inside = *mMainTabView->widget(page)->layout();
        inside.setContentsMargins(0, inside.contentsMargins().top(), 0, 0);
    }
    auto* const content = new QWidget(this);
    auto* const layout = new QVBoxLayout(content);
    layout->addWidget(mEntryStrip);
    layout->addWidget(mMainTabView, 1);
    layout->addWidget(mSaveStatus);
    setCentralWidget(content);
    mMenu = new CVMainMenu(*this, mTransactionsTab->table());
}

void CVMainWindow::setTransactionSets(const QStringList& names, int current) {
    // Filling it anew would lay out and paint half of the window anew.
    if (names != mTransactionSetNames) {
        mTransactionSetNames = names;
        mTransactionSet->clear();
        mTransactionSet->addItems(names);
    }
    mTransactionSet->setCurrentIndex(current);
    mSetPicker->setVisible(names.size() > 1);
}

void CVMainWindow::closeEvent(QCloseEvent* event) {
    commitOpenEditor();
    if (mMayClose && !mMayClose()) {
        event->ignore();
        return;
    }
    emit closing();
    event->accept();
}

void CVMainWindow::commitOpenEditor() {
    CVCommitOpenEditor(focusWidget());
}

void CVMainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        emit localeChanged();
}

QWidget* CVMainWindow::makeSetPicker() {
    auto* const picker = new QWidget(this);
    auto* const label = new QLabel(tr("Transaction &Set"), picker);
    label->setBuddy(mTransactionSet);
    mTransactionSet->setObjectName(QStringLiteral("mTransactionSet"));
    mTransactionSet->setAccessibleName(tr("Transaction Set"));
    mTransactionSet->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(mTransactionSet, &QComboBox::activated, this, &CVMainWindow::transactionSetPicked);

    auto* const layout = new QHBoxLayout(picker);
    layout->setContentsMargins(0, 0, 0, 2);
    layout->addWidget(label);
    layout->addWidget(mTransactionSet);
    return picker;
}
