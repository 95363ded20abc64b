#include "reports/CVSmallTaxMark.h"

#include <QPainter>

namespace {

/// The side of the square in which the drawing's coordinates are given.
constexpr double kSide = 12;
constexpr double kThin = 0.7;
constexpr double kThick = 1.1;
constexpr double kRing = 1.15;

} // namespace

void CVDrawSmallTax(QPainter& painter, const QRectF& square) {
    painter.save();
    painter.translate(square.topLeft());
    painter.scale(square.width() / kSide, square.height() / kSide);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, kThin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(QPolygonF{{1.5, 0.8}, {7.5, 0.8}, {10.5, 3.8}, {10.5, 11.2}, {1.5, 11.2}});
    painter.drawPolyline(QPolygonF{{7.5, 0.8}, {7.5, 3.8}, {10.5, 3.8}});
    painter.drawEllipse(QPointF(4.2, 5.8), kRing, kRing);
    painter.drawEllipse(QPointF(7.8, 8.9), kRing, kRing);
    painter.setPen(QPen(Qt::black, kThick));
    painter.drawLine(QPointF(8.2, 5.2), QPointF(3.8, 9.5));
    painter.restore();
}
