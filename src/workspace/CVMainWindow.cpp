#include "workspace/CVMainWindow.h"

#include "workspace/CVEntryStrip.h"
#include "workspace/CVMainMenu.h"
#include "workspace/CVSaveStatus.h"
#include "workspace/CVTransactionTableView.h"
#include "workspace/CVTransactionsTab.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

CVMainWindow::CVMainWindow(const CVTransactionList& list)
    : mEntryStrip(new CVEntryStrip(this))
    , mTransactionsTab(new CVTransactionsTab(list, this))
    , mSaveStatus(new CVSaveStatus(this))
    , mTransactionSet(new QComboBox(this))
    , mSetPicker(makeSetPicker()) {
    setWindowTitle(tr("Corvella Main Window"));
    auto* const content = new QWidget(this);
    auto* const layout = new QVBoxLayout(content);
    layout->addWidget(mSetPicker, 0, Qt::AlignRight);
    layout->addWidget(mEntryStrip);
    layout->addWidget(mTransactionsTab, 1);
    layout->addWidget(mSaveStatus);
    setCentralWidget(content);
    mMenu = new CVMainMenu(*this, mTransactionsTab->table());
}

void CVMainWindow::setTransactionSets(const QStringList& names, int current) {
    mTransactionSet->clear();
    mTransactionSet->addItems(names);
    mTransactionSet->setCurrentIndex(current);
    mSetPicker->setVisible(names.size() > 1);
}

void CVMainWindow::closeEvent(QCloseEvent* event) {
    if (mMayClose && !mMayClose()) {
        event->ignore();
        return;
    }
    emit closing();
    event->accept();
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
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(mTransactionSet);
    return picker;
}
