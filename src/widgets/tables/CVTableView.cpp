#include "widgets/tables/CVTableView.h"

#include "widgets/CVQuietTextColour.h"
#include "widgets/fields/CVFormattedField.h"
#include "widgets/tables/CVTableStyle.h"
#include "widgets/tables/CVTextOfSelection.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

namespace {

constexpr double kRowHeightInLines = 1.5;
/// The sum of the room above and below a line of text. In pixels.
constexpr int kMostRoomInRow = 10;
constexpr int kLeastRows = 2;

} // namespace

CVTableView::CVTableView(QWidget* parent) : QTableView(parent) {
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    // The Tab key moves to the next control; the arrow keys move within the table.
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    auto* const tableStyle = new CVTableStyle(this);
    setStyle(tableStyle);
    horizontalHeader()->setStyle(tableStyle);
    setUpHeaders();
}

void CVTableView::setMessage(const QString& message) {
    if (message == mMessage)
        return;
    mMessage = message;
    setAccessibleDescription(message);
    viewport()->update();
}

bool CVTableView::editCurrentCell() {
    if (!currentIndex().flags().testFlag(Qt::ItemIsEditable) || state() == EditingState)
        return false;
    edit(currentIndex());
    return true;
}

bool CVTableView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool wasEditing = state() == EditingState;
    const bool taken = QTableView::edit(index, trigger, event);
    if (!wasEditing && state() == EditingState)
        mEdited = index;
    return taken;
}

void CVTableView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    auto* const field = qobject_cast<CVFormattedField*>(editor);
    if (!field || field->isReadable() || hint == QAbstractItemDelegate::RevertModelCache)
        return QTableView::closeEditor(editor, hint);
    // The focus or the current cell is just changing here, so the editor takes the focus back a moment later.
    QTimer::singleShot(0, field, [this, field] {
        if (isActiveWindow())
            returnToEditor(*field);
    });
}

CVFormattedField* CVTableView::unreadableEditor() const {
    for (auto* const field : viewport()->findChildren<CVFormattedField*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (field->isVisible() && !field->isReadable())
            return field;
    }
    return nullptr;
}

int CVTableView::rowHeight() const {
    const int line = fontMetrics().height();
    return qMin(qRound(line * kRowHeightInLines), line + kMostRoomInRow);
}

QSize CVTableView::sizeHint() const {
    const int header = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
    return {QTableView::sizeHint().width(), header + kLeastRows * rowHeight() + 2 * frameWidth()};
}

QSize CVTableView::minimumSizeHint() const {
    return {QTableView::minimumSizeHint().width(), sizeHint().height()};
}

void CVTableView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (mMessage.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(CVQuietTextColour(palette()));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, mMessage);
}

void CVTableView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        verticalHeader()->setDefaultSectionSize(rowHeight());
}

void CVTableView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy) && selectionModel() && selectionModel()->hasSelection())
        CVCopySelection(*this);
    else
        QTableView::keyPressEvent(event);
}

void CVTableView::returnToEditor(CVFormattedField& field) {
    if (!field.isVisible() || field.hasFocus())
        return;
    setCurrentIndex(mEdited);
    field.setFocus(Qt::OtherFocusReason);
    field.tellUnreadable();
    QApplication::beep();
}

void CVTableView::setUpHeaders() {
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(rowHeight());
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
}
