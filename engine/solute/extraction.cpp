#include "engine/solute/extraction.h"

#include "engine/math/steady_math.h"
#include "engine/solute/transport.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Water_Step = 0.1; // cm of runoff and bypass in a sub-step
constexpr double Soil_Step = 0.1;  // share of a compartment's soil that is eroded in a sub-step

} // namespace

std::vector<double> Interaction_Weights(const std::vector<double>& thickness, double depth)
{
    constexpr double steepness = 3;
    std::vector<double> weights(thickness.size(), 0.0);
    double top = 0;
    for (std::size_t i = 0; i < thickness.size() && top < depth; ++i) {
        const double bottom = std::min(top + thickness[i], depth);
        weights[i] =
            (Steady_Exp(-steepness * top / depth) - Steady_Exp(-steepness * bottom / depth)) / Steady_Lost(steepness);
        top += thickness[i];
    }
    return weights;
}

double Carried_Loss(double mass, double carried)
{
    return mass > 0 && carried > 0 ? mass * Steady_Lost(carried / mass) : 0;
}

Day_Extraction::Day_Extraction(const Solute_Setup& setup, const Solute_Layout& layout)
    : Setup(setup),
      Layout(layout),
      Runoff_Weights(Interaction_Weights(setup.Thickness, setup.Runoff_Depth)),
      Bypass_Weights(Interaction_Weights(setup.Thickness, 1.0)),
      Runoff(setup.Thickness.size(), 0.0),
      Bypass(Runoff),
      Sediment(Runoff),
      Rates(layout.Rows(0)),
      Masses(layout.Rows(0)),
      Deep(layout.Rows(0))
{}

void Day_Extraction::Prepare(const Solute_Day& day)
{
    const double runoff = Setup.Runoff_Depth > 0 ? day.Runoff : 0, bypass = day.Bypass_Outlet >= 0 ? day.Bypass : 0;
    double sediment = day.Sediment;
    Pace = (runoff + bypass) / Water_Step;
    for (Count = 0; Count < Layout.N; ++Count) {
        const auto i = static_cast<std::size_t>(Count);
        Runoff[i] = Runoff_Weights[i] * runoff;
        Bypass[i] = Bypass_Weights[i] * bypass;
        Sediment[i] = std::min(sediment, Setup.Thickness[i] * Setup.Density[i]);
        sediment -= Sediment[i];
        if (Runoff[i] <= 0 && Bypass[i] <= 0 && Sediment[i] <= 0)
            return;
        Pace = std::max(Pace, Sediment[i] / (Setup.Thickness[i] * Setup.Density[i]) / Soil_Step);
    }
}

int Day_Extraction::Sub_Steps(double length) const
{
    return static_cast<int>(std::ceil(std::min(length * Pace, 1.0 * Most_Sub_Steps)));
}

void Day_Extraction::Open(const Kernel_Column& column, double t)
{
    for (int i = 0; i < Count; ++i) {
        const double water = Runoff[i] + Bypass[i], soil = Sediment[i] / Setup.Density[i];
        for (int k = 0; k < Layout.Slots; ++k) {
            const auto at = Layout.At(i, k);
            Rates[at] = column.Doc[k] * water;
            if (soil <= 0 || column.C[at] <= 0)
                continue;
            const double psi = column.Psi_Start[at] + t * (column.Psi_End[at] - column.Psi_Start[at]);
            Rates[at] += soil * std::max(column.M[at] / (Setup.Thickness[i] * column.C[at]) - psi, 0.0);
        }
    }
}

void Day_Extraction::Share_Out(const Kernel_Column& column, double h, Solute_Sums& sums)
{
    for (int i = 0; i < Count; ++i) {
        for (int k = 0; k < Layout.Slots; ++k) {
            const auto at = Layout.At(i, k);
            const double taken = Masses[at], part = Rates[at] > 0 ? column.Doc[k] * taken / Rates[at] : 0;
            Masses[at] = 0;
            const double run_off = Bypass[i] > 0 || Sediment[i] > 0 ? part * Runoff[i] : taken;
            Deep[at] = Sediment[i] > 0 ? part * Bypass[i] : taken - run_off;
            sums.Runoff[k] += run_off;
            if (Sediment[i] <= 0)
                continue;
            const double share = h * Sediment[i] / (Setup.Density[i] * Setup.Thickness[i]);
            const double slow = Carried_Loss(column.W[at], share * column.W[at]);
            column.W[at] -= slow;
            sums.Sediment[k] += std::max(taken - run_off - Deep[at], 0.0) + slow;
        }
    }
}

void Mix_Soil(double* mass, int stride, const std::vector<double>& thickness, const std::vector<double>& density,
              double depth)
{
    double total = 0, soil = 0, top = 0;
    std::size_t reached = 0;
    const auto share = [&](std::size_t i) { return std::min((depth - top) / thickness[i], 1.0); };
    for (; reached < thickness.size() && top < depth; ++reached) {
        total += share(reached) * mass[reached * stride];
        soil += share(reached) * thickness[reached] * density[reached];
        top += thickness[reached];
    }
    top = 0;
    for (std::size_t i = 0; i < reached; ++i) {
        const double mixed = share(i);
        mass[i * stride] = (1 - mixed) * mass[i * stride] + total * mixed * thickness[i] * density[i] / soil;
        top += thickness[i];
    }
}

} // namespace orvel::engine
