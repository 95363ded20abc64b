#include "workspace/budgettabs/CVReportsTab.h"

#include "contents/CVReportContents.h"
#include "format/QBLocale.h"
#include "widgets/CVSetAccessibleName.h"
#include "widgets/CVWrappingLayout.h"
#include "widgets/fields/CVCopyableField.h"
#include "workspace/budgettabs/CVCategoryTable.h"
#include "workspace/budgettabs/CVReportCellDelegate.h"
#include "workspace/budgettabs/CVReportModel.h"
#include "workspace/controls/CVMakePrintButton.h"
#include "workspace/controls/CVRangeControls.h"

#include <QDataStream>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIODevice>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

CVReportsTab::CVReportsTab(const CVReportContents& contents, QWidget* parent)
    : QWidget(parent)
    , mContents(contents)
    , mRangeControls(new CVRangeControls({QLatin1StringView("mSetReportDateRange"), tr("Report Range")},
                                         {QLatin1StringView("mReportStartDate"), tr("Report Start")},
                                         {QLatin1StringView("mReportEndDate"), tr("Report End")}, this))
    , mPrintButton(CVMakePrintButton(tr("Print the report that is shown"), *this))
    , mReportTabView(new QTabWidget(this)) {
    mReportTabView->setObjectName(QStringLiteral("mReportTabView"));
    CVSetAccessibleName(*mReportTabView, tr("Reports"));
    mTables = {addTable(CVReportTable::Averages, "mAveragesTable", tr("Averages"), tr("Averages")),
               addTable(CVReportTable::Totals, "mTotalTable", tr("Plan vs Actual"), tr("Plan vs Actual")),
               addTable(CVReportTable::Percent, "mPercentTable", tr("Percent"), tr("Percent")),
               addTable(CVReportTable::Tax, "mTaxTable", tr("Tax Report"), tr("Tax"))};
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(makeControls());
    layout->addWidget(mReportTabView, 1);

    connect(mReportTabView, &QTabWidget::currentChanged, this, &CVReportsTab::reportTabPicked);
    connect(mPrintButton, &QPushButton::clicked, this, &CVReportsTab::printRequested);
    connect(mRangeControls, &CVRangeControls::presetPicked, this, &CVReportsTab::presetPicked);
    connect(mRangeControls, &CVRangeControls::startEntered, this, &CVReportsTab::startEntered);
    connect(mRangeControls, &CVRangeControls::endEntered, this, &CVReportsTab::endEntered);
}

void CVReportsTab::reload() {
    const QLocale locale = QBLocaleInForce();
    mNumberOfTransactionsField2->setText(locale.toString(static_cast<qulonglong>(mContents.numberOfTransactions())));
    mTotalNumberOfTransactionsField2->setText(
        locale.toString(static_cast<qulonglong>(mContents.totalNumberOfTransactions())));
    for (CVCategoryTable* const table : mTables) {
        table->reload();
        table->setMessage(mContents.rows().empty() ? tr("Nothing to report yet. Record a transaction first.")
                                                   : QString());
    }
}

void CVReportsTab::setReportTab(int index) {
    const QSignalBlocker blocker(mReportTabView);
    mReportTabView->setCurrentIndex(index);
}

void CVReportsTab::showReport(CVReportTable report) {
    const auto index = static_cast<std::size_t>(report);
    mReportTabView->setCurrentIndex(static_cast<int>(index));
    mTables[index]->setFocus();
}

QByteArray CVReportsTab::saveColumns() const {
    QByteArray columns;
    QDataStream stream(&columns, QIODevice::WriteOnly);
    for (const CVCategoryTable* const table : mTables)
        stream << table->horizontalHeader()->saveState();
    return columns;
}

void CVReportsTab::restoreColumns(const QByteArray& columns) {
    QDataStream stream(columns);
    for (std::size_t i = 0; i < mTables.size(); ++i) {
        QByteArray state;
        stream >> state;
        if (!mTables[i]->horizontalHeader()->restoreState(state))
            setUsualWidths(*mTables[i], static_cast<CVReportTable>(i));
    }
}

CVWrappingLayout* CVReportsTab::makeControls() {
    auto* const counts = new QHBoxLayout;
    mNumberOfTransactionsField2 = CVCopyableField::addTo(*counts, "mNumberOfTransactionsField2", tr("Transactions:"),
                                                         tr("Report Transactions"), this);
    mTotalNumberOfTransactionsField2 = CVCopyableField::addTo(*counts, "mTotalNumberOfTransactionsField2", tr("of"),
                                                              tr("Report Transactions Total"), this);
    counts->addWidget(mPrintButton);
    auto* const controls = new CVWrappingLayout;
    controls->addWidget(mRangeControls);
    controls->addPart(counts);
    return controls;
}

CVCategoryTable* CVReportsTab::addTable(CVReportTable table, const char* objectName, const QString& accessibleName,
                                        const QString& tabText) {
    auto model = std::make_unique<CVReportModel>(mContents, table);
    connect(model.get(), &CVReportModel::frequencyPicked, this, &CVReportsTab::frequencyPicked);
    connect(model.get(), &CVReportModel::targetEntered, this, &CVReportsTab::targetEntered);
    auto* const view = new CVCategoryTable(std::move(model), objectName, accessibleName, this);
    view->setItemDelegate(new CVReportCellDelegate(view));
    // The tab widget draws the frame around the table.
    view->setFrameShape(QFrame::NoFrame);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
    setUsualWidths(*view, table);
    mReportTabView->addTab(view, tabText);
    return view;
}

void CVReportsTab::setUsualWidths(CVCategoryTable& table, CVReportTable kind) {
    const int digit = table.fontMetrics().horizontalAdvance('0');
    int number = 0;
    for (const CVReportColumn& column : CVColumnsOfReport(kind))
        table.setColumnWidth(number++, digit * column.usualWidth);
}
