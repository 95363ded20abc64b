#include "widgets/CVGlyph.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <memory>

namespace {

/// The side of the square in whose coordinates the glyphs are drawn.
constexpr double kSide = 16;
constexpr double kLine = 1.3;

void drawCalendar(QPainter& painter) {
    painter.drawRoundedRect(QRectF(2.5, 3.5, 11, 10), 1.5, 1.5);
    painter.drawLine(QPointF(2.5, 6.5), QPointF(13.5, 6.5));
    painter.drawLine(QPointF(5.5, 2), QPointF(5.5, 4.5));
    painter.drawLine(QPointF(10.5, 2), QPointF(10.5, 4.5));
    for (const double y : {9.0, 11.3}) {
        for (const double x : {5.3, 8.0, 10.7})
            painter.drawPoint(QPointF(x, y));
    }
}

void drawCheck(QPainter& painter) {
    painter.drawPolyline(QPolygonF({{3.5, 8.5}, {6.8, 11.8}, {12.8, 4.6}}));
}

void drawFlag(QPainter& painter) {
    painter.drawLine(QPointF(4, 2.5), QPointF(4, 14));
    QPainterPath cloth(QPointF(4, 3));
    cloth.lineTo(12.5, 3);
    cloth.lineTo(10.5, 5.75);
    cloth.lineTo(12.5, 8.5);
    cloth.lineTo(4, 8.5);
    cloth.closeSubpath();
    painter.fillPath(cloth, painter.pen().color());
}

void drawSearch(QPainter& painter) {
    painter.drawEllipse(QPointF(6.5, 6.5), 4.0, 4.0);
    painter.drawLine(QPointF(9.5, 9.5), QPointF(13.0, 13.0));
}

class GlyphEngine final : public QIconEngine {
public:
    explicit GlyphEngine(CVGlyph::Shape shape) : mShape(shape) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::Text;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kSide, rect.height() / kSide);
        painter->setPen(
            QPen(QGuiApplication::palette().color(group, role), kLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        switch (mShape) {
        case CVGlyph::Shape::Calendar:
            drawCalendar(*painter);
            break;
        case CVGlyph::Shape::Check:
            drawCheck(*painter);
            break;
        case CVGlyph::Shape::Flag:
            drawFlag(*painter);
            break;
        case CVGlyph::Shape::Search:
            drawSearch(*painter);
            break;
        }
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

    [[nodiscard]] QIconEngine* clone() const override { return std::make_unique<GlyphEngine>(*this).release(); }

private:
    CVGlyph::Shape mShape;
};

} // namespace

QIcon CVGlyph::icon(Shape shape) {
    // The icon takes ownership of its engine.
    return QIcon(std::make_unique<GlyphEngine>(shape).release());
}
