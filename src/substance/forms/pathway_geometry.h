#pragma once

#include <QLineF>
#include <QRectF>

namespace orvel {

// Where the degradation scheme's picture has its parts, in units of the drawing, which the window scales.

constexpr QSizeF Drawing_Size(1000, 640);
constexpr int First_Of_Second_Row = 6; // the substances 6 to 9 are metabolites of metabolites

QRectF Box_Of_Substance(int i); // 1 to 9
QRectF
Sink_Of_Substance(int i);    // where its CO2 and bound residues go; that of the active substance is a box of its own
QLineF Line_Of_Arrow(int t); // from source to tip; null for the reserved arrows
QRectF Head_Of_Arrow(int t); // what is clicked, around the line's last part

// The arrow whose line passes a point nearest, 0 where none is near.
int Arrow_At(QPointF point);

} // namespace orvel
