#include "engine/water/soil_water.h"

#include "engine/math/steady_math.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Dry_Limit = 0.5;       // share of the wilting point that evaporation leaves
constexpr double Readily_Share = 0.4;   // share of the evaporable water
constexpr double Stress_Share = 0.5;    // share of the plant-available water (FAO-56, p)
constexpr double Antecedent_Depth = 20; // cm
constexpr double Drainage_Length = 100; // cm of soil for which the drainage parameter is the share of a day

// The length of compartment i that is above `depth`, cm.
double Within(const Grid& grid, int i, double depth)
{
    return std::clamp(depth - grid.Top(i), 0.0, grid.Thickness[static_cast<std::size_t>(i)]);
}

// cm/d, at unit gradient; 0 without drainage.
double Saturated_Flux(const Grid& grid, std::size_t i)
{
    return grid.Drainage[i] * Drainage_Length * (grid.Porosity[i] - grid.Field_Capacity[i]);
}

} // namespace

double Free_Outflow(double inflow, double excess, double thickness)
{
    const double out = inflow + excess * thickness;
    return out < Least_Flux ? 0 : out;
}

double Restricted_Outflow(double inflow, double excess, double thickness, double drainage, double room)
{
    const double speed = drainage * Drainage_Length; // cm/d
    if (speed <= 0)
        return 0;
    // dq/dz = (excess - q / speed) / day from the upper border: the flux nears speed * excess.
    const double out = inflow + (speed * excess - inflow) * Steady_Lost(thickness / speed);
    return out < Least_Flux ? 0 : std::min(out, speed * room);
}

Percolation_Result Percolate(const Grid& grid, const Percolation& supply, std::vector<double>& theta,
                             std::vector<double>& flux)
{
    const int n = grid.Count();
    Percolation_Result result{0, supply.Bypass, supply.Below};
    const auto arrives = [&supply](int k) {
        return k == supply.Outlet ? supply.Bypass - supply.Below : k == supply.Outlet + 1 ? supply.Below : 0;
    };
    // A day's infiltration is the saturated conductivity, whatever the first compartment holds.
    const double most = supply.Restricted ? Saturated_Flux(grid, 0) : supply.Infiltration;
    flux[0] = most > 0 ? std::min(supply.Infiltration, most) : supply.Infiltration;
    result.Excess = supply.Infiltration - flux[0];
    for (int k = 0; k < n; ++k) {
        const auto i = static_cast<std::size_t>(k);
        const double dz = grid.Thickness[i];
        const double here = theta[i] + arrives(k) / dz;
        const double excess = here - grid.Field_Capacity[i];
        flux[i + 1] = supply.Restricted ? Restricted_Outflow(flux[i], excess, dz, grid.Drainage[i],
                                                             grid.Porosity[i] - grid.Field_Capacity[i])
                                        : Free_Outflow(flux[i], excess, dz);
        theta[i] = here + (flux[i] - flux[i + 1]) / dz;
    }
    if (!supply.Restricted)
        return result;
    for (int k = n - 1; k >= 0; --k) {
        const auto i = static_cast<std::size_t>(k);
        double excess = (theta[i] - grid.Porosity[i]) * grid.Thickness[i];
        if (excess <= 0)
            continue;
        const double up = std::min(excess, flux[i]);
        flux[i] -= up;
        excess -= up;
        if (supply.Outlet >= 0 && (k == supply.Outlet || k == supply.Outlet + 1)) {
            const bool below = k != supply.Outlet;
            const double back = std::min(excess, below ? result.Below : result.Bypass - result.Below);
            result.Bypass -= back;
            result.Below -= below ? back : 0;
            excess -= back;
            result.Excess += back;
        }
        theta[i] = grid.Porosity[i] + excess / grid.Thickness[i];
        if (k == 0)
            result.Excess += up;
        else
            theta[i - 1] += up / grid.Thickness[i - 1];
    }
    return result;
}

double Evaporation_Factor(double depletion, double total, double readily)
{
    if (depletion <= readily)
        return 1;
    return std::clamp((total - depletion) / (total - readily), 0.0, 1.0);
}

