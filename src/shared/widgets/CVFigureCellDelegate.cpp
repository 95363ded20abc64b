#include "shared/widgets/CVFigureCellDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

QString CVFigureCellDelegate::displayText(const QVariant& value, const QLocale& locale) const {
    return QStyledItemDelegate::displayText(value, locale).simplified();
}

bool CVFigureCellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) {
    const bool isWanted = event->type() == QEvent::ToolTip && index.isValid();
    if (!isWanted || index.data(Qt::ToolTipRole).isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool isCut = sizeHint(option, index).width() > view->visualRect(index).width();
    // A name with markup in it shows as it is.
    const QString text = QStringLiteral("<span>%1</span>").arg(index.data().toString().toHtmlEscaped());
    QToolTip::showText(event->globalPos(), isCut ? text : QString(), view);
    return true;
}
