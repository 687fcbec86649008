#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

namespace orvel {

// Passes on what is painted, with every translation counted into its places. A long text that is moved up page by page
// would otherwise be written with places far outside the paper, beyond the numbers that a PDF/A document may have.
class Page_Engine : public QPaintEngine {
public:
    explicit Page_Engine(QPainter& target) : QPaintEngine(AllFeatures), Target(target) {}

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& now) override;
    void drawTextItem(const QPointF& place, const QTextItem& text) override;
    void drawPath(const QPainterPath& path) override;
    void drawRects(const QRectF* rects, int count) override;
    void drawLines(const QLineF* lines, int count) override;
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    void drawPixmap(const QRectF& place, const QPixmap& picture, const QRectF& part) override;

private:
    QPainter& Target;
    QPointF Moved;
};

// The page that such a text is painted on; it measures what the target's device does. Only text, lines and areas that
// are moved, and not scaled or clipped, are painted here.
class Page_Device : public QPaintDevice {
public:
    explicit Page_Device(QPainter& target) : Engine(target), Measured(*target.device()) {}
    QPaintEngine* paintEngine() const override { return &Engine; }

protected:
    int metric(PaintDeviceMetric what) const override;

private:
    mutable Page_Engine Engine;
    const QPaintDevice& Measured;
};

} // namespace orvel
