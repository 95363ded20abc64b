#include "PaintedTexts.h"

#include "reports/CVReportPainter.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

/// Ten dots for each point.
constexpr int kDotsPerInch = 720;
constexpr double kDotsPerPoint = 10;

class Recorder final : public QPaintEngine {
public:
    explicit Recorder(PaintedPage& page) : QPaintEngine(AllFeatures), mPage(page) {}

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    [[nodiscard]] Type type() const override { return User; }
    void updateState(const QPaintEngineState& newState) override {
        if (newState.state() & DirtyTransform)
            mTransform = newState.transform();
    }
    void drawTextItem(const QPointF& point, const QTextItem& item) override {
        mPage.texts.push_back({item.text(), mTransform.map(point) / kDotsPerPoint,
                               item.width() * mTransform.m11() / kDotsPerPoint, item.font()});
    }
    void drawPixmap(const QRectF& /*target*/, const QPixmap& /*pixmap*/, const QRectF& /*source*/) override {}
    void drawPath(const QPainterPath& path) override { addShape(path.boundingRect()); }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode /*mode*/) override {
        addShape(QPolygonF(QList<QPointF>(points, points + count)).boundingRect());
    }

private:
    void addShape(const QRectF& rect) {
        const QRectF turned = mTransform.mapRect(rect);
        mPage.shapes.emplace_back(turned.topLeft() / kDotsPerPoint, turned.size() / kDotsPerPoint);
    }

    PaintedPage& mPage;
    QTransform mTransform;
};

class Sheet final : public QPaintDevice {
public:
    Sheet(PaintedPage& page, QSizeF points) : mRecorder(page), mPoints(points) {}
    ~Sheet() override = default;
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    [[nodiscard]] QPaintEngine* paintEngine() const override { return &mRecorder; }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
            return static_cast<int>(mPoints.width() * kDotsPerPoint);
        case PdmHeight:
            return static_cast<int>(mPoints.height() * kDotsPerPoint);
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return kDotsPerInch;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 0;
        }
    }

private:
    mutable Recorder mRecorder;
    QSizeF mPoints;
};

} // namespace

const PaintedText& PaintedPage::starting(const QString& beginning) const {
    const auto found = std::find_if(texts.begin(), texts.end(),
                                    [&](const PaintedText& painted) { return painted.text.startsWith(beginning); });
    if (found == texts.end())
        qFatal("nothing that begins with '%s' was painted", qPrintable(beginning));
    return *found;
}

PaintedPage paintedPage(const CVReportView& view, int page) {
    PaintedPage painted;
    Sheet sheet(painted, view.rectForPage(page).size());
    QPainter painter(&sheet);
    CVReportPainter(view, painter).paint(page);
    painter.end();
    return painted;
}
