#include "workspace/CVTransactionCellDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr int kTintAlpha = 70;

} // namespace

void CVTransactionCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const auto picture = index.data(Qt::DecorationRole).value<QIcon>();
    if (picture.isNull())
        return;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QRect place = QStyle::alignedRect(option.direction, Qt::AlignCenter, option.decorationSize, option.rect);
    picture.paint(painter, place, Qt::AlignCenter, isSelected ? QIcon::Selected : QIcon::Normal);
}

QString CVTransactionCellDelegate::displayText(const QVariant& value, const QLocale& locale) const {
    return QStyledItemDelegate::displayText(value, locale).simplified();
}

bool CVTransactionCellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                          const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool isCut = index.isValid() && sizeHint(option, index).width() > view->visualRect(index).width();
    if (isCut)
        QToolTip::showText(event->globalPos(), index.data().toString(), view);
    else
        QToolTip::hideText();
    return true;
}

void CVTransactionCellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    // The styles put a picture at the edge of its cell; here it is painted in the middle.
    option->features &= ~QStyleOptionViewItem::ViewItemFeatures(QStyleOptionViewItem::HasDecoration);
    option->icon = QIcon();
    if (index.row() == mTintedRow) {
        QColor tint = option->palette.color(QPalette::Highlight);
        tint.setAlpha(kTintAlpha);
        option->backgroundBrush = tint;
    }
}
