#include "shared/widgets/CVPopupPosition.h"

#include <QScreen>
#include <QWidget>

QPoint CVPopupPosition(const QWidget& field, const QSize& size) {
    const QPoint below = field.mapToGlobal(QPoint(0, field.height()));
    const QRect screen = field.screen()->availableGeometry();
    const int x = qBound(screen.left(), below.x(), qMax(screen.left(), screen.right() - size.width()));
    if (below.y() + size.height() <= screen.bottom())
        return {x, below.y()};
    return {x, qMax(screen.top(), below.y() - field.height() - size.height())};
}
