#pragma once

#include "engine/solute/sorption_lanes.h"

namespace orvel::engine {

// Decay with formation and uptake, slow sorption and daily rate factors. Include only from the kernel sources.

namespace {

constexpr int Most_Blocks = 3; // nine substances

struct Lost {
    V4 Share, Formed_Share;
};

// e^-x and (1 - e^-x) / x: over a step a mass loses the share 1 - e^-x, and mass formed evenly during it loses 1 - (1 -
// e^-x) / x.
LANES_INLINE Lost Lost_Shares(V4 x)
{
    if (!Any(x > 0.8)) {
        const V4 mean = Mean_Decay(x);
        return {x * mean, 1.0 - mean};
    }
    const V4_Bits small = x < 0.8;
    const V4 share = 1.0 - Exp(-x);
    const V4 mean = small ? Mean_Decay(Min(x, All(0.8))) : share / Max(x, All(0.8));
    return {small ? x * mean : share, 1.0 - mean};
}

void Decay_Factors_Lanes(const double* rate, int count, double h, double* loss, double* formed_loss)
{
    for (int at = 0; at < count; at += 4) {
        const Lost lost = Lost_Shares(Load(rate + at) * h);
        Store(loss + at, lost.Share);
        Store(formed_loss + at, lost.Formed_Share);
    }
}

struct Cell {
    V4 M[Most_Blocks], Formed[Most_Blocks], First_Loss[Most_Blocks]; // First_Loss: of the mass at the start
    V4 Formed_Loss[Most_Blocks];
};

LANES_INLINE double Lane(const V4* v, int slot)
{
    double x;
    std::memcpy(&x, reinterpret_cast<const char*>(v) + sizeof(double) * slot, sizeof x);
    return x;
}

// Adds the products of the losses from the first slot to the last: all formation of a source is complete when its turn
// comes, since targets come after sources.
template <int Blocks> LANES_INLINE void Form(Cell& cell, const Kernel_Fate& fate, const double* yield)
{
    for (int l = 0; l < fate.Links; ++l) {
        const int s = fate.Source[l];
        const double lost = Lane(cell.First_Loss, s) + Lane(cell.Formed, s) * Lane(cell.Formed_Loss, s);
        cell.Formed[fate.Block[l]] += lost * Load(yield + 4 * l);
    }
}

template <> LANES_INLINE void Form<1>(Cell& cell, const Kernel_Fate& fate, const double* yield)
{
    V4 formed = cell.Formed[0];
    int l = 0;
    const V4 first = cell.First_Loss[0], share = cell.Formed_Loss[0];
    if (l < fate.Links && fate.Source[l] == 0)
        formed += Spread<0>(first + formed * share) * Load(yield + 4 * l++);
    if (l < fate.Links && fate.Source[l] == 1)
        formed += Spread<1>(first + formed * share) * Load(yield + 4 * l++);
    if (l < fate.Links && fate.Source[l] == 2)
        formed += Spread<2>(first + formed * share) * Load(yield + 4 * l++);
    cell.Formed[0] = formed;
}

// Decay in the non-equilibrium domain; what it forms enters the equilibrium domain.
LANES_INLINE void Decay_Slow(const Kernel_Column& column, const Kernel_Fate& fate, int i, int blocks, Cell& cell,
                             V4& moles, const Kernel_Fate_Sums& sums)
{
    V4 lost[Most_Blocks];
    for (int b = 0; b < blocks; ++b) {
        const int at = i * column.Lanes + 4 * b;
        const V4 slow = Load(column.W + at);
        lost[b] = slow * Load(fate.Slow_Loss + at);
        Store(column.W + at, slow - lost[b]);
        Store(sums.Decay_Neq + at, Load(sums.Decay_Neq + at) + lost[b]);
        moles += lost[b] * Load(fate.Slow_Sink + i * fate.Sink_Stride + 4 * b);
    }
    for (int l = 0; l < fate.Links; ++l)
        cell.Formed[fate.Block[l]] +=
            Lane(lost, fate.Source[l]) * Load(fate.Slow_Yield + i * fate.Yield_Stride + 4 * l);
}

LANES_INLINE Lost Decay_Shares(const Kernel_Column& column, const Kernel_Fate& fate, int i, int b, V4 ratio, double t,
                               double h)
{
    const int at = i * column.Lanes + 4 * b;
    if (!fate.Liquid_Only)
        return {Load(fate.Loss + at), Load(fate.Formed_Loss + at)};
    const double theta = fate.Theta_Start[i] + (fate.Theta_End[i] - fate.Theta_Start[i]) * t;
    const V4 in_solution = Min(column.Thickness[i] * theta * Load(column.Doc + 4 * b) * ratio, All(1.0));
    const V4 acting = Load(fate.Liquid + 4 * b) > 0.0 ? in_solution : All(1.0);
    return Lost_Shares(Load(fate.Rate + at) * h * acting);
}

// Updates C along the slope after a small change of mass, and recomputes it after a large one.
LANES_INLINE void Follow(const Kernel_Column& column, int at, double dz, V4 before, V4 mass, double t)
{
    const V4 change = mass - before, c = Load(column.C + at), capacity = Load(column.G + at);
    const V4 near = c + change / capacity;
    const V4_Bits large = Magnitude(change) > 0.05 * before;
    if (!Any(large)) {
        Store(column.C + at, near);
        return;
    }
    const Solution found = Invert_Content(mass / dz, Isotherm_At(column, at, t), c);
    Store(column.C + at, large ? found.C : near);
    Store(column.G + at, large ? found.G * dz : capacity);
}

// Ratio of concentration to mass; without mass that of the linear foot.
LANES_INLINE V4 Ratio(const Kernel_Column& column, int at, double dz, V4 mass)
{
    const V4 foot = dz * (Load(column.Psi_Start + at) + Load(column.Rho_K + at) * Load(column.Limit_Power + at));
    const V4_Bits some = mass > 0.0;
    return (some ? Load(column.C + at) : All(1.0)) / (some ? mass : foot);
}

// dW/dt = K_des (F_neq dz rho K f(C) - W), with the ratio of the sorbed mass to M held over the step.
void Exchange_Lanes(const Kernel_Column& column, const Kernel_Fate& fate, double t, double h)
{
    for (int i = 0; i < column.N; ++i) {
        for (int b = 0; b < column.Lanes; b += 4) {
            const int at = i * column.Lanes + b;
            const V4 mass = Load(column.M + at), slow = Load(column.W + at), start = Load(column.Psi_Start + at);
            const V4 psi = start + (Load(column.Psi_End + at) - start) * t;
            const V4 sorbed =
                Max(1.0 - column.Thickness[i] * psi * Ratio(column, at, column.Thickness[i], mass), All(0.0));
            const V4 chi = Load(fate.F_Neq + b) * sorbed;
            const V4 total = mass + slow;
            const V4 goal = chi * total / (1.0 + chi);
            const V4 now = goal + (slow - goal) * Exp(-(Load(fate.K_Des + b) * (1.0 + chi) * h));
            const V4 rest = Max(total - now, All(0.0));
            // Slots without slow sites hold none: 0 goes to 0.
            Store(column.W + at, now);
            Store(column.M + at, rest);
            Follow(column, at, column.Thickness[i], mass, rest, t);
        }
    }
}

template <int Blocks> LANES_INLINE V4 React_At(const Kernel_Column& column, const Kernel_Fate& fate, int i, double t,
                                               double h, const Kernel_Fate_Sums& sums)
{
    Cell cell;
    V4 moles = All(0.0), ratio[Blocks] = {};
    const bool need_ratio = fate.Liquid_Only || fate.Transpiration;
    for (int b = 0; b < Blocks; ++b) {
        const int at = i * column.Lanes + 4 * b;
        const V4 mass = Load(column.M + at);
        if (need_ratio)
            ratio[b] = Ratio(column, at, column.Thickness[i], mass);
        const Lost lost = Decay_Shares(column, fate, i, b, ratio[b], t, h);
        cell.M[b] = mass;
        cell.First_Loss[b] = mass * lost.Share;
        cell.Formed_Loss[b] = lost.Formed_Share;
        cell.Formed[b] = All(0.0);
    }
    if (fate.Slow_Loss)
        Decay_Slow(column, fate, i, Blocks, cell, moles, sums);
    if (fate.Links > 0)
        Form<Blocks>(cell, fate, fate.Yield + i * fate.Yield_Stride);
    for (int b = 0; b < Blocks; ++b) {
        const int at = i * column.Lanes + 4 * b;
        const V4 formed = cell.Formed[b];
        const V4 lost = cell.First_Loss[b] + formed * cell.Formed_Loss[b];
        Store(sums.Formed + at, Load(sums.Formed + at) + formed);
        Store(sums.Decay_Eq + at, Load(sums.Decay_Eq + at) + lost);
        moles += lost * Load(fate.Sink + i * fate.Sink_Stride + 4 * b);

        V4 mass = cell.M[b] + (formed - lost);
        if (fate.Transpiration && fate.Transpiration[i] > 0) {
            const V4 taken =
                mass * (1.0 - Exp(-(h * fate.Transpiration[i] * Load(fate.Plant_Uptake + 4 * b) * ratio[b])));
            Store(sums.Uptake + at, Load(sums.Uptake + at) + taken);
            mass -= taken;
        }
        Store(column.M + at, mass);
        Follow(column, at, column.Thickness[i], cell.M[b], mass, t);
    }
    return moles;
}

template <int Blocks> LANES_INLINE void React_All(const Kernel_Column& column, const Kernel_Fate& fate, double t,
                                                  double h, const Kernel_Fate_Sums& sums)
{
    V4 moles = All(0.0);
    for (int i = 0; i < column.N; ++i)
        moles += React_At<Blocks>(column, fate, i, t, h, sums);
    *sums.Sink_Moles += (moles[0] + moles[1]) + (moles[2] + moles[3]);
}

void React_Lanes(const Kernel_Column& column, const Kernel_Fate& fate, double t, double h, const Kernel_Fate_Sums& sums)
{
    if (column.Lanes == 4)
        return React_All<1>(column, fate, t, h, sums);
    if (column.Lanes == 8)
        return React_All<2>(column, fate, t, h, sums);
    React_All<3>(column, fate, t, h, sums);
}

void Rate_Factors_Lanes(int count, const double* temperature, double t0, double a, const double* theta,
                        const double* cap, const double* reference, double b, double* out)
{
    for (int at = 0; at < count; at += 4) {
        const V4 warm = Load(temperature + at);
        const V4 wet = cap ? Min(Load(theta + at), Load(cap + at)) : Load(theta + at);
        const V4 moist = b == 0 ? All(0.0) : b * Log(Max(wet, All(1e-6)) / Load(reference + at));
        Store(out + at, warm < 0.0 ? All(0.0) : Exp((warm - t0) * a + moist));
    }
}

void Exps_Lanes(const double* x, int count, double* out)
{
    for (int at = 0; at < count; at += 4)
        Store(out + at, Exp(Load(x + at)));
}

void Powers_Lanes(int count, const double* x, double e, double* out)
{
    for (int at = 0; at < count; at += 4) {
        const V4 base = Load(x + at);
        Store(out + at, base > 0.0 ? Exp(e * Log(Max(base, All(1e-300)))) : All(0.0));
    }
}

} // namespace

} // namespace orvel::engine
