#include "substance/forms/pathway_geometry.h"

#include "core/session.h"
#include "substance/pathway.h"
#include "substance/pathway_picture.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

constexpr double First_Column = 130, Column_Step = 246;
constexpr double First_Row = 250, Second_Row = 470;
constexpr QSizeF Box_Size(170, 66), Active_Size(240, 66), Sink_Size(66, 28);
constexpr double Side_Way = 52;   // horizontal offset of arrows next to the vertical one
constexpr double Sink_Drop = 40;  // length of the arrow to a sink
constexpr double Head_Size = 22;  // side of the clickable square
constexpr double Near_Enough = 7; // distance to a line

QRectF Around(QPointF middle, QSizeF size)
{
    return {middle.x() - size.width() / 2, middle.y() - size.height() / 2, size.width(), size.height()};
}

int Column_Of(int i)
{
    return i < First_Of_Second_Row ? i - 2 : i - First_Of_Second_Row;
}

// Where the arrow to a sink leaves the box: left of the middle, clear of the arrows to other substances.
QPointF Sink_Way(int i)
{
    const QRectF box = Box_Of_Substance(i);
    return {box.center().x() - Side_Way, box.bottom()};
}

QLineF Sink_Line(int i)
{
    if (i == 1)
        return {{Box_Of_Substance(1).right(), Box_Of_Substance(1).center().y()},
                {Sink_Of_Substance(1).left(), Sink_Of_Substance(1).center().y()}};
    return {Sink_Way(i), Sink_Way(i) + QPointF(0, Sink_Drop)};
}

QLineF Line_Between(int source, int target)
{
    const QRectF from = Box_Of_Substance(source), to = Box_Of_Substance(target);
    if (source == 1) {
        const double spread = (Column_Of(target) - 1.5) * Side_Way;
        return {{from.center().x() + spread, from.bottom()}, {to.center().x(), to.top()}};
    }
    if (from.center().y() == to.center().y())
        return {{from.right(), from.center().y()}, {to.left(), to.center().y()}};
    if (from.center().x() == to.center().x())
        return {{from.center().x(), from.bottom()}, {to.center().x(), to.top()}};
    return {{from.center().x() + Side_Way, from.bottom()}, {to.center().x() - Side_Way, to.top()}};
}

double Distance(QPointF point, const QLineF& line)
{
    const QPointF way = line.p2() - line.p1(), at = point - line.p1();
    const double share = std::clamp(QPointF::dotProduct(at, way) / QPointF::dotProduct(way, way), 0.0, 1.0);
    return QLineF(point, line.pointAt(share)).length();
}

} // namespace

QRectF Box_Of_Substance(int i)
{
    if (i == 1)
        return Around({Drawing_Size.width() / 2, 60}, Active_Size);
    return Around({First_Column + Column_Of(i) * Column_Step, i < First_Of_Second_Row ? First_Row : Second_Row},
                  Box_Size);
}

QRectF Sink_Of_Substance(int i)
{
    if (i == 1)
        return Around({First_Column + 3 * Column_Step, 60}, Box_Size);
    return Around(Sink_Way(i) + QPointF(0, Sink_Drop + Sink_Size.height() / 2), Sink_Size);
}

QLineF Line_Of_Arrow(int t)
{
    if (!Arrow_Is_Clickable(t))
        return {};
    const Arrow& arrow = Arrow_Of(t);
    return arrow.Target == 0 ? Sink_Line(arrow.Source) : Line_Between(arrow.Source, arrow.Target);
}

QRectF Head_Of_Arrow(int t)
{
    const QLineF line = Line_Of_Arrow(t);
    return Around(line.pointAt(1 - Head_Size / 2 / line.length()), {Head_Size, Head_Size});
}

int Arrow_At(QPointF point)
{
    int nearest = 0;
    double least = Near_Enough;
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (!Arrow_Is_Clickable(t) || Distance(point, Line_Of_Arrow(t)) >= least)
            continue;
        least = Distance(point, Line_Of_Arrow(t));
        nearest = t;
    }
    return nearest;
}

} // namespace orvel
