#include "workspace/transactions/CVTransactionTableView.h"

#include "contents/CVTransactionList.h"
#include "model/CVTransaction.h"
#include "widgets/CVIsReturnKey.h"
#include "workspace/transactions/CVTransactionCellDelegate.h"
#include "workspace/transactions/CVTransactionTableModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <unordered_set>

namespace {

constexpr int kTintMilliseconds = 1500;
/// The usual widths of the columns, in widths of a zero.
constexpr std::array<int, CVTransactionTableModel::ColumnCount> kWidthsInDigits{12, 14, 26, 30, 22, 7, 7};
/// The minimum width of the columns with names, in widths of a zero; below that the list scrolls sideways.
constexpr int kLeastNameInDigits = 12;

/// The minimum width of any column, in letters.
constexpr int kShortestColumn = 6;

/// Whether a column holds names; these columns share the room that the others leave.
bool isName(int column) {
    return column == CVTransactionTableModel::ToFrom || column == CVTransactionTableModel::For ||
           column == CVTransactionTableModel::Category;
}

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

void CVTransactionTableView::reload() {
    const CVTransactions selection = mSelectedTransactions;
    const int scrolled = verticalScrollBar()->value();
    const QModelIndex current = currentIndex();
    const auto currentTransaction =
        current.isValid() ? mModel->rows()[static_cast<std::size_t>(current.row())] : nullptr;
    mDelegate->setTintedRow(-1);
    mModel->reload();
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

QByteArray CVTransactionTableView::saveColumns() const {
    return mHasUsualColumns ? QByteArray() : horizontalHeader()->saveState();
}

void CVTransactionTableView::restoreColumns(const QByteArray& columns) {
    mHasUsualColumns = !horizontalHeader()->restoreState(columns);
    if (mHasUsualColumns)
        setUsualWidths();
    // The restored state may forbid moving columns, so moving is allowed again.
    horizontalHeader()->setSectionsMovable(true);
}

void CVTransactionTableView::keyboardSearch(const QString& search) {
    // A Space at the beginning toggles a flag and does not start a search.
    const bool begins = !mTypedAhead.isValid() || mTypedAhead.elapsed() > QApplication::keyboardInputInterval();
    if (begins && search.trimmed().isEmpty())
        return;
    mTypedAhead.start();
    const int column = qMax(0, CVTransactionColumns::columnOfIdentifier(mList.sortContext().key));
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
    if (event->type() == QEvent::FontChange && mHasUsualColumns)
        setUsualWidths();
}

void CVTransactionTableView::updateFormatters() {
    mModel->updateFormatters();
    viewport()->update();
}

void CVTransactionTableView::resizeEvent(QResizeEvent* event) {
    CVTableView::resizeEvent(event);
    if (mHasUsualColumns)
        setUsualWidths();
    placeClearSearch();
}

void CVTransactionTableView::setUpHeader() {
    QHeaderView* const header = horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSectionResizeMode(CVTransactionTableModel::For, QHeaderView::Stretch);
    setUsualWidths();
    connect(header, &QHeaderView::sectionClicked, this,
            [this](int column) { emit columnClicked(CVTransactionColumns::identifier(column)); });
    connect(header, &QHeaderView::sectionMoved, this, [this] { mHasUsualColumns = false; });
    connect(header, &QHeaderView::sectionResized, this, [this](int column) {
        // The width of the column "For" follows the other columns, so a change of it is not the user's.
        if (!mIsFittingColumns && column != CVTransactionTableModel::For)
            mHasUsualColumns = false;
    });
}

void CVTransactionTableView::setUsualWidths() {
    const QScopedValueRollback fitting(mIsFittingColumns, true);
    horizontalHeader()->setMinimumSectionSize(fontMetrics().averageCharWidth() * kShortestColumn);
    const int digit = fontMetrics().horizontalAdvance('0');
    int room = viewport()->width();
    int names = 0;
    for (int column = 0; column < CVTransactionTableModel::ColumnCount; ++column) {
        const int usual = kWidthsInDigits[static_cast<std::size_t>(column)];
        if (isName(column))
            names += usual;
        else
            room -= digit * usual;
        setColumnWidth(column, digit * usual);
    }
    for (const int column : {CVTransactionTableModel::ToFrom, CVTransactionTableModel::Category}) {
        const int usual = kWidthsInDigits[static_cast<std::size_t>(column)];
        setColumnWidth(column, qBound(digit * kLeastNameInDigits, room * usual / names, digit * usual));
    }
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
    selectionModel()->setCurrentIndex(mModel->index(row, before.column()), QItemSelectionModel::NoUpdate);
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
    const CVTransactionSortContext& context = mList.sortContext();
    horizontalHeader()->setSortIndicator(CVTransactionColumns::columnOfIdentifier(context.key),
                                         context.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
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
