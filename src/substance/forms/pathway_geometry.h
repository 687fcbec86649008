#pragma once

#include <QLineF>
#include <QRectF>

namespace orvel {

// The layout of the degradation scheme, in drawing units, which the window scales.

constexpr QSizeF Drawing_Size(1000, 640);
constexpr int First_Of_Second_Row = 6; // the substances 6 to 9 are metabolites of metabolites

QRectF Box_Of_Substance(int i);  // 1 to 9
QRectF Sink_Of_Substance(int i); // where its CO2 and bound residues go; the active substance has a sink box of its own
QLineF Line_Of_Arrow(int t);     // from source to tip; null for the reserved arrows
QRectF Head_Of_Arrow(int t);     // the clickable square around the end of the line

// The arrow nearest to a point, 0 if none is near.
int Arrow_At(QPointF point);

} // namespace orvel
