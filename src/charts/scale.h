#pragma once

#include "charts/chart.h"

namespace orvel {

// A diagram's axes and frame from the extent of its data, by the drawing convention.

// The axis of values from `low` to `high`, both rounded away from zero to one significant digit. Zero always lies on
// the axis; without any extent the axis goes to 1. Ticks are drawn up to 1.05 times each end.
Chart_Axis Value_Axis(double low, double high);

// The same with both ends as they are.
Chart_Axis Plain_Value_Axis(double low, double high);

// The axis of positions from 0 to `length`, a positive number, which is not rounded. Labels count from `first_label`;
// ticks are placed where they are round.
Chart_Axis Position_Axis(double length, double first_label = 0);

// The same for an axis of whole positions: it has no tick between them.
Chart_Axis Whole_Axis(double length, double first_label = 0);

// The larger magnitude of the axis' two ends; sizes of the drawing convention are shares of it.
double Value_Size(const Chart_Axis& values);

// The edges around both axes.
Chart_Frame Frame_Around(const Chart_Axis& positions, const Chart_Axis& values);

// The part of a chart's frame that is drawn: what lies to the right of the axis and its boxes holds nothing.
Chart_Frame Drawn_Frame(const Chart& chart);

// Where the labels of the positions stand: below the axis, and below the lowest value.
double X_Labels_At(const Chart& chart);

} // namespace orvel
