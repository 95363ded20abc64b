#include "widgets/CVPositionOfPopup.h"

#include <QScreen>
#include <QWidget>

QPoint CVPositionOfPopup(const QWidget& field, const QSize& size) {
    const bool isMirrored = field.layoutDirection() == Qt::RightToLeft;
    const QPoint below = field.mapToGlobal(QPoint(isMirrored ? field.width() - size.width() : 0, field.height()));
    const QRect screen = field.screen()->availableGeometry();
    const int x = qMax(screen.left(), qMin(below.x(), screen.right() + 1 - size.width()));
    if (below.y() + size.height() <= screen.bottom() + 1)
        return {x, below.y()};
    return {x, qMax(screen.top(), below.y() - field.height() - size.height())};
}
