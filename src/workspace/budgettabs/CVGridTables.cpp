#include "workspace/budgettabs/CVGridTables.h"

#include "workspace/budgettabs/CVCategoryTable.h"
#include "workspace/budgettabs/CVFitWidths.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace {

/// The narrowest and the widest column of category names and the narrowest column of amounts, in widths of a zero.
constexpr int kShortestName = 14;
constexpr int kLongestName = 30;
constexpr int kShortestAmount = 11;
constexpr double kMostShareOfNames = 0.3;
/// The room on each side of the label of the totals. In pixels.
constexpr int kCellMargin = 8;
constexpr int kLineAlpha = 70;

int widthOfZeros(const QWidget& widget, int count) {
    return widget.fontMetrics().horizontalAdvance('0') * count;
}

/// The width that the widest column of a table needs for its header and its numbers.
int widestColumn(const CVCategoryTable& table) {
    // sizeHintForColumn() is public only in QAbstractItemView.
    const QAbstractItemView& view = table;
    int widest = 0;
    for (int column = 0; column < view.model()->columnCount(); ++column)
        widest = std::max({widest, view.sizeHintForColumn(column), table.horizontalHeader()->sectionSizeHint(column)});
    return widest;
}

} // namespace

CVGridTables::CVGridTables(const CVGridContents& contents, QWidget* parent)
    : QFrame(parent)
    , mContents(contents)
    , mExpenseCategoryTable(addTable(CVGridModel::Part::Categories, "mExpenseCategoryTable", tr("Categories")))
    , mExpensePeriodTable(addTable(CVGridModel::Part::Periods, "mExpensePeriodTable", tr("Periods")))
    , mExpenseCategoryTotalTable(
          addTable(CVGridModel::Part::CategoryTotals, "mExpenseCategoryTotalTable", tr("Category Totals")))
    , mExpensePeriodTotalTable(
          addTable(CVGridModel::Part::PeriodTotals, "mExpensePeriodTotalTable", tr("Period Totals")))
    , mTotalLabel(new QLabel(tr("Total"), this)) {
    lookLikeOneTable();
    scrollTogether();
    selectTogether();
    connect(mExpensePeriodTable, &CVCategoryTable::cellOpened, this,
            [this](const QModelIndex& cell) { emit cellActivated(cell.row(), cell.column()); });
    for (const CVCategoryTable* const table : tables())
        connect(table, &CVCategoryTable::metricsChanged, this, &CVGridTables::adjustMetrics);
}

void CVGridTables::reload() {
    {
        const QScopedValueRollback reloading(mReloading, true);
        for (CVCategoryTable* const table : tables())
            table->reload();
    }
    mExpensePeriodTable->setMessage(mContents.isEmpty() ? tr("Nothing was spent in these periods.") : QString());
    adjustMetrics();
}

void CVGridTables::paintEvent(QPaintEvent* event) {
    // The background that shows through the gaps of the layout forms the lines between the tables.
    QColor line = palette().color(QPalette::Text);
    line.setAlpha(kLineAlpha);
    QPainter painter(this);
    painter.fillRect(contentsRect(), palette().color(QPalette::Base));
    painter.fillRect(contentsRect(), line);
    painter.end();
    QFrame::paintEvent(event);
}

CVCategoryTable* CVGridTables::addTable(CVGridModel::Part part, const char* objectName, const QString& accessibleName) {
    return new CVCategoryTable(std::make_unique<CVGridModel>(mContents, part), objectName, accessibleName, this);
}

std::array<CVCategoryTable*, 3> CVGridTables::tablesOfRows() const {
    return {mExpenseCategoryTable, mExpensePeriodTable, mExpenseCategoryTotalTable};
}

std::array<CVCategoryTable*, 2> CVGridTables::tablesOfPeriods() const {
    return {mExpensePeriodTable, mExpensePeriodTotalTable};
}

std::array<CVCategoryTable*, 4> CVGridTables::tables() const {
    return {mExpenseCategoryTable, mExpensePeriodTable, mExpenseCategoryTotalTable, mExpensePeriodTotalTable};
}

