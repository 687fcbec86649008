#pragma once

#include <string>

namespace orvel {

// The scaling kit that all diagrams share: four pure functions that know nothing of pixels.

// Log(x) / Log(10).
double Log10(double x);

// The next value away from zero with one significant digit; 0 stays 0. Taken literally in doubles: 0.07 gives 0.08,
// because its quotient is a hair above 7.
double Round_Up_Axis(double x);

// The tick spacing of an axis that reaches to `top`, a positive number. Every step is a whole number of small ticks and
// of tiny ones.
struct Axis_Steps {
    double Step = 0, Small_Tick = 0, Tiny_Tick = 0;
    bool operator==(const Axis_Steps&) const = default;
};
Axis_Steps Axis_Step(double top);

// The text at the tick of value `v`: the general form, but "0.0E+00" for small positive values.
std::string Axis_Label(double v);

} // namespace orvel
