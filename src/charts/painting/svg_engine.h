#pragma once

#include <QByteArray>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QSizeF>

namespace orvel {

// Writes what is painted as elements of SVG, in pixels of 1/72 inch. Areas and lines are of one colour; pictures are
// left out.
class Svg_Engine : public QPaintEngine {
public:
    Svg_Engine();

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& /*now*/) override {} // read when something is drawn
    void drawPath(const QPainterPath& path) override;
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    void drawTextItem(const QPointF& place, const QTextItem& text) override;
    void drawPixmap(const QRectF& /*place*/, const QPixmap& /*picture*/, const QRectF& /*part*/) override {}

    const QByteArray& Elements() const { return Out; }

private:
    void Draw(const QPainterPath& path, bool filled);
    QByteArray Clip();

    QByteArray Out, Last_Clip;
    int Clips = 0;
};

class Svg_Device : public QPaintDevice {
public:
    explicit Svg_Device(const QSizeF& size) : Size(size) {}
    QPaintEngine* paintEngine() const override { return &Engine; }

    QByteArray Document(const QByteArray& title) const;

protected:
    int metric(PaintDeviceMetric what) const override;

private:
    mutable Svg_Engine Engine;
    QSizeF Size;
};

} // namespace orvel