void CVGridTables::lookLikeOneTable() {
    for (CVCategoryTable* const table : tables()) {
        table->setFrameShape(NoFrame);
        table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    // One scroll bar at the right for all rows, and one at the bottom for all columns.
    mExpenseCategoryTotalTable->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mExpensePeriodTotalTable->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mExpenseCategoryTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    mExpenseCategoryTotalTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    mExpensePeriodTotalTable->horizontalHeader()->hide();

    QFont bold;
    bold.setBold(true);
    mTotalLabel->setFont(bold);
    mExpensePeriodTotalTable->setFont(bold);
    auto* const corner = new QWidget(this);
    for (QWidget* const filler : {static_cast<QWidget*>(mTotalLabel), corner}) {
        filler->setBackgroundRole(QPalette::Base);
        filler->setAutoFillBackground(true);
    }

    setFrameShape(StyledPanel);
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(0, 1);
    layout->addWidget(mExpenseCategoryTable, 0, 0);
    layout->addWidget(mExpensePeriodTable, 0, 1);
    layout->addWidget(mExpenseCategoryTotalTable, 0, 2);
    layout->addWidget(mTotalLabel, 1, 0);
    layout->addWidget(mExpensePeriodTotalTable, 1, 1);
    layout->addWidget(corner, 1, 2);
}

void CVGridTables::scrollTogether() {
    for (const CVCategoryTable* const moved : tablesOfRows()) {
        for (const CVCategoryTable* const other : tablesOfRows())
            connect(moved->verticalScrollBar(), &QScrollBar::valueChanged, other->verticalScrollBar(),
                    &QScrollBar::setValue);
    }
    for (const CVCategoryTable* const moved : tablesOfPeriods()) {
        for (const CVCategoryTable* const other : tablesOfPeriods())
            connect(moved->horizontalScrollBar(), &QScrollBar::valueChanged, other->horizontalScrollBar(),
                    &QScrollBar::setValue);
    }
    connect(mExpensePeriodTable->horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int /*before*/, int width) {
                mExpensePeriodTotalTable->setColumnWidth(column, width);
                if (!mFitting)
                    mChosenWidths = periodWidths();
            });
    connect(mExpensePeriodTotalTable->horizontalScrollBar(), &QScrollBar::rangeChanged, this,
            &CVGridTables::adjustTotalsHeight);
}

void CVGridTables::selectTogether() {
    for (const CVCategoryTable* const table : tables())
        connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                [this, table] { selectHereAlone(table); });
    // The tables share their current row, so that Tab leads to the same row of the next table.
    for (const CVCategoryTable* const moved : tablesOfRows()) {
        for (const CVCategoryTable* const other : tablesOfRows()) {
            connect(moved->selectionModel(), &QItemSelectionModel::currentRowChanged, other,
                    [this, other](const QModelIndex& current) { goToRow(*other, current.row()); });
        }
    }
}

void CVGridTables::goToRow(const CVCategoryTable& table, int row) const {
    const QModelIndex before = table.currentIndex();
    const QModelIndex there = table.model()->index(row, qMax(0, before.column()));
    // During a reload the tables may show different categories in a row; each table restores its own current row.
    if (!mReloading && there.isValid() && before.row() != row)
        table.selectionModel()->setCurrentIndex(there, QItemSelectionModel::NoUpdate);
}

void CVGridTables::selectHereAlone(const CVCategoryTable* here) {
    if (!here->selectionModel()->hasSelection())
        return;
    for (CVCategoryTable* const table : tables()) {
        if (table != here)
            table->clearSelection();
    }
}

void CVGridTables::adjustMetrics() {
    int header = 0;
    for (const CVCategoryTable* const table : tablesOfRows())
        header = std::max(header, table->horizontalHeader()->sizeHint().height());
    for (const CVCategoryTable* const table : tablesOfRows())
        table->horizontalHeader()->setFixedHeight(header);
    const int names = widestColumn(*mExpenseCategoryTable);
    // The names are limited, because the periods need the room.
    const int longest = qMin(widthOfZeros(*this, kLongestName), qRound(width() * kMostShareOfNames));
    mExpenseCategoryTable->setFixedWidth(qMin(qMax(names, widthOfZeros(*this, kShortestName)), longest));
    const int bar = mExpenseCategoryTotalTable->verticalScrollBar()->sizeHint().width();
    mExpenseCategoryTotalTable->setFixedWidth(
        bar + qMax(widthOfZeros(*this, kShortestAmount), widestColumn(*mExpenseCategoryTotalTable)));
    adjustTotalsHeight();
    fitPeriodColumns();
}

void CVGridTables::adjustTotalsHeight() {
    const QScrollBar& bar = *mExpensePeriodTotalTable->horizontalScrollBar();
    const int below = bar.maximum() > 0 ? bar.sizeHint().height() : 0;
    for (QWidget* const widget : {static_cast<QWidget*>(mExpensePeriodTotalTable), static_cast<QWidget*>(mTotalLabel)})
        widget->setFixedHeight(mExpensePeriodTotalTable->rowHeight() + below);
    mTotalLabel->setContentsMargins(kCellMargin, 0, kCellMargin, below);
}

void CVGridTables::fitPeriodColumns() {
    int smallest = widthOfZeros(*this, kShortestAmount);
    for (const CVCategoryTable* const table : tablesOfPeriods())
        smallest = std::max(smallest, widestColumn(*table));
    std::vector<int> widths = mChosenWidths;
    // Columns that are new get the width of the first one.
    widths.resize(static_cast<std::size_t>(mExpensePeriodTable->model()->columnCount()),
                  widths.empty() ? 0 : widths.front());
    widths = CVFitWidths(widths, mExpensePeriodTable->viewport()->width(), smallest);
    const QScopedValueRollback fitting(mFitting, true);
    for (CVCategoryTable* const table : tablesOfPeriods()) {
        for (std::size_t column = 0; column < widths.size(); ++column)
            table->setColumnWidth(static_cast<int>(column), widths[column]);
    }
}

std::vector<int> CVGridTables::periodWidths() const {
    std::vector<int> widths;
    for (int column = 0; column < mExpensePeriodTable->model()->columnCount(); ++column)
        widths.push_back(mExpensePeriodTable->columnWidth(column));
    return widths;
}
