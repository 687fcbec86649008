#pragma once

namespace orvel::engine {

// Daily preparation of transport, one compartment or interface at a time. The sub-step itself is in transport_lanes.h.

constexpr double Water_Diffusion = 0.43; // cm2/d
constexpr int Most_Sub_Steps = 500;

// A value at the interface between two compartments, interpolated linearly between their centres.
inline double Interface_Mean(double upper, double lower, double upper_thickness, double lower_thickness)
{
    return (upper * lower_thickness + lower * upper_thickness) / (upper_thickness + lower_thickness);
}

// Number of sub-steps (at least 1, at most Most_Sub_Steps) of a segment of length d (days), so that no compartment
// passes on more than 0.95 of its water in one.
int Sub_Step_Count(double d, int compartments, const double* flux, const double* thickness, const double* theta_start,
                   const double* theta_end);

// gv (cm/d per concentration in air): conductance through a boundary layer above the soil and half the first
// compartment. Tortuosities are theta^(10/3)/phi^2 of air and water; layer and thickness in cm, diffusion in cm2/d.
// [boundary layer: Jury et al. 1983; Millington & Quirk 1961]
double Volatilisation_Conductance(double boundary_layer, double air_diffusion, double thickness, double air_tortuosity,
                                  double water_tortuosity, double kaw);

} // namespace orvel::engine
