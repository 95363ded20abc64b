#include "workspace/transactions/CVTransactionTableView.h"

#include "contents/CVTransactionList.h"
#include "model/CVTransaction.h"
#include "widgets/CVIsReturnKey.h"
#include "workspace/transactions/CVTransactionCellDelegate.h"
#include "workspace/transactions/CVTransactionColumnLayout.h"
#include "workspace/transactions/CVTransactionTableModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>

#include <algorithm>
#include <unordered_set>

namespace {

constexpr int kTintMilliseconds = 1500;

} // namespace

CVTransactionTableView::CVTransactionTableView(const CVTransactionList& list, QWidget* parent)
    : CVTableView(parent)
    , mList(list)
    , mModel(new CVTransactionTableModel(list, this))
    , mDelegate(new CVTransactionCellDelegate(this))
    , mClearSearch(new QPushButton(tr("Clear Search"), parent ? parent : viewport())) {
    setModel(mModel);
    setItemDelegate(mDelegate);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setUpHeader();
    mColumnLayout = std::make_unique<CVTransactionColumnLayout>(*this);
    mClearSearch->setObjectName(QStringLiteral("mClearSearchButton"));
    // The button is a sibling of the table, because a screen reader finds only cells as children of a table.
    mClearSearch->hide();
    connect(mClearSearch, &QPushButton::clicked, this, &CVTransactionTableView::clearSearchRequested);
    connect(mModel, &CVTransactionTableModel::edited, this, &CVTransactionTableView::edited);
    mTint.setSingleShot(true);
    mTint.setInterval(kTintMilliseconds);
    connect(&mTint, &QTimer::timeout, this, [this] {
        mDelegate->setTintedRow(-1);
        viewport()->update();
    });
}

CVTransactionTableView::~CVTransactionTableView() = default;

void CVTransactionTableView::reload() {
    const CVTransactions selection = mSelectedTransactions;
    const int scrolled = verticalScrollBar()->value();
    const QModelIndex current = currentIndex();
    const auto currentTransaction =
        current.isValid() ? mModel->rows()[static_cast<std::size_t>(current.row())] : nullptr;
    mDelegate->setTintedRow(-1);
    reloadModel();
    // Scrolling needs the new number of rows at once.
    executeDelayedItemsLayout();
    selectionModel()->select(rowsOf(selection), QItemSelectionModel::ClearAndSelect);
    // Without a selection before and after, the selection model emits no change.
    updateSelectedTransactions();
    if (currentTransaction)
        restoreCurrent(*currentTransaction, current);
    verticalScrollBar()->setValue(scrolled);
    showOrder();
    placeClearSearch();
    setMessage(emptyText());
}

/// The column of the sets comes or goes with the list of all sets.
void CVTransactionTableView::reloadModel() {
    if (mModel->showsSets() == (mList.shownSets() == CVShownSets::All))
        return mModel->reload();
    mColumnLayout->keep();
    mModel->reload();
    mColumnLayout->show(mList.shownSets());
}

void CVTransactionTableView::reorder() {
    mDelegate->setTintedRow(-1);
    mModel->reorder();
    updateSelectedTransactions();
    showOrder();
}

bool CVTransactionTableView::selectTransactions(const CVTransactions& transactions) {
    std::unordered_set<std::shared_ptr<CVTransaction>> wanted(transactions.begin(), transactions.end());
    QItemSelection rows;
    for (int row = 0; row < mModel->rowCount() && !wanted.empty(); ++row) {
        if (wanted.erase(mModel->rows()[static_cast<std::size_t>(row)]) > 0)
            rows.select(mModel->index(row, 0), mModel->index(row, mModel->columnCount() - 1));
    }
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    if (rows.isEmpty())
        return false;
    const QModelIndex first = mModel->index(mModel->rowOf(mSelectedTransactions.front().get()), 0);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    scrollTo(first);
    return true;
}

void CVTransactionTableView::setPaidToItems(const QStringList& items) {
    mDelegate->setPaidToItems(items);
}

void CVTransactionTableView::setCategoryItems(const QStringList& items) {
    mDelegate->setCategoryItems(items);
}

bool CVTransactionTableView::reveal(const CVTransaction* transaction) {
    const int row = mModel->rowOf(transaction);
    if (row < 0)
        return false;
    mDelegate->setTintedRow(row);
    scrollTo(mModel->index(row, 0));
    viewport()->update();
    mTint.start();
    return true;
}

