#include "charts/painting/svg_engine.h"

#include <cmath>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

namespace orvel {

namespace {

constexpr int Dots_An_Inch = 72;
constexpr double Millimetres_An_Inch = 25.4;

QByteArray Number(double value)
{
    return QByteArray::number(value, 'g', 6);
}

QByteArray Place(const QPainterPath::Element& element)
{
    return Number(element.x) + ',' + Number(element.y);
}

QByteArray Data_Of(const QPainterPath& path)
{
    QByteArray data;
    for (int i = 0; i < path.elementCount(); ++i) {
        const auto element = path.elementAt(i);
        const char* const kind = element.type == QPainterPath::MoveToElement    ? "M"
                                 : element.type == QPainterPath::LineToElement  ? "L"
                                 : element.type == QPainterPath::CurveToElement ? "C"
                                                                                : " ";
        data += kind + Place(element);
    }
    return data;
}

QByteArray Painted(const char* use, const QColor& colour)
{
    return QByteArray(" ") + use + "=\"" + colour.name().toLatin1() + "\" " + use + "-opacity=\"" +
           Number(colour.alphaF()) + '"';
}

QByteArray Joined(const QList<qreal>& lengths, double unit)
{
    QByteArray text;
    for (const qreal length : lengths)
        text += (text.isEmpty() ? "" : ",") + Number(length * unit);
    return text;
}

QByteArray Stroke(const QPen& pen, const QTransform& transform)
{
    if (pen.style() == Qt::NoPen)
        return " stroke=\"none\"";
    const double scale = pen.isCosmetic() ? 1 : std::sqrt(std::abs(transform.determinant()));
    const double width = pen.widthF() == 0 ? 1 : pen.widthF() * scale;
    QByteArray text = Painted("stroke", pen.color()) + " stroke-width=\"" + Number(width) + '"';
    if (pen.style() != Qt::SolidLine)
        text += " stroke-dasharray=\"" + Joined(pen.dashPattern(), width) + '"';
    const auto cap = pen.capStyle();
    text += QByteArray(" stroke-linecap=\"") + (cap == Qt::FlatCap     ? "butt"
                                                : cap == Qt::SquareCap ? "square"
                                                                       : "round");
    const auto join = pen.joinStyle();
    text += QByteArray("\" stroke-linejoin=\"") + (join == Qt::BevelJoin   ? "bevel"
                                                   : join == Qt::RoundJoin ? "round"
                                                                           : "miter");
    return text + '"';
}

QByteArray Fill(const QBrush& brush, Qt::FillRule rule)
{
    if (brush.style() == Qt::NoBrush)
        return " fill=\"none\"";
    return Painted("fill", brush.color()) + (rule == Qt::OddEvenFill ? " fill-rule=\"evenodd\"" : "");
}

QByteArray Matrix(const QTransform& by)
{
    QByteArray text = " transform=\"matrix(";
    for (const double value : {by.m11(), by.m12(), by.m21(), by.m22(), by.dx()})
        text += Number(value) + ',';
    return text + Number(by.dy()) + ")\"";
}

double Pixels(const QFont& font)
{
    return font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF(); // of a point each
}

} // namespace

Svg_Engine::Svg_Engine() : QPaintEngine(PrimitiveTransform | PainterPaths | AlphaBlend | Antialiasing) {}

// The attribute that keeps what follows within the painter's clip.
QByteArray Svg_Engine::Clip()
{
    if (!painter()->hasClipping())
        return {};
    const QByteArray data = Data_Of(state->transform().map(painter()->clipPath()));
    if (data != Last_Clip) {
        Last_Clip = data;
        Out += "<clipPath id=\"clip" + QByteArray::number(++Clips) + "\"><path d=\"" + data + "\"/></clipPath>\n";
    }
    return " clip-path=\"url(#clip" + QByteArray::number(Clips) + ")\"";
}

void Svg_Engine::Draw(const QPainterPath& path, bool filled)
{
    const QByteArray clip = Clip();
    Out += "<path d=\"" + Data_Of(state->transform().map(path)) + '"' +
           Fill(filled ? state->brush() : QBrush(Qt::NoBrush), path.fillRule()) +
           Stroke(state->pen(), state->transform()) + clip + "/>\n";
}

void Svg_Engine::drawPath(const QPainterPath& path)
{
    Draw(path, true);
}

void Svg_Engine::drawPolygon(const QPointF* points, int count, PolygonDrawMode mode)
{
    QPolygonF polygon(QList<QPointF>(points, points + count));
    if (mode != PolylineMode)
        polygon << polygon.front();
    QPainterPath path;
    path.addPolygon(polygon);
    path.setFillRule(mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
    Draw(path, mode != PolylineMode);
}

void Svg_Engine::drawTextItem(const QPointF& place, const QTextItem& text)
{
    const QFont font = text.font();
    const QByteArray clip = Clip();
    Out += "<text x=\"" + Number(place.x()) + "\" y=\"" + Number(place.y()) + '"' + Matrix(state->transform()) +
           Painted("fill", state->pen().color()) + " font-family=\"" + font.family().toHtmlEscaped().toUtf8() +
           "\" font-size=\"" + Number(Pixels(font)) + "\" font-weight=\"" + QByteArray::number(font.weight()) +
           "\" font-style=\"" + (font.italic() ? "italic" : "normal") + "\" xml:space=\"preserve\"" + clip + '>' +
           text.text().toHtmlEscaped().toUtf8() + "</text>\n";
}

QByteArray Svg_Device::Document(const QByteArray& title) const
{
    const QByteArray width = Number(Size.width()), height = Number(Size.height());
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width +
           "\" height=\"" + height + "\" viewBox=\"0 0 " + width + ' ' + height + "\">\n<title>" +
           QString::fromUtf8(title).toHtmlEscaped().toUtf8() + "</title>\n" + Engine.Elements() + "</svg>\n";
}

int Svg_Device::metric(PaintDeviceMetric what) const
{
    switch (what) {
    case PdmWidth:
        return static_cast<int>(Size.width());
    case PdmHeight:
        return static_cast<int>(Size.height());
    case PdmWidthMM:
        return static_cast<int>(Size.width() * Millimetres_An_Inch / Dots_An_Inch);
    case PdmHeightMM:
        return static_cast<int>(Size.height() * Millimetres_An_Inch / Dots_An_Inch);
    case PdmNumColors:
        return 0;
    case PdmDepth:
        return 32;
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return Dots_An_Inch;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    }
    return 0;
}

} // namespace orvel
