#include "engine/solute/kernel.h"
#include "engine/solute/solute.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace orvel::engine {

// The solute column over 26 years: daily weather, a tipping bucket, a parent and its metabolites, Freundlich sorption.

namespace {

struct Weather {
    std::uint64_t State = 0x9E3779B97F4A7C15ULL;
    double Uniform()
    {
        State ^= State << 13;
        State ^= State >> 7;
        State ^= State << 17;
        return static_cast<double>(State >> 11) * 0x1p-53;
    }
};

Solute_Substance Substance(int index, double koc, double exponent)
{
    Solute_Substance substance;
    substance.Index = index;
    substance.Molmass = 300 - 10 * index;
    substance.Koc = koc;
    substance.Freundlich_Exponent = exponent;
    substance.Plant_Uptake = 0.5;
    return substance;
}

Solute_Arrow To(int target, double rate)
{
    Solute_Arrow arrow;
    arrow.Target = target;
    arrow.Rate = rate;
    arrow.Q10 = 2.58;
    arrow.Moist_Exp = 0.7;
    return arrow;
}

Solute_Setup Setup(int compartments, int substances)
{
    Solute_Setup setup;
    const auto row = [&](double value) { return std::vector<double>(compartments, value); };
    setup.Thickness = row(1);
    setup.Density = row(1.4);
    setup.Porosity = row(0.45);
    setup.Field_Capacity = row(0.28);
    setup.Wilting_Point = row(0.08);
    setup.Organic_Carbon = row(1);
    setup.pH = row(7);
    setup.Dispersion = row(5);
    setup.Biodegradation = row(1);
    setup.Horizon_Share = row(1);
    setup.Horizons = 1;
    constexpr double koc[] = {60, 25, 10, 80, 40, 35, 20, 50, 30};
    for (int k = 0; k < substances; ++k)
        setup.Substances.push_back(Substance(k + 1, koc[k], 0.9));
    for (int k = 0; k < substances; ++k) {
        setup.Substances[k].Arrows[1] = To(k + 1 < substances ? k + 2 : 0, 0.02 / (k + 1));
        setup.Substances[k].Arrows[4] = To(0, 0.015 / (k + 1));
    }
    return setup;
}

// The bucket's days: rain, drainage of what exceeds field capacity, uptake above 60 cm.
struct Bucket {
    Weather Sky;
    Solute_Day Day;
    int Number = 0;

    explicit Bucket(int compartments)
    {
        Day.Theta_End.assign(compartments, 0.28);
        Day.Theta_Start = Day.Transpiration = Day.Temperature = Day.Theta_End;
        Day.Flux.assign(compartments + 1, 0.0);
    }

    const Solute_Day& Next()
    {
        const double season = std::sin(6.283185307 * (Number - 105) / 365.25);
        const int n = static_cast<int>(Day.Theta_End.size()), roots = std::min(n, 60);
        Day.Theta_Start = Day.Theta_End;
        Day.Flux[0] = Sky.Uniform() < 0.42 ? -0.48 * std::log(1 - Sky.Uniform()) : 0;
        for (int i = 0; i < n; ++i) {
            const double room = std::max(0.0, Day.Theta_Start[i] - 0.08);
            const double share = i < roots ? 2.0 * (roots - i) / (roots * (roots + 1.0)) : 0;
            Day.Transpiration[i] = std::min(room, (0.16 + 0.15 * season) * share * std::min(1.0, room * 10));
            const double here = Day.Theta_Start[i] + Day.Flux[i] - Day.Transpiration[i];
            Day.Flux[i + 1] = std::max(0.0, here - 0.28);
            Day.Theta_End[i] = here - Day.Flux[i + 1];
            Day.Temperature[i] = 9.5 + 8.5 * season * std::exp(-i / 200.0);
        }
        Day.Applications.clear();
        if (Number % 365 == 120)
            Day.Applications.push_back({.Hour = 0, .Mass = 10});
        ++Number;
        return Day;
    }
};

void Run_Years(benchmark::State& state, const Solute_Kernel& kernel, const Solute_Setup& setup)
{
    const int n = static_cast<int>(setup.Thickness.size());
    state.SetLabel(kernel.Name);
    for (auto _ : state) {
        Solute_Column column(setup, &kernel);
        const Solute_Stores start = column.Stores();
        Solute_Sums month(n, column.Lanes()), all(n, column.Lanes());
        Bucket bucket(n);
        for (int day = 0; day < 26 * 365; ++day) {
            column.Step_Day(bucket.Next(), month);
            if (day % 30 == 0) {
                all.Add(month);
                month.Clear();
            }
        }
        all.Add(month);
        const Solute_Closure closure = column.Closure(all, start);
        state.counters["sub-steps"] = static_cast<double>(column.Sub_Steps());
        state.counters["error"] = std::abs(closure.Error[0]) / closure.In[0];
        state.counters["leached"] = all.Flux[static_cast<std::size_t>(n) * column.Lanes() + 1];
    }
}

void Years_26(benchmark::State& state)
{
    const Solute_Kernel* kernel = state.range(2) ? Avx2_Kernel() : &Baseline_Kernel();
    if (!kernel)
        return state.SkipWithError("no AVX2");
    Run_Years(state, *kernel, Setup(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
}
BENCHMARK(Years_26)
    ->Unit(benchmark::kMillisecond)
    ->ArgNames({"compartments", "substances", "avx2"})
    ->ArgsProduct({{200}, {1, 4, 9}, {0, 1}});

// The same with every costly process switched on: two-site sorption, vapour, DOC, photolysis, ageing, decay in
// solution.
void Years_26_All_Processes(benchmark::State& state)
{
    Solute_Setup setup = Setup(200, 4);
    setup.Doc = 20;
    setup.Volatilisation = {.Henry = {1e-4, 2e-4}, .Diffusion_Air = 0.05, .Boundary_Layer = 0.1};
    for (auto& substance : setup.Substances) {
        substance.F_Neq = 0.3;
        substance.K_Des = 0.02;
        substance.K_Doc = 1000;
        substance.Annual_Increase = 5;
        substance.Koc_Change = 10;
    }
    setup.Substances[1].Liquid_Only = true;
    setup.Substances[0].Arrows[1].Photo_Rate = 0.1;
    setup.Substances[0].Arrows[1].Photo_Reference = 500;
    Run_Years(state, Best_Kernel(), setup);
}
BENCHMARK(Years_26_All_Processes)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace orvel::engine

BENCHMARK_MAIN();
