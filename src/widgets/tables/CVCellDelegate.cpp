#include "widgets/tables/CVCellDelegate.h"

#include "widgets/fields/CVAllowAnyLength.h"
#include "widgets/fields/CVFormattedField.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

QWidget* CVCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const {
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* const field = qobject_cast<QLineEdit*>(editor))
        CVAllowAnyLength(*field);
    return editor;
}

void CVCellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const {
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
    if (!qobject_cast<CVFormattedField*>(editor))
        return;
    QRect place = editor->geometry();
    const int missing = std::max(0, editor->sizeHint().width() - place.width());
    if (option.direction == Qt::LeftToRight)
        place.setRight(place.right() + missing);
    else
        place.setLeft(place.left() - missing);
    // At the edge of the table the editor grows to the other side.
    const QRect table = editor->parentWidget()->rect();
    place.translate(std::min(0, table.right() - place.right()), 0);
    place.translate(std::max(0, table.left() - place.left()), 0);
    editor->setGeometry(place);
}

bool CVCellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                               const QModelIndex& index) {
    const bool isWanted = event->type() == QEvent::ToolTip && index.isValid();
    if (!isWanted || index.data(Qt::ToolTipRole).isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool isCut = sizeHint(option, index).width() > view->visualRect(index).width();
    // A name that contains markup is shown as plain text.
    const QString text = Qt::convertFromPlainText(index.data().toString());
    QToolTip::showText(event->globalPos(), isCut ? text : QString(), view);
    return true;
}

void CVCellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->features &= ~(QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDecoration |
                          QStyleOptionViewItem::WrapText);
    option->text.replace(QChar::LineSeparator, QLatin1Char(' '));
}