std::vector<double> Linear_Shares(const Grid& grid, double depth)
{
    std::vector<double> shares(static_cast<std::size_t>(grid.Count()), 0.0);
    double sum = 0;
    for (int i = 0; i < grid.Count() && depth > 0; ++i) {
        const double top = std::min(grid.Top(i), depth),
                     bottom = std::min(grid.Bottom[static_cast<std::size_t>(i)], depth);
        const double share = 2 / depth * ((bottom - top) - (bottom * bottom - top * top) / (2 * depth));
        shares[static_cast<std::size_t>(i)] = std::max(share, 0.0);
        sum += shares[static_cast<std::size_t>(i)];
    }
    for (double& share : shares) // the zone may reach below the core
        share = sum > 0 ? share / sum : 0;
    return shares;
}

void Evaporate(const Grid& grid, double demand, double depth, const std::vector<double>& shares,
               std::vector<double>& theta, std::vector<double>& taken)
{
    double total = 0, depletion = 0;
    for (int k = 0; k < grid.Count() && grid.Top(k) < depth; ++k) {
        const auto i = static_cast<std::size_t>(k);
        const double length = Within(grid, k, depth);
        total += (grid.Field_Capacity[i] - Dry_Limit * grid.Wilting_Point[i]) * length;
        depletion += std::max(grid.Field_Capacity[i] - theta[i], 0.0) * length;
    }
    const double wanted = demand * Evaporation_Factor(depletion, total, Readily_Share * total);
    for (std::size_t i = 0; i < shares.size(); ++i) {
        const double available = std::max(theta[i] - Dry_Limit * grid.Wilting_Point[i], 0.0) * grid.Thickness[i];
        taken[i] = std::min(wanted * shares[i], available);
        theta[i] -= taken[i] / grid.Thickness[i];
    }
}

void Transpire(const Grid& grid, double demand, const std::vector<double>& shares, std::vector<double>& theta,
               std::vector<double>& taken)
{
    double met = 0, unstressed = 0;
    const auto stress = [&grid, &theta](std::size_t i) {
        return std::clamp((theta[i] - grid.Wilting_Point[i]) /
                              (Stress_Share * (grid.Field_Capacity[i] - grid.Wilting_Point[i])),
                          0.0, 1.0);
    };
    const auto available = [&grid, &theta](std::size_t i) {
        return std::max(theta[i] - grid.Wilting_Point[i], 0.0) * grid.Thickness[i];
    };
    std::vector<bool> free(shares.size());
    for (std::size_t i = 0; i < shares.size(); ++i) {
        taken[i] = 0;
        if (demand <= 0 || shares[i] <= 0)
            continue;
        const double a = stress(i);
        taken[i] = std::min(demand * shares[i] * a, available(i));
        met += taken[i];
        free[i] = a >= 1;
        unstressed += free[i] ? shares[i] : 0;
    }
    const double rest = demand - met;
    for (std::size_t i = 0; i < shares.size() && demand > 0; ++i) {
        if (free[i] && rest > 0)
            taken[i] = std::min(taken[i] + rest * shares[i] / unstressed, available(i));
        theta[i] -= taken[i] / grid.Thickness[i];
    }
}

double Deficit(const Grid& grid, const std::vector<double>& theta, double depth)
{
    double sum = 0;
    for (int k = 0; k < grid.Count(); ++k) {
        const auto i = static_cast<std::size_t>(k);
        sum += std::max(grid.Field_Capacity[i] - theta[i], 0.0) * Within(grid, k, depth);
    }
    return sum;
}

double Antecedent_Moisture(const Grid& grid, const std::vector<double>& theta)
{
    double water = 0, dry = 0, wet = 0;
    for (int k = 0; k < grid.Count(); ++k) {
        const auto i = static_cast<std::size_t>(k);
        const double length = Within(grid, k, Antecedent_Depth);
        water += theta[i] * length;
        dry += grid.Wilting_Point[i] * length;
        wet += grid.Field_Capacity[i] * length;
    }
    return std::clamp((water - dry) / (wet - dry), 0.0, 1.0);
}

} // namespace orvel::engine
