#include "charts/axis.h"

#include "core/numbers.h"

#include <cmath>

namespace orvel {

namespace {

constexpr double Smallest_Fixed_Label = 0.001;

} // namespace

double Log10(double x)
{
    return std::log(x) / std::log(10.0);
}

double Round_Up_Axis(double x)
{
    if (x == 0)
        return 0;
    const double power = Power_Of_Ten(std::floor(Log10(std::fabs(x))));
    double digits = std::fabs(x) / power;
    if (digits > std::floor(digits))
        digits = std::floor(digits + 1);
    return std::copysign(power * digits, x);
}

Axis_Steps Axis_Step(double top)
{
    const double exponent = std::floor(Log10(top));
    const double power = Power_Of_Ten(exponent);
    const double rest = Log10(top) - exponent;
    if (rest < 0.2)
        return {power / 10, power / 10 / 2, power / 10 / 10};
    if (rest < 0.6)
        return {power / 2, power / 2 / 5, power / 2 / 10};
    return {power, power / 2, power / 10};
}

std::string Axis_Label(double v)
{
    if (v > 0 && v < Smallest_Fixed_Label)
        return Format_Pattern(v, "0.0E+00");
    return General_Text(v);
}

} // namespace orvel
