#include "report/painting/page_device.h"

#include <QPainterPath>

namespace orvel {

void Page_Engine::updateState(const QPaintEngineState& now)
{
    const auto changed = now.state();
    if (changed & DirtyTransform)
        Moved = {now.transform().dx(), now.transform().dy()};
    if (changed & DirtyPen)
        Target.setPen(now.pen());
    if (changed & DirtyBrush)
        Target.setBrush(now.brush());
    if (changed & DirtyFont)
        Target.setFont(now.font());
    if (changed & DirtyHints)
        Target.setRenderHints(now.renderHints());
}

void Page_Engine::drawTextItem(const QPointF& place, const QTextItem& text)
{
    Target.drawTextItem(place + Moved, text);
}

void Page_Engine::drawPath(const QPainterPath& path)
{
    Target.drawPath(path.translated(Moved));
}

void Page_Engine::drawRects(const QRectF* rects, int count)
{
    for (int i = 0; i < count; ++i)
        Target.drawRect(rects[i].translated(Moved));
}

void Page_Engine::drawLines(const QLineF* lines, int count)
{
    for (int i = 0; i < count; ++i)
        Target.drawLine(lines[i].translated(Moved));
}

void Page_Engine::drawPolygon(const QPointF* points, int count, PolygonDrawMode mode)
{
    QPolygonF polygon;
    for (int i = 0; i < count; ++i)
        polygon << points[i] + Moved;
    if (mode == PolylineMode)
        Target.drawPolyline(polygon);
    else
        Target.drawPolygon(polygon, mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
}

void Page_Engine::drawPixmap(const QRectF& place, const QPixmap& picture, const QRectF& part)
{
    Target.drawPixmap(place.translated(Moved), picture, part);
}

int Page_Device::metric(PaintDeviceMetric what) const
{
    switch (what) {
    case PdmWidth:
        return Measured.width();
    case PdmHeight:
        return Measured.height();
    case PdmWidthMM:
        return Measured.widthMM();
    case PdmHeightMM:
        return Measured.heightMM();
    case PdmNumColors:
        return Measured.colorCount();
    case PdmDepth:
        return Measured.depth();
    case PdmDpiX:
        return Measured.logicalDpiX();
    case PdmDpiY:
        return Measured.logicalDpiY();
    case PdmPhysicalDpiX:
        return Measured.physicalDpiX();
    case PdmPhysicalDpiY:
        return Measured.physicalDpiY();
    case PdmDevicePixelRatio:
        return static_cast<int>(Measured.devicePixelRatio());
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(Measured.devicePixelRatioF() * devicePixelRatioFScale());
    }
    return 0;
}

} // namespace orvel
