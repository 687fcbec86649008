#pragma once

#include "engine/math/vector_math.h"
#include "engine/solute/kernel.h"

namespace orvel::engine {

// Mass to concentration, four substances at a time. Include only from the kernel sources.

namespace {

struct Isotherm {
    V4 Psi, Rho_K, Exponent, Limit, Limit_Power;
};

struct Solution {
    V4 C, G; // G per thickness
};

// A lane that has converged is frozen while others continue, so that no substance's result depends on its neighbours.

// Newton's method for ln g(e^y) = ln u: the slope is between n and 1 and the function is convex, so it converges from
// any starting point.
[[gnu::noinline]] V4 Search_From_Afar(V4 u, const Isotherm& s)
{
    V4 y = Min(Log(u / s.Psi), Log(u / Max(s.Rho_K, All(1e-300))) / s.Exponent);
    const V4 wanted = Log(u);
    V4_Bits far = y == y;
    for (int sweep = 0; sweep < 60 && Any(far); ++sweep) {
        const V4 p = s.Rho_K * Exp((s.Exponent - 1.0) * y);
        const V4 step = (wanted - (Log(s.Psi + p) + y)) * (s.Psi + p) / (s.Psi + s.Exponent * p);
        y = far ? y + step : y;
        far &= Magnitude(step) > 1e-8;
    }
    return Exp(y);
}

// The concentration x with psi x + rho K f(x) = u, and the slope there, from an initial guess. Halley's method: an
// error of 1e-4 falls below 1e-12.
LANES_INLINE Solution Invert_Content(V4 u, const Isotherm& s, V4 guess)
{
    const V4 foot_slope = s.Psi + s.Rho_K * s.Limit_Power;
    const V4 foot = u / foot_slope;
    const V4_Bits curved = u > foot_slope * s.Limit;
    if (!Any(curved))
        return {foot, foot_slope};

    V4 x = Max(guess, s.Limit);
    const V4 less_one = s.Exponent - 1.0, bend = s.Exponent * less_one;
    V4_Bits far = curved;
    for (int sweep = 0; sweep < 5 && Any(far); ++sweep) {
        const V4 p = s.Rho_K * Exp(less_one * Log(x));
        const V4 slope = s.Psi + s.Exponent * p;
        const V4 rest = u - (s.Psi + p) * x;
        const V4 newton = slope * slope * x;
        // The correction may at most double Newton's step.
        const V4 step = 2.0 * rest * slope * x / Max(2.0 * newton + rest * bend * p, newton);
        x = far ? Max(x + step, s.Limit) : x;
        far &= Magnitude(step) > 1e-4 * x;
    }
    if (Any(far)) [[unlikely]]
        x = far ? Max(Search_From_Afar(Max(u, foot_slope * Min(s.Limit, All(1.0))), s), s.Limit) : x;
    // rho K f = u - psi x at the root: no further power is needed.
    const V4 slope = s.Psi + Min(s.Exponent, All(1.0)) * (u / x - s.Psi);
    return {curved ? x : foot, curved ? slope : foot_slope};
}

LANES_INLINE Isotherm Isotherm_At(const Kernel_Column& column, int at, double t)
{
    const V4 start = Load(column.Psi_Start + at);
    return {start + (Load(column.Psi_End + at) - start) * t, Load(column.Rho_K + at), Load(column.Exponent + at),
            Load(column.Limit + at), Load(column.Limit_Power + at)};
}

LANES_INLINE void Invert_At(const Kernel_Column& column, int at, double dz, V4 mass, V4 guess, double t)
{
    const Solution found = Invert_Content(mass / dz, Isotherm_At(column, at, t), guess);
    Store(column.C + at, found.C);
    Store(column.G + at, found.G * dz);
}

void Invert_Lanes(const Kernel_Column& column, int first, int last, double t)
{
    for (int i = first; i < last; ++i) {
        for (int b = 0; b < column.Lanes; b += 4) {
            const int at = i * column.Lanes + b;
            Invert_At(column, at, column.Thickness[i], Load(column.M + at), Load(column.C + at), t);
        }
    }
}

} // namespace

} // namespace orvel::engine
