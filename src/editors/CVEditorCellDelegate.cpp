#include "editors/CVEditorCellDelegate.h"

#include "widgets/tables/CVCellStyle.h"
#include "widgets/tables/CVCheckCell.h"

#include <QEvent>
#include <QLineEdit>

namespace {

bool canToggle(const QModelIndex& index) {
    return index.flags().testFlag(Qt::ItemIsUserCheckable);
}

/// The distance between a text and the edge of its cell: the styles add one pixel to their own metric.
int textMarginOfCell(const QStyleOptionViewItem& option) {
    return CVStyleOfCell(option).pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
}

/// The cell whose box an event toggles: a click toggles the box of the clicked cell, a key the box of the row.
QModelIndex boxOf(const QModelIndex& index, const QEvent& event) {
    if (canToggle(index))
        return index;
    for (int column = 0; event.type() == QEvent::KeyPress && column < index.model()->columnCount(); ++column) {
        if (canToggle(index.siblingAtColumn(column)))
            return index.siblingAtColumn(column);
    }
    return {};
}

} // namespace

void CVEditorCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    CVCellDelegate::paint(painter, option, index);
    CVCheckCell::paint(*painter, option, index);
}

QWidget* CVEditorCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                            const QModelIndex& index) const {
    QWidget* const editor = CVCellDelegate::createEditor(parent, option, index);
    editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    if (auto* const field = qobject_cast<QLineEdit*>(editor)) {
        // The text must not move when the editor opens; the line edit itself keeps 2 pixels free.
        const int margin = textMarginOfCell(option) - 2;
        field->setTextMargins(margin, 0, margin, 0);
    }
    return editor;
}

bool CVEditorCellDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& /*option*/,
                                       const QModelIndex& index) {
    const QModelIndex box = CVCheckCell::isToggle(*event) ? boxOf(index, *event) : QModelIndex();
    return box.isValid() && model->setData(box, {}, Qt::CheckStateRole);
}
