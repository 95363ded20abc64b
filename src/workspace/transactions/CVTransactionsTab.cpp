#include "workspace/transactions/CVTransactionsTab.h"

#include "contents/CVTransactionList.h"
#include "model/CVIsReadOnly.h"
#include "model/CVTransaction.h"
#include "widgets/CVCompactButton.h"
#include "widgets/CVWrappingLayout.h"
#include "widgets/fields/CVCopyableField.h"
#include "workspace/controls/CVMakePrintButton.h"
#include "workspace/controls/CVRangeControls.h"
#include "workspace/controls/CVSearchField.h"
#include "workspace/transactions/CVTransactionTableView.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QToolTip>
#include <QVBoxLayout>

namespace {

constexpr int kRemarkMilliseconds = 6000;

} // namespace

CVTransactionsTab::CVTransactionsTab(const CVTransactionList& list, QWidget* parent)
    : QWidget(parent)
    , mList(list)
    , mRangeControls(new CVRangeControls({QLatin1StringView("mSetTransactionDateRange"), tr("Range")},
                                         {QLatin1StringView("mTransactionStartDate"), tr("Start")},
                                         {QLatin1StringView("mTransactionEndDate"), tr("End")}, this))
    , mSearchField(new CVSearchField(this))
    , mTransactionTable(new CVTransactionTableView(list, this))
    , mRemoveTransactionButton(new CVCompactButton(tr("Re&move"), this)) {
    mSearchField->setObjectName(QStringLiteral("mSearchField103"));
    mSearchField->setAccessibleName(tr("Search"));
    mTransactionTable->setObjectName(QStringLiteral("mTransactionTable"));
    mTransactionTable->setAccessibleName(tr("Transactions"));
    mRemoveTransactionButton->setObjectName(QStringLiteral("mRemoveTransactionButton"));
    mRemoveTransactionButton->setAccessibleName(tr("Remove"));
    mRemoveTransactionButton->setToolTip(tr("Remove the selected transactions"));
    mRemoveTransactionButton->setEnabled(false);

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(makeHeader());
    layout->addWidget(mTransactionTable, 1);
    layout->addLayout(makeFooter());

    connect(mRemoveTransactionButton, &QPushButton::clicked, this, &CVTransactionsTab::removeRequested);
    connect(mTransactionTable, &CVTransactionTableView::selectedTransactionsChanged, this,
            &CVTransactionsTab::updateRemoveButton);
    connect(mTransactionTable, &CVTransactionTableView::clearSearchRequested, this, [this] {
        mSearchField->clear();
        mSearchField->setFocus();
    });
}

void CVTransactionsTab::showTotalsAndCountsField() {
    const CVTransactionList::Totals shown = mList.displayTotals();
    const CVTransactionList::Totals total = mList.totals();
    const QLocale locale = QBLocaleInForce();
    mNumberOfTransactionsField1->setText(locale.toString(static_cast<qulonglong>(shown.count)));
    mTotalNumberOfTransactionsField1->setText(locale.toString(static_cast<qulonglong>(total.count)));
    mTotalAmountShownField->setText(mMoneyFormatter.string(shown.amount));
    mTotalAmountField->setText(mMoneyFormatter.string(total.amount));
}

void CVTransactionsTab::tellNotListed(const CVTransaction& transaction) {
    const bool isInRange = mList.range().contains(transaction.effectiveDate());
    const QWidget& cause = isInRange ? static_cast<QWidget&>(*mSearchField) : *mRangeControls;
    const QString text = isInRange ? tr("Recorded, but not listed here: it does not match the search.")
                                   : tr("Recorded, but not listed here: its date is not in this range.");
    QToolTip::showText(cause.mapToGlobal(cause.rect().bottomLeft()), text, this, {}, kRemarkMilliseconds);
}

void CVTransactionsTab::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        updateFormatters();
}

void CVTransactionsTab::updateFormatters() {
    mMoneyFormatter = QBMoneyFormatter();
    showTotalsAndCountsField();
    mTransactionTable->updateFormatters();
}

CVWrappingLayout* CVTransactionsTab::makeHeader() {
    auto* const header = new CVWrappingLayout;
    header->addWidget(mRangeControls);
    header->addWidget(mSearchField);
    return header;
}

CVWrappingLayout* CVTransactionsTab::makeFooter() {
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(mRemoveTransactionButton);
    auto* const print = CVMakePrintButton(tr("Print the listed transactions"), *this);
    connect(print, &QPushButton::clicked, this, &CVTransactionsTab::printRequested);
    buttons->addWidget(print);
    buttons->addSpacing(fontMetrics().height());
    auto* const counts = new QHBoxLayout;
    mNumberOfTransactionsField1 = CVCopyableField::addTo(*counts, "mNumberOfTransactionsField1", tr("Transactions:"),
                                                         tr("Transactions Shown"), this);
    mTotalNumberOfTransactionsField1 =
        CVCopyableField::addTo(*counts, "mTotalNumberOfTransactionsField1", tr("of"), tr("Transactions Total"), this);
    auto* const sums = new QHBoxLayout;
    sums->addSpacing(fontMetrics().height());
    mTotalAmountShownField =
        CVCopyableField::addTo(*sums, "mTotalAmountShownField", tr("Shown:"), tr("Amount Shown"), this);
    sums->addSpacing(fontMetrics().height());
    mTotalAmountField = CVCopyableField::addTo(*sums, "mTotalAmountField", tr("Total:"), tr("Amount Total"), this);
    auto* const footer = new CVWrappingLayout;
    for (QHBoxLayout* const part : {buttons, counts, sums})
        footer->addPart(part);
    return footer;
}

void CVTransactionsTab::updateRemoveButton() {
    const CVTransactions& selected = mTransactionTable->selectedTransactions();
    mRemoveTransactionButton->setEnabled(!selected.empty() && !CVIsReadOnly(*selected.front()));
}