void CVTransactionTableView::keyboardSearch(const QString& search) {
    // A Space at the beginning toggles a flag and does not start a search.
    const bool begins = !mTypedAhead.isValid() || mTypedAhead.elapsed() > QApplication::keyboardInputInterval();
    if (begins && search.trimmed().isEmpty())
        return;
    mTypedAhead.start();
    const int column = qMax(0, sortColumn());
    if (currentIndex().column() != column) {
        const int row = qMax(0, currentIndex().row());
        selectionModel()->setCurrentIndex(mModel->index(row, column), QItemSelectionModel::NoUpdate);
    }
    CVTableView::keyboardSearch(search);
}

void CVTransactionTableView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    CVTableView::selectionChanged(selected, deselected);
    updateSelectedTransactions();
}

void CVTransactionTableView::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = CVIsReturnKey(event->key());
    const bool isAlone = !(event->modifiers() & ~Qt::KeypadModifier);
    if (!isReturn || !isAlone || !editCurrentCell())
        CVTableView::keyPressEvent(event);
}

void CVTransactionTableView::changeEvent(QEvent* event) {
    CVTableView::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        updateFormatters();
    if (event->type() == QEvent::FontChange)
        mColumnLayout->fit();
}

void CVTransactionTableView::updateFormatters() {
    mModel->updateFormatters();
    viewport()->update();
}

void CVTransactionTableView::resizeEvent(QResizeEvent* event) {
    CVTableView::resizeEvent(event);
    mColumnLayout->fit();
    placeClearSearch();
}

void CVTransactionTableView::setUpHeader() {
    QHeaderView* const header = horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    connect(header, &QHeaderView::sectionClicked, this,
            [this](int column) { emit columnClicked(CVTransactionColumns::identifier(column)); });
}

QItemSelection CVTransactionTableView::rowsOf(const CVTransactions& transactions) const {
    const std::unordered_set<std::shared_ptr<CVTransaction>> wanted(transactions.begin(), transactions.end());
    const auto& rows = mModel->rows();
    QItemSelection ranges;
    const auto isWanted = [&wanted](const auto& row) { return wanted.contains(row); };
    for (auto begin = wanted.empty() ? rows.end() : rows.begin(); begin != rows.end();) {
        begin = std::find_if(begin, rows.end(), isWanted);
        const auto end = std::find_if_not(begin, rows.end(), isWanted);
        if (begin != end)
            ranges.select(mModel->index(static_cast<int>(begin - rows.begin()), 0),
                          mModel->index(static_cast<int>(end - rows.begin()) - 1, mModel->columnCount() - 1));
        begin = end;
    }
    return ranges;
}

/// Makes the same transaction current again, or the row in its place when the transaction is gone, so that the arrow
/// keys go on from there.
void CVTransactionTableView::restoreCurrent(const CVTransaction& transaction, const QModelIndex& before) {
    const int found = mModel->rowOf(&transaction);
    const int row = found >= 0 ? found : qMin(before.row(), mModel->rowCount() - 1);
    const int column = qMin(before.column(), mModel->columnCount() - 1);
    selectionModel()->setCurrentIndex(mModel->index(row, column), QItemSelectionModel::NoUpdate);
}

void CVTransactionTableView::updateSelectedTransactions() {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    mSelectedTransactions.clear();
    std::unordered_set<const CVTransaction*> seen;
    for (const int row : rows) {
        const auto& transaction = mModel->rows()[static_cast<std::size_t>(row)];
        if (seen.insert(transaction.get()).second)
            mSelectedTransactions.push_back(transaction);
    }
    emit selectedTransactionsChanged();
}

void CVTransactionTableView::showOrder() {
    horizontalHeader()->setSortIndicator(sortColumn(),
                                         mList.sortContext().descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

/// -1 for an order that is of no column shown.
int CVTransactionTableView::sortColumn() const {
    const int column = CVTransactionColumns::columnOfIdentifier(mList.sortContext().key);
    return column < mModel->columnCount() ? column : -1;
}

/// Says why the table is empty; an empty text when the table has rows.
QString CVTransactionTableView::emptyText() const {
    if (mModel->rowCount() > 0)
        return {};
    if (mList.transactions().empty())
        return tr("No transactions yet. Record your first one above.");
    if (!mList.searchText().isEmpty())
        return tr("No transaction matches the search.");
    return tr("No transactions in this range of dates.");
}

/// Places the button below the text that says that nothing matches.
void CVTransactionTableView::placeClearSearch() {
    mClearSearch->setVisible(mModel->rowCount() == 0 && !mList.transactions().empty() && !mList.searchText().isEmpty());
    mClearSearch->adjustSize();
    mClearSearch->raise();
    const QPoint centre = viewport()->mapTo(mClearSearch->parentWidget(), viewport()->rect().center());
    mClearSearch->move(centre.x() - mClearSearch->width() / 2, centre.y() + fontMetrics().height());
}
