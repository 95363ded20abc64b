#include "workspace/CVTransactionsTab.h"

#include "shared/widgets/CVFigureField.h"
#include "workspace/CVTransactionList.h"
#include "workspace/CVTransactionTableView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CVTransactionsTab::CVTransactionsTab(const CVTransactionList& list, QWidget* parent)
    : QWidget(parent)
    , mList(list)
    , mTransactionTable(new CVTransactionTableView(list, this))
    , mRemoveTransactionButton(new QPushButton(tr("Remo&ve"), this)) {
    mTransactionTable->setObjectName(QStringLiteral("mTransactionTable"));
    mTransactionTable->setAccessibleName(tr("Transactions"));
    mRemoveTransactionButton->setObjectName(QStringLiteral("mRemoveTransactionButton"));
    mRemoveTransactionButton->setAccessibleName(tr("Remove"));
    mRemoveTransactionButton->setToolTip(tr("Remove the selected transactions"));
    mRemoveTransactionButton->setEnabled(false);

    auto* const footer = new QHBoxLayout;
    footer->addWidget(mRemoveTransactionButton);
    footer->addStretch();
    mNumberOfTransactionsField1 =
        addFigure(*footer, "mNumberOfTransactionsField1", tr("Transactions:"), tr("Transactions Shown"));
    mTotalNumberOfTransactionsField1 =
        addFigure(*footer, "mTotalNumberOfTransactionsField1", tr("of"), tr("Transactions Total"));
    footer->addSpacing(fontMetrics().height());
    mTotalAmountShownField = addFigure(*footer, "mTotalAmountShownField", tr("Shown:"), tr("Amount Shown"));
    footer->addSpacing(fontMetrics().height());
    mTotalAmountField = addFigure(*footer, "mTotalAmountField", tr("Total:"), tr("Amount Total"));

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mTransactionTable, 1);
    layout->addLayout(footer);

    connect(mRemoveTransactionButton, &QPushButton::clicked, this, &CVTransactionsTab::removeRequested);
    connect(mTransactionTable, &CVTransactionTableView::selectedTransactionsChanged, this,
            &CVTransactionsTab::updateRemoveButton);
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

CVFigureField* CVTransactionsTab::addFigure(QHBoxLayout& layout, const char* objectName, const QString& label,
                                            const QString& accessibleName) {
    auto* const figure = new CVFigureField(this);
    figure->setObjectName(QLatin1String(objectName));
    figure->setAccessibleName(accessibleName);
    layout.addWidget(new QLabel(label, this));
    layout.addWidget(figure);
    return figure;
}

void CVTransactionsTab::updateRemoveButton() {
    mRemoveTransactionButton->setEnabled(!mTransactionTable->selectedTransactions().empty());
}
