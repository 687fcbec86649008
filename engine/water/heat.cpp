#include "engine/water/heat.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Constant_Depth = 10;      // m
constexpr double Growth = 1.3;             // factor between successive nodes below the core
constexpr double Day = 86400;              // s
constexpr double Snow_Conductivity = 0.2;  // W/(m K)
constexpr double Snow_Depth_Per_Water = 4; // one value for fresh and old snow
constexpr double Unknown_Clay = 0.2, Least_Clay = 0.02;
constexpr double Cm = 0.01;

} // namespace

Conductivity Conductivity_Of(double density, double clay)
{
    const double fraction = clay <= 0 ? Unknown_Clay : std::max(clay, Least_Clay);
    return {0.65 - 0.78 * density + 0.60 * density * density, 1.06 * density, 1 + 2.6 / std::sqrt(fraction),
            0.03 + 0.1 * density * density};
}

namespace {

// The exponent of the conductivity's fall in dry soil, and the conductivity with e to that.
double Fall(const Conductivity& p, double water)
{
    const double x = p.C * water, x2 = x * x;
    return -x2 * x2;
}

double Conductivity_With(const Conductivity& p, double water, double fallen)
{
    return p.A + p.B * water - (p.A - p.D) * fallen;
}

} // namespace

double Conductivity_At(const Conductivity& p, double water)
{
    return Conductivity_With(p, water, Steady_Exp(Fall(p, water)));
}

double Heat_Capacity(double density, double water)
{
    return 2.4e6 * density / 2.65 + 4.18e6 * water;
}

void Conduct_Heat(std::vector<double>& temperature, const std::vector<double>& thickness,
                  const std::vector<double>& conductivity, const std::vector<double>& capacity,
                  double surface_temperature, double surface_conductance, double seconds)
{
    // Thomas algorithm; `above` is the conductance to the node above, `ratio` the eliminated upper diagonal.
    const std::size_t n = temperature.size();
    std::vector<double> ratio(n);
    double above = surface_conductance;
    double half = 0.5 * thickness[0] / conductivity[0]; // resistance of half the node
    for (std::size_t i = 0; i < n; ++i) {
        const double next = i + 1 < n ? 0.5 * thickness[i + 1] / conductivity[i + 1] : 0;
        const double below = i + 1 < n ? 1 / (half + next) : 0;
        half = next;
        const double store = capacity[i] * thickness[i] / seconds;
        double diagonal = store + above + below, right = store * temperature[i];
        if (i == 0) {
            right += above * surface_temperature;
        } else {
            diagonal -= above * ratio[i - 1];
            right += above * temperature[i - 1];
        }
        ratio[i] = below / diagonal;
        temperature[i] = right / diagonal;
        above = below;
    }
    for (std::size_t i = n - 1; i-- > 0;)
        temperature[i] += ratio[i] * temperature[i + 1];
}

Soil_Heat::Soil_Heat(const Grid& grid, double start_temperature, Exps exps) : Core(&grid), Fast_Exps(exps)
{
    double depth = 0;
    for (const double dz : grid.Thickness) {
        Thickness.push_back(dz * Cm);
        depth += dz * Cm;
    }
    for (double dz = Thickness.back() * Growth; depth < Constant_Depth; dz *= Growth) {
        Thickness.push_back(std::min(dz, Constant_Depth - depth));
        depth += Thickness.back();
    }
    for (std::size_t i = 0; i < grid.Thickness.size(); ++i)
        Parameters.push_back(Conductivity_Of(grid.Density[i], grid.Clay[i] / 100));
    const std::size_t last = grid.Thickness.size() - 1;
    const double water = grid.Field_Capacity[last];
    Conducts.assign(Thickness.size(), Conductivity_At(Parameters[last], water));
    Capacity.assign(Thickness.size(), Heat_Capacity(grid.Density[last], water));
    Nodes.assign(Thickness.size(), start_temperature);
}

void Soil_Heat::Step_Day(const std::vector<double>& theta, double air_temperature, double snow)
{
    Dryness.resize((theta.size() + 3) / 4 * 4, 0.0);
    for (std::size_t i = 0; i < theta.size(); ++i)
        Dryness[i] = Fall(Parameters[i], theta[i]);
    Fast_Exps(Dryness.data(), static_cast<int>(Dryness.size()), Dryness.data());
    for (std::size_t i = 0; i < theta.size(); ++i) {
        Conducts[i] = Conductivity_With(Parameters[i], theta[i], Dryness[i]);
        Capacity[i] = Heat_Capacity(Core->Density[i], theta[i]);
    }
    const double resistance = 0.5 * Thickness[0] / Conducts[0] + Snow_Depth_Per_Water * snow * Cm / Snow_Conductivity;
    Conduct_Heat(Nodes, Thickness, Conducts, Capacity, air_temperature, 1 / resistance, Day);
}

} // namespace orvel::engine
