// Events that act on the solutes instantaneously: tillage, harvest, plants, extraction, erosion, applications.
#include "engine/solute/solute_state.h"

#include "engine/solute/extraction.h"

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

// The ratio of concentration to mass is held constant while runoff, erosion and bypass take their shares in turn.
void Solute_State::Extract(const Solute_Day& day, double t, double length, Solute_Sums& sums)
{
    const double runoff = Setup.Runoff_Depth > 0 ? day.Runoff * length : 0;
    const double bypass = day.Bypass_Outlet >= 0 ? day.Bypass * length : 0;
    if (runoff <= 0 && bypass <= 0 && day.Sediment <= 0)
        return;
    Aligned_Row arriving = Layout.One_Row(0);
    int touched = 0;
    // Sediment comes from the uppermost soil, as far down as its mass reaches.
    double sediment_left = day.Sediment * length;
    for (; touched < Layout.N &&
           (touched == 0 || Runoff_Weights[touched] > 0 || Bypass_Weights[touched] > 0 || sediment_left > 0);
         ++touched) {
        const double sediment = std::min(sediment_left, Setup.Thickness[touched] * Setup.Density[touched]);
        sediment_left -= sediment;
        for (int k = 0; k < Layout.Slots; ++k) {
            const auto at = Layout.At(touched, k);
            const double ratio = M[at] > 0 ? C[at] / M[at] : 0;
            const auto lose = [&](double water) {
                const double lost = Carried_Loss(M[at], water * Storage.Doc_Factor(k) * ratio * M[at]);
                M[at] -= lost;
                return lost;
            };
            sums.Runoff[k] += lose(Runoff_Weights[touched] * runoff);
            if (sediment > 0)
                Erode(touched, k, sediment, ratio, t, sums);
            const double lost = lose(Bypass_Weights[touched] * bypass);
            arriving[k] += lost;
            if (lost > 0)
                Into_Bypass(k, touched + 1, lost, day, sums);
        }
    }
    Seek(0, touched, t);
    if (bypass <= 0)
        return;
    for (int k = 0; k < Layout.Slots; ++k)
        Arrive(k, arriving[k], day);
    Seek_Outlets(day, t);
}

// Erosion: the sediment (g/cm2) takes sorbed substance from a compartment, from both kinds of sites.
void Solute_State::Erode(int compartment, int slot, double sediment, double ratio, double t, Solute_Sums& sums)
{
    const double dz = Setup.Thickness[compartment], rho = Setup.Density[compartment];
    const auto at = Layout.At(compartment, slot);
    const double psi = Column.Psi_Start[at] + t * (Column.Psi_End[at] - Column.Psi_Start[at]);
    const double sorbed = std::max(1 / dz - psi * ratio, 0.0) / rho * M[at]; // ug/g
    const double fast = Carried_Loss(M[at], sediment * sorbed);
    const double slow = Carried_Loss(W[at], sediment * W[at] / (rho * dz));
    M[at] -= fast;
    W[at] -= slow;
    sums.Sediment[slot] += fast + slow;
}

void Solute_State::Apply(const Solute_Application& application, double t, Solute_Sums& sums)
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
}

} // namespace orvel::engine
