// Events that act on the solutes instantaneously: tillage, harvest, plants, extraction, erosion, applications.
#include "engine/solute/solute_state.h"

#include <algorithm>
#include <numeric>

namespace orvel::engine {

void Solute_State::Till(double depth, Solute_Sums& sums)
{
    Drop_Plants(sums);
    for (int k = 0; k < Layout.Slots; ++k) {
        if (Ageing) {
            // Mixing conserves mass times age, like mass.
            Aligned_Row product(Layout.N);
            for (int i = 0; i < Layout.N; ++i)
                product[i] = Age[Layout.At(i, k)] * M[Layout.At(i, k)];
            Mix_Soil(product.data(), 1, Setup.Thickness, Setup.Density, depth);
            Mix_Soil(M.data() + k, Layout.Lanes, Setup.Thickness, Setup.Density, depth);
            for (int i = 0; i < Layout.N; ++i)
                Age[Layout.At(i, k)] = M[Layout.At(i, k)] > 0 ? product[i] / M[Layout.At(i, k)] : 0;
        } else {
            Mix_Soil(M.data() + k, Layout.Lanes, Setup.Thickness, Setup.Density, depth);
        }
        Mix_Soil(W.data() + k, Layout.Lanes, Setup.Thickness, Setup.Density, depth);
    }
}

void Solute_State::Drop_Plants(Solute_Sums& sums)
{
    const double mass = Leaf.Well + Leaf.Poor;
    Leaf = {};
    M[0] += mass;
    sums.Flux[0] += mass;
}

void Solute_State::Into_Bypass(int slot, int from, double mass, const Solute_Day& day, Solute_Sums& sums)
{
    const double below = mass * day.Bypass_Below;
    sums.Bypass[slot] += mass;
    Pass(slot, from, day.Bypass_Outlet, mass - below, sums);
    if (below > 0)
        Pass(slot, from, day.Bypass_Outlet + 1, below, sums);
}

void Solute_State::Pass(int slot, int from, int outlet, double mass, Solute_Sums& sums)
{
    for (int i = from; i <= outlet; ++i)
        sums.Flux[Layout.At(i, slot)] += mass;
    for (int i = outlet + 1; i < from; ++i)
        sums.Flux[Layout.At(i, slot)] -= mass;
}

// What the bypass has taken arrives, after all its sources.
void Solute_State::Arrive(int slot, double mass, const Solute_Day& day)
{
    const double below = mass * day.Bypass_Below;
    M[Layout.At(day.Bypass_Outlet, slot)] += mass - below;
    if (below > 0)
        M[Layout.At(day.Bypass_Outlet + 1, slot)] += below;
}

void Solute_State::Seek_Outlets(const Solute_Day& day, double t)
{
    Seek(day.Bypass_Outlet, day.Bypass_Outlet + (day.Bypass_Below > 0 ? 2 : 1), t);
}

void Solute_State::Act_On_Plants(const Solute_Day& day, double t, double length, Solute_Sums& sums)
{
    if (Leaf.Well <= 0 && Leaf.Poor <= 0)
        return;
    double washed = 0;
    for (const bool poor : {false, true}) {
        const Leaf_Losses losses =
            Step_Leaf(poor ? Leaf.Poor : Leaf.Well, Rates_Of_Leaf(Setup, day, poor, length), length);
        washed += losses.Washed_Off;
        sums.Plant_Decay[0] += losses.Decayed;
        sums.Plant_Penetration[0] += losses.Penetrated;
        sums.Plant_Volatilised[0] += losses.Volatilised;
    }
    const bool bypass = day.Bypass_Outlet >= 0 && day.Bypass > 0;
    const double water = day.Runoff + (bypass ? day.Bypass : 0) + day.Flux[0];
    const double run_off = water > 0 ? washed * day.Runoff / water : 0;
    const double deep = water > 0 && bypass ? washed * day.Bypass / water : 0;
    sums.Runoff[0] += run_off;
    if (deep > 0) {
        Into_Bypass(0, 0, deep, day, sums);
        Arrive(0, deep, day);
    }
    const double rest = washed - run_off - deep;
    M[0] += rest;
    sums.Flux[0] += rest;
    Seek(0, 1, t);
    if (deep > 0)
        Seek_Outlets(day, t);
}

// What the transport sub-step of length h has taken goes to runoff, sediment and bypass, whose share arrives below.
void Solute_State::Carry_Off(const Solute_Day& day, double t, double h, Solute_Sums& sums)
{
    Extraction.Share_Out(Column, h, sums);
    if (day.Bypass_Outlet < 0 || day.Bypass <= 0)
        return;
    for (int k = 0; k < Layout.Slots; ++k) {
        double arriving = 0;
        for (int i = 0; i < Extraction.Rows(); ++i) {
            const double lost = Extraction.Bypassed(i, k);
            arriving += lost;
            if (lost > 0)
                Into_Bypass(k, i + 1, lost, day, sums);
        }
        Arrive(k, arriving, day);
    }
    Seek_Outlets(day, t);
}

// The number of compartments that it reached.
int Solute_State::Apply(const Solute_Application& application, double t, Solute_Sums& sums)
{
    const double on_plants = application.Mass * std::clamp(application.Plant_Share, 0.0, 1.0);
    const double poor = on_plants * std::clamp(application.Poorly_Exposed, 0.0, 1.0);
    Leaf.Well += on_plants - poor;
    Leaf.Poor += poor;
    sums.Plant_Applied[0] += on_plants;

    const double to_soil = application.Mass - on_plants;
    const double core = std::accumulate(Setup.Thickness.begin(), Setup.Thickness.end(), 0.0);
    const double depth =
        std::min(application.Depth > 0 ? application.Depth : std::max(Setup.Deposit_Depth, 1e-9), core);
    double top = 0;
    int touched = 0;
    for (; touched < Layout.N && top < depth; ++touched) {
        const double part = to_soil * std::min(depth - top, Setup.Thickness[touched]) / depth;
        const auto at = Layout.At(touched, 0);
        M[at] += part;
        sums.Applied[at] += part;
        top += Setup.Thickness[touched];
    }
    Seek(0, touched, t);
    return touched;
}

} // namespace orvel::engine
