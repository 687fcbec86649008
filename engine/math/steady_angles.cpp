#include "engine/math/steady_angles.h"

#include <cmath>
#include <numbers>

namespace orvel::engine {

namespace {

// Taylor series of the sine up to x^27: the remainder is below 1e-15 from -pi to pi.
double Series(double x)
{
    const double square = x * x;
    double term = x, sum = x;
    for (int n = 2; n < 28; n += 2) {
        term *= -square / (n * (n + 1));
        sum += term;
    }
    return sum;
}

} // namespace

double Steady_Sine(double x)
{
    constexpr double pi = std::numbers::pi;
    x -= 2 * pi * std::round(x / (2 * pi));
    if (x > pi / 2)
        x = pi - x;
    if (x < -pi / 2)
        x = -pi - x;
    return Series(x);
}

double Steady_Cosine(double x)
{
    return Steady_Sine(x + std::numbers::pi / 2);
}

double Steady_Arc_Cosine(double x)
{
    if (x >= 1)
        return 0;
    if (x <= -1)
        return std::numbers::pi;
    double low = 0, high = std::numbers::pi;
    for (int i = 0; i < 55; ++i) {
        const double middle = (low + high) / 2;
        (Steady_Cosine(middle) > x ? low : high) = middle;
    }
    return (low + high) / 2;
}

} // namespace orvel::engine
