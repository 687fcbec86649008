#pragma once

#include "engine/solute/solute.h"

#include <string>
#include <vector>

namespace orvel::engine {

// Columns and days for the tests of the solute: one soil, nothing switched on that a test does not ask for.

inline Solute_Setup Uniform_Setup(int compartments, double dz, double rho, double theta)
{
    Solute_Setup setup;
    const auto row = [&](double value) { return std::vector<double>(compartments, value); };
    setup.Thickness = row(dz);
    setup.Density = row(rho);
    setup.Porosity = row(0.5);
    setup.Field_Capacity = row(theta);
    setup.Wilting_Point = row(theta / 3);
    setup.Organic_Carbon = row(1);
    setup.pH = row(7);
    setup.Dispersion = row(0);
    setup.Dispersion_Is_Length = false; // a coefficient of 0: no diffusion either
    setup.Biodegradation = row(1);
    setup.Horizon_Share = row(1);
    setup.Horizons = 1;
    return setup;
}

// Koc 100 per Kd 1 at 1 % organic carbon.
inline Solute_Substance Substance_With(int index, double kd, double exponent = 1)
{
    Solute_Substance substance;
    substance.Index = index;
    substance.Molmass = 300;
    substance.Koc = 100 * kd;
    substance.Freundlich_Exponent = exponent;
    return substance;
}

// Without corrections.
inline Solute_Arrow Arrow_To(int target, double rate)
{
    Solute_Arrow arrow;
    arrow.Target = target;
    arrow.Rate = rate;
    return arrow;
}

// No water moves; a day at 20 degC.
inline Solute_Day Still_Day(const Solute_Setup& setup, double theta)
{
    const std::size_t n = setup.Thickness.size();
    Solute_Day day;
    day.Theta_Start.assign(n, theta);
    day.Theta_End = day.Theta_Start;
    day.Flux.assign(n + 1, 0.0);
    day.Transpiration.assign(n, 0.0);
    day.Temperature.assign(n, 20.0);
    day.Air_Temperature = 20;
    return day;
}

// A flux q (cm/d) through the whole column.
inline Solute_Day Flowing_Day(const Solute_Setup& setup, double theta, double q)
{
    Solute_Day day = Still_Day(setup, theta);
    day.Flux.assign(day.Flux.size(), q);
    return day;
}

inline Solute_Application Applied(double mass, double depth = 0, double hour = 0)
{
    Solute_Application application;
    application.Mass = mass;
    application.Depth = depth;
    application.Hour = hour;
    return application;
}

} // namespace orvel::engine
