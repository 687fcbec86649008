#pragma once

#include "engine/solute/sorption_lanes.h"

#include <cfloat>

namespace orvel::engine {

// One transport sub-step: limited advection from the state at its start, implicit dispersion, conservative update.
// Include only from the kernel sources.

namespace {

// Concentration at the lower interface of a compartment: van Leer's limiter in the form of Sweby (1984); courant is the
// share of the compartment's capacity that flows out.
LANES_INLINE V4 Face_Concentration(V4 before, V4 here, V4 next, double weight, V4 courant)
{
    const V4 a = here - before, c = next - here;
    const V4 product = a * c;
    const V4_Bits monotone = product > 0.0;
    const V4 sum = monotone ? a + c : All(1.0);
    const V4 limited = monotone ? 2.0 * product / sum : All(0.0);
    return here + weight * (1.0 - Min(courant, All(1.0))) * limited;
}

// What leaves the first compartment as vapour in a step: in proportion to its concentration, or the constant amount of
// saturated air.
struct Vapour {
    V4 Share, Constant; // cm, ug/cm2
};

// What runoff, sediment and bypass take from a compartment in a step, cm of its solution. On most days they take
// nothing: the sweeps exist without it, too.
template <bool Taking> LANES_INLINE V4 Taking_Of(const Kernel_Column& column, int row, int b, double h)
{
    if constexpr (!Taking)
        return All(0.0);
    return row < column.Taken_Rows ? h * Load(column.Taking + row * column.Lanes + b) : All(0.0);
}

// Advection and the forward sweep of the tridiagonal solution. Step_Flux holds the explicit advective part afterwards.
// In the surface layer advection is implicit: the water that leaves a compartment carries its new concentration. So
// does what runoff, sediment and bypass take: side by side, both get their share of what passes, however long the step
// is.
template <bool Taking>
LANES_INLINE void Sweep_Down(const Kernel_Column& column, int b, double h, V4 psi_share, Vapour vapour)
{
    const int lanes = column.Lanes, n = column.N;
    const V4 doc = Load(column.Doc + b);
    V4 before = Load(column.Inflow + b), here = Load(column.C + b);
    V4 in = h * column.Flux[0] * doc * before;
    V4 above = All(0.0), up_c = All(0.0), up_d = All(0.0);
    V4 carried = All(0.0); // water of the implicit advection from the compartment above
    V4 lost = vapour.Share;
    if constexpr (Taking)
        lost += Taking_Of<Taking>(column, 0, b, h);
    Store(column.Step_Flux + b, in);
    in -= vapour.Constant;
    for (int i = 0; i < n; ++i) {
        const int at = i * lanes + b;
        const V4 next = i + 1 < n ? Load(column.C + at + lanes) : here;
        const V4 capacity = Load(column.G + at);
        V4 out = All(0.0), carries = All(0.0);
        if (i < column.Surface) {
            carries = h * column.Flux[i + 1] * doc;
        } else if (column.Flux[i + 1] > 0) {
            const V4 water = h * column.Flux[i + 1] * doc;
            const V4 face = Face_Concentration(before, here, next, column.Upwind_Weight[i], water / capacity);
            out = Min(water * face, Load(column.M + at));
        }
        const V4 right = Max(capacity * here + in - out, All(0.0));
        const V4 psi_change = (Load(column.Psi_End + at) - Load(column.Psi_Start + at)) * psi_share;
        const V4 below = h * Load(column.Conductance + at + lanes);
        const V4 diagonal = capacity + column.Thickness[i] * psi_change + above + below + carries + lost;
        const V4 gain = above + carried;
        const V4 pivot = 1.0 / (diagonal - gain * up_c);
        up_d = (right + gain * up_d) * pivot;
        up_c = below * pivot;
        Store(column.Sweep_C + at, up_c);
        Store(column.Sweep_D + at, up_d);
        Store(column.Step_Flux + at + lanes, out);
        before = here;
        here = next;
        in = out;
        above = below;
        carried = carries;
        lost = Taking_Of<Taking>(column, i + 1, b, h);
    }
}

struct Solved {
    V4 Least, Most, Volatilised; // extremes of the new mass; what has left as vapour
};

// Back substitution, bottom to top: Sweep_D becomes the solution, Step_Flux the whole flux, Step_M the new mass.
template <bool Taking> LANES_INLINE Solved Sweep_Up(const Kernel_Column& column, int b, double h, Vapour vapour)
{
    const int lanes = column.Lanes, surface = column.Surface * lanes + b; // last place that implicit advection reaches
    const V4 doc = Load(column.Doc + b);
    Solved found{All(0.0), All(0.0), All(0.0)};
    int at = (column.N - 1) * lanes + b;
    V4 x = Load(column.Sweep_D + at);
    V4 out = Load(column.Step_Flux + at + lanes);
    for (; at >= lanes; at -= lanes) {
        const V4 x_above = Load(column.Sweep_D + at - lanes) + Load(column.Sweep_C + at - lanes) * x;
        Store(column.Sweep_D + at - lanes, x_above);
        V4 in = Load(column.Step_Flux + at) + h * Load(column.Conductance + at) * (x_above - x);
        if (at <= surface)
            in += h * column.Flux[at / lanes] * doc * x_above;
        Store(column.Step_Flux + at, in);
        V4 mass = Load(column.M + at) + (in - out);
        if constexpr (Taking)
            mass -= Taking_Of<Taking>(column, at / lanes, b, h) * x;
        Store(column.Step_M + at, mass);
        found.Least = Min(found.Least, mass);
        found.Most = Max(found.Most, mass);
        x = x_above;
        out = in;
    }
    const V4 volatilised = vapour.Share * x + vapour.Constant;
    V4 mass = Load(column.M + b) + (Load(column.Step_Flux + b) - out - volatilised);
    if constexpr (Taking)
        mass -= Taking_Of<Taking>(column, 0, b, h) * x;
    Store(column.Step_M + b, mass);
    return {Min(found.Least, mass), Max(found.Most, mass), volatilised};
}

template <bool Taking>
[[gnu::noinline]] void Solve(const Kernel_Column& column, int b, double h, const Vapour& vapour, Solved& found)
{
    Sweep_Down<Taking>(column, b, h, All(h), vapour);
    found = Sweep_Up<Taking>(column, b, h, vapour);
}

// Mass below zero after rounding is taken from the flux to the compartment below, so that mass stays positive and is
// conserved.
LANES_INLINE void Lift_To_Zero(const Kernel_Column& column, int b)
{
    V4 debt = All(0.0);
    for (int i = 0; i < column.N; ++i) {
        const int at = i * column.Lanes + b;
        const V4 mass = Load(column.Step_M + at) + debt;
        debt = Min(mass, All(0.0));
        Store(column.Step_M + at, Max(mass, All(0.0)));
        Store(column.Step_Flux + at + column.Lanes, Load(column.Step_Flux + at + column.Lanes) + debt);
    }
}

bool Transport_Lanes(const Kernel_Column& column, int block, double t, double h, bool may_refuse,
                     const Kernel_Moved& moved)
{
    const int b = 4 * block, lanes = column.Lanes;
    Vapour vapour{h * Load(column.Escape + b), All(0.0)};
    const auto solve = column.Taken_Rows > 0 ? Solve<true> : Solve<false>;
    Solved found;
    solve(column, b, h, vapour, found);
    const V4 limit = Load(column.Escape_Limit + b);
    const V4_Bits saturated = Load(column.Sweep_D + b) > limit;
    if (Any(saturated)) [[unlikely]] {
        // The air above the soil is saturated. With the smaller, constant flux the concentration stays above the limit.
        vapour = {saturated ? All(0.0) : vapour.Share, saturated ? vapour.Share * limit : All(0.0)};
        solve(column, b, h, vapour, found);
    }
    if (may_refuse && Any(found.Least < -1e-12 * found.Most))
        return false;
    if (Any(found.Least < 0.0))
        Lift_To_Zero(column, b);

    for (int i = 0; i < column.N; ++i) {
        const int at = i * lanes + b;
        Store(moved.Flux + at, Load(moved.Flux + at) + Load(column.Step_Flux + at));
        const V4 mass = Load(column.Step_M + at);
        Store(column.M + at, mass);
        Invert_At(column, at, column.Thickness[i], mass, Load(column.Sweep_D + at), t + h);
    }
    for (int i = 0; i < column.Taken_Rows; ++i) {
        const int at = i * lanes + b;
        Store(moved.Taken + at, Load(moved.Taken + at) + Taking_Of<true>(column, i, b, h) * Load(column.Sweep_D + at));
    }
    const int last = column.N * lanes + b;
    Store(moved.Flux + last, Load(moved.Flux + last) + Load(column.Step_Flux + last));
    Store(moved.Volatilised + b, Load(moved.Volatilised + b) + found.Volatilised);
    return true;
}

} // namespace

} // namespace orvel::engine
