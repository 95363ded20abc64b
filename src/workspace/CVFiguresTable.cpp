#include "workspace/CVFiguresTable.h"

#include "workspace/CVFigureCellDelegate.h"
#include "workspace/CVTableStyle.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <unordered_map>

namespace {

constexpr double kRowHeightInLines = 1.5;

} // namespace

CVFiguresTable::CVFiguresTable(std::unique_ptr<CVFiguresModel> model, const char* objectName,
                               const QString& accessibleName, QWidget* parent)
    : QTableView(parent)
    , mModel(model.release()) {
    setObjectName(QLatin1String(objectName));
    setAccessibleName(accessibleName);
    mModel->setParent(this);
    setModel(mModel);
    setItemDelegate(new CVFigureCellDelegate(this));
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    // Tab leads on to the next control; the arrow keys move within the table.
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    auto* const tableStyle = new CVTableStyle(this);
    setStyle(tableStyle);
    horizontalHeader()->setStyle(tableStyle);
    setUpHeaders();
    connect(this, &QTableView::doubleClicked, this, &CVFiguresTable::cellOpened);
}

void CVFiguresTable::reload() {
    const bool wasEditing = state() == EditingState;
    const Place before = place();
    mModel->reload();
    // Scrolling needs the new number of rows now.
    executeDelayedItemsLayout();
    restore(before);
    // An editor goes with its row, and the focus with it.
    if (wasEditing && state() != EditingState)
        setFocus(Qt::OtherFocusReason);
}

void CVFiguresTable::setMessage(const QString& message) {
    if (message == mMessage)
        return;
    mMessage = message;
    setAccessibleDescription(message);
    viewport()->update();
}

int CVFiguresTable::rowHeight() const {
    return qRound(fontMetrics().height() * kRowHeightInLines);
}

void CVFiguresTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (mMessage.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, mMessage);
}

void CVFiguresTable::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && currentIndex().isValid())
        emit cellOpened(currentIndex());
    else
        QTableView::keyPressEvent(event);
}

void CVFiguresTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    emit metricsChanged();
}

void CVFiguresTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    verticalHeader()->setDefaultSectionSize(rowHeight());
    emit metricsChanged();
}

void CVFiguresTable::setUpHeaders() {
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(rowHeight());
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
}

CVFiguresTable::Cell CVFiguresTable::cellOf(const QModelIndex& index) const {
    return {index.isValid() ? mModel->categoryOfRow(index.row()) : nullptr, index.column()};
}

CVFiguresTable::Place CVFiguresTable::place() const {
    Place place{
        {}, currentIndex(), cellOf(currentIndex()), horizontalScrollBar()->value(), verticalScrollBar()->value()};
    for (const QModelIndex& index : selectionModel()->selectedIndexes())
        place.selected.append(cellOf(index));
    return place;
}

void CVFiguresTable::restore(const Place& place) {
    std::unordered_map<const CVCategory*, int> rows;
    for (int row = 0; row < mModel->rowCount(); ++row)
        rows.emplace(mModel->categoryOfRow(row), row);
    const auto indexOf = [&](const Cell& cell) {
        const auto row = rows.find(cell.category);
        return row == rows.end() ? QModelIndex() : mModel->index(row->second, cell.column);
    };
    QItemSelection selection;
    for (const Cell& cell : place.selected) {
        if (const QModelIndex index = indexOf(cell); index.isValid())
            selection.select(index, index);
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (place.currentBefore.isValid()) {
        // The arrow keys go on at the same category, or, when it is gone, at the one in its place.
        QModelIndex current = indexOf(place.current);
        if (!current.isValid())
            current = mModel->index(qMin(place.currentBefore.row(), mModel->rowCount() - 1),
                                    qMin(place.currentBefore.column(), mModel->columnCount() - 1));
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    }
    horizontalScrollBar()->setValue(place.across);
    verticalScrollBar()->setValue(place.down);
}
